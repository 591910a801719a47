#include "core/ListRun.h"

#include "async/Unawaited.h"

#include <utility>

namespace zolva {

ListRun::ListRun(Clock& clock, QObject* parent) : QObject(parent), m_clock(clock), m_child(clock)
{
    connect(&m_child, &ChildProcess::wroteOutput, this, [this](const QByteArray& bytes) {
        m_output.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    });
    connect(&m_child, &ChildProcess::wroteError, this, [this](const QByteArray& bytes) {
        m_stderr.take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    });
    connect(&m_child, &ChildProcess::launchFailed, this, [this](const QString& why) {
        deleteLater();
        fail(why);
    });
    connect(&m_child, &ChildProcess::readingFailed, this, &ListRun::fail);
    connect(&m_child, &ChildProcess::ended, this, &ListRun::handleEnd);
}

ListRun::~ListRun()
{
    m_outcome.close();
}

void ListRun::start(const ChildProcess::Command& command, std::chrono::seconds limit)
{
    unawaited(watch(&m_clock, &m_child, limit));
    m_child.start(command);
}

QCoro::Task<> ListRun::watch(Clock* clock, QPointer<ChildProcess> child, std::chrono::seconds limit)
{
    co_await clock->sleep(limit);
    if (child) {
        child->terminate();
    }
}

void ListRun::tell(Outcome outcome)
{
    // Whoever waits for it may end this object.
    const Mailbox<Outcome> mailbox = m_outcome;
    mailbox.send(std::move(outcome));
    mailbox.close();
}

void ListRun::fail(const QString& why)
{
    tell(tl::unexpected(SystemError{why.toStdString()}));
}

void ListRun::handleEnd(int status)
{
    m_stderr.close();
    deleteLater();
    tell(Printed{status, std::move(m_output), m_stderr.text()});
}

} // namespace zolva
