#include "core/StatusRun.h"

#include "core/StatusDecoder.h"
#include "files/PathText.h"

#include <QPointer>

#include <string_view>
#include <utility>

namespace zolva {

namespace {

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

StatusRun::StatusRun(Clock& clock, const std::shared_ptr<StatusStream>& stream, QObject* parent)
    : QObject(parent), m_child(clock, this), m_stream(stream)
{
    stream->onCancel([run = QPointer(this)] {
        if (run) {
            run->m_child.terminate();
        }
    });
    connect(&m_child, &ChildProcess::wroteOutput, this, &StatusRun::takeOutput);
    connect(&m_child, &ChildProcess::wroteError, this,
            [this](const QByteArray& bytes) { m_stderr.take(viewOf(bytes)); });
    connect(&m_child, &ChildProcess::readingFailed, this, &StatusRun::breakOff);
    connect(&m_child, &ChildProcess::launchFailed, this, [this](const QString& why) {
        deleteLater();
        finish(SystemError{why.toStdString()});
    });
    connect(&m_child, &ChildProcess::ended, this, &StatusRun::handleEnd);
}

StatusRun::~StatusRun()
{
    finish(std::nullopt);
}

void StatusRun::start(const ChildProcess::Command& command)
{
    m_child.start(command);
}

void StatusRun::takeOutput(const QByteArray& bytes)
{
    // All lines first: no reader may run while the splitter does.
    Readings readings;
    m_lines.feed(viewOf(bytes), [&](const LineSplitter::Line& line) { takeLine(line, readings); });
    static_cast<void>(deliver(std::move(readings)));
}

void StatusRun::takeLine(const LineSplitter::Line& line, Readings& readings)
{
    const std::shared_ptr<StatusStream> stream = m_stream.lock();
    if (!stream || stream->isFinished() || (line.text.empty() && !line.tooLong)) {
        return;
    }
    if (line.tooLong) {
        m_lastError = "a line is longer than 1 MiB";
        return;
    }
    auto reading = decodeStatus(line.text);
    if (!reading) {
        m_lastError = std::move(reading.error());
        return;
    }
    ++m_count;
    readings.push_back(std::move(*reading));
}

bool StatusRun::deliver(Readings readings)
{
    const QPointer<StatusRun> self(this);
    const std::shared_ptr<StatusStream> stream = m_stream.lock();
    for (StatusResult& reading : readings) {
        if (stream && !stream->isFinished()) {
            stream->send(std::move(reading));
        }
    }
    return !self.isNull();
}

void StatusRun::breakOff(const QString& why)
{
    if (const std::shared_ptr<StatusStream> stream = m_stream.lock()) {
        stream->breakOff(SystemError{why.toStdString()});
    }
}

void StatusRun::finish(std::optional<MoFailure> failure)
{
    if (const std::shared_ptr<StatusStream> stream = m_stream.lock()) {
        stream->finish(std::move(failure));
    }
}

void StatusRun::handleEnd(int status)
{
    Readings readings;
    m_lines.finish([&](const LineSplitter::Line& line) { takeLine(line, readings); });
    m_stderr.close();
    deleteLater();
    if (deliver(std::move(readings))) {
        finish(outcome(status));
    }
}

/// The order of these tests matters: a reading outweighs the status, the status outweighs the
/// lines.
std::optional<MoFailure> StatusRun::outcome(int status) const
{
    if (m_count > 0) {
        return std::nullopt;
    }
    std::string told(trimmedText(m_stderr.text()));
    if (status != 0) {
        return MoError{MoError::NonZeroExit{status, std::move(told)}};
    }
    if (m_lastError) {
        return MoError{MoError::DecodingFailure{*m_lastError}};
    }
    if (told.empty()) {
        told = "mo status produced no output";
    }
    return MoError{MoError::NonZeroExit{0, std::move(told)}};
}

} // namespace zolva
