#include "core/ChildProcess.h"

#include "async/Unawaited.h"

#include <QCoreApplication>

namespace zolva {

ChildProcess::ChildProcess(Clock& clock, QObject* parent)
    : QObject(parent), m_clock(clock), m_process(std::make_unique<QProcess>())
{
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setChildProcessModifier(ownGroupInChild());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &ChildProcess::tellOutput);
    connect(m_process.get(), &QProcess::readyReadStandardError, this, &ChildProcess::tellError);
    connect(m_process.get(), &QProcess::errorOccurred, this, &ChildProcess::handleError);
    connect(m_process.get(), &QProcess::started, this, &ChildProcess::handleStart);
    connect(m_process.get(), &QProcess::finished, this, &ChildProcess::handleEnd);
}

ChildProcess::~ChildProcess()
{
    m_process->disconnect(this);
    if (!isRunning()) {
        // This may run within a signal of the process.
        m_process.release()->deleteLater();
        return;
    }
    // Its own destructor would wait for the child, so it stays until it has collected it, or until
    // the program ends.
    QProcess* left = m_process.release();
    left->setParent(QCoreApplication::instance());
    connect(left, &QProcess::finished, left, &QObject::deleteLater);
    if (left->state() == QProcess::Running) {
        signalGroup(left->processId(), GroupSignal::Kill);
    } else {
        connect(left, &QProcess::started, left,
                [left] { signalGroup(left->processId(), GroupSignal::Kill); });
        connect(left, &QProcess::errorOccurred, left, &QObject::deleteLater);
    }
}

void ChildProcess::start(const Command& command)
{
    m_process->setProcessEnvironment(command.environment);
    m_process->start(command.program, command.arguments, QIODevice::ReadOnly);
}

bool ChildProcess::isRunning() const
{
    return m_process->state() != QProcess::NotRunning;
}

void ChildProcess::terminate()
{
    if (isRunning() && !m_sent) {
        signalAll(GroupSignal::Terminate);
        unawaited(killAfterGrace(&m_clock, this));
    }
}

QCoro::Task<> ChildProcess::killAfterGrace(Clock* clock, QPointer<ChildProcess> child)
{
    co_await clock->sleep(grace);
    if (child && child->isRunning()) {
        child->signalAll(GroupSignal::Kill);
    }
}

void ChildProcess::signalAll(GroupSignal signal)
{
    m_sent = signal;
    // Before its program runs, the child is still a copy of this process, signal handlers included,
    // and perhaps in this process's group.
    if (m_process->state() == QProcess::Running) {
        signalGroup(m_process->processId(), signal);
    }
}

void ChildProcess::handleStart()
{
    m_group = m_process->processId();
    if (m_sent) {
        signalAll(*m_sent);
    }
}

void ChildProcess::tellOutput()
{
    const QByteArray bytes = m_process->readAllStandardOutput();
    if (!bytes.isEmpty()) {
        Q_EMIT wroteOutput(bytes);
    }
}

void ChildProcess::tellError()
{
    const QByteArray bytes = m_process->readAllStandardError();
    if (!bytes.isEmpty()) {
        Q_EMIT wroteError(bytes);
    }
}

void ChildProcess::handleError(QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart) {
        Q_EMIT launchFailed(m_process->errorString());
    } else if (error == QProcess::ReadError) {
        Q_EMIT readingFailed(m_process->errorString());
    }
}

void ChildProcess::handleEnd(int status)
{
    tellOutput();
    tellError();
    // What the child has left behind had the same request to end, if there was one. This is the
    // last moment at which the group's number can only be its own.
    signalGroup(m_group, GroupSignal::Kill);
    Q_EMIT ended(status);
}

} // namespace zolva
