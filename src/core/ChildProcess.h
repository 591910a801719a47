#pragma once

#include "async/Clock.h"
#include "core/ErrorPipe.h"
#include "platform/ChildGroup.h"

#include <QByteArray>
#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>

namespace zolva {

/// One run of a program, with all that it starts as one process group. Nothing here waits: all is
/// told by signals, from the event loop. After `start` comes exactly one of `launchFailed` and
/// `ended`, and nothing after it. Both outputs are read as they come; a listener may end this
/// object. Main thread.
class ChildProcess final : public QObject
{
    Q_OBJECT

public:
    struct Command
    {
        QString program; ///< a full path
        QStringList arguments;
        QProcessEnvironment environment;
    };

    /// From the request to end until the child is made to.
    static constexpr std::chrono::seconds grace{5};

    explicit ChildProcess(Clock& clock, QObject* parent = nullptr);
    /// Kills what still runs, without waiting for it.
    ~ChildProcess() override;

    /// Once for each object.
    void start(const Command& command);
    [[nodiscard]] bool isRunning() const;
    /// Asks the whole group to end, and kills it when it has not after `grace` on the clock.
    void terminate();

Q_SIGNALS:
    void wroteOutput(const QByteArray& bytes);
    void wroteError(const QByteArray& bytes);
    void readingFailed(const QString& why); ///< of the output; the child may still run
    void launchFailed(const QString& why);
    /// The exit status, or the signal's number where a signal ended it. Both outputs have been
    /// told.
    void ended(int status);

private:
    void tellOutput();
    void handleError(QProcess::ProcessError error);
    void handleStart();
    void handleEnd(int status);
    void signalAll(GroupSignal signal);
    static QCoro::Task<> killAfterGrace(Clock* clock, QPointer<ChildProcess> child);

    Clock& m_clock;
    std::unique_ptr<QProcess> m_process;
    ErrorPipe m_errors;
    qint64 m_group = 0;                ///< the child's process id, once it runs its program
    std::optional<GroupSignal> m_sent; ///< the last one asked for
};

} // namespace zolva
