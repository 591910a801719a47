#pragma once

#include "core/ChildProcess.h"
#include "core/Mailbox.h"
#include "core/MoError.h"
#include "core/StderrBox.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QString>
#include <tl/expected.hpp>

#include <chrono>
#include <string>

namespace zolva {

/// One run of the tool that is to print something and end: collects what it prints, and ends it if
/// it takes too long. Deletes itself when the child has ended.
class ListRun final : public QObject
{
    Q_OBJECT

public:
    struct Printed
    {
        int status = 0;
        std::string output;
        std::string errors; ///< UTF-8, not trimmed
    };
    using Outcome = tl::expected<Printed, SystemError>;

    ListRun(Clock& clock, QObject* parent);
    ~ListRun() override;

    void start(const ChildProcess::Command& command, std::chrono::seconds limit);

    /// The one outcome; empty if this object ends before the child.
    [[nodiscard]] Mailbox<Outcome> outcome() const { return m_outcome; }

private:
    static QCoro::Task<> watch(Clock* clock, QPointer<ChildProcess> child,
                               std::chrono::seconds limit);
    void tell(Outcome outcome);
    void fail(const QString& why);
    void handleEnd(int status);

    Clock& m_clock;
    ChildProcess m_child;
    Mailbox<Outcome> m_outcome;
    std::string m_output;
    StderrBox m_stderr;
};

} // namespace zolva
