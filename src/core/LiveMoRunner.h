#pragma once

#include "async/Clock.h"
#include "core/ChildProcess.h"
#include "core/MoLocation.h"
#include "core/MoRunner.h"

#include <QObject>

#include <chrono>
#include <memory>

namespace zolva {

/// The bridge to the real tool: a child for each stream, and one for each list. The tool's place is
/// fixed, and looked at again before every run. Its end kills every child that is left. The clock
/// outlives it. Main thread.
class LiveMoRunner final : public MoRunner
{
public:
    /// How long the list of applications may take.
    static constexpr std::chrono::seconds listLimit{90};

    explicit LiveMoRunner(Clock& clock, MoLocation location = moLocation());

    [[nodiscard]] std::shared_ptr<StatusStream>
    statusStream(std::chrono::seconds interval) override;
    [[nodiscard]] QCoro::Task<AppList> listApps() override;

private:
    [[nodiscard]] ChildProcess::Command command(const QStringList& arguments) const;

    Clock& m_clock;
    MoLocation m_location;
    QObject m_runs; ///< parent of the runs under way, each of which deletes itself at its end
};

} // namespace zolva
