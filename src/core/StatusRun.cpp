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
    : QObject(parent), m_child(clock), m_stream(stream)
{
    stream->onCancel([run = QPointer(this)] {
        if (run) {
            run->m_child.terminate();
        }
    });
    connect(&m_child, &ChildProcess::wroteOutput, this, [this](const QByteArray& bytes) {
        m_lines.feed(viewOf(bytes), [this](const LineSplitter::Line& line) { takeLine(line); });
    });
    connect(&m_child, &ChildProcess::wroteError, this,
            [this](const QByteArray& bytes) { m_stderr.take(viewOf(bytes)); });
    connect(&m_child, &ChildProcess::readingFailed, this,
            [this](const QString& why) { finish(SystemError{why.toStdString()}); });
    connect(&m_child, &ChildProcess::launchFailed, this, [this](const QString& why) {
        finish(SystemError{why.toStdString()});
        deleteLater();
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

void StatusRun::takeLine(const LineSplitter::Line& line)
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
    stream->send(std::move(*reading));
}

void StatusRun::finish(std::optional<MoFailure> failure)
{
    if (const std::shared_ptr<StatusStream> stream = m_stream.lock()) {
        stream->finish(std::move(failure));
    }
}

void StatusRun::handleEnd(int status)
{
    m_lines.finish([this](const LineSplitter::Line& line) { takeLine(line); });
    m_stderr.close();
    deleteLater();
    finish(outcome(status));
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
