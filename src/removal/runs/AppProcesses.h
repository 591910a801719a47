#pragma once

#include "platform/RunningApps.h"

#include <string>
#include <vector>

namespace zolva {

/// The running applications, so that tests can stand in for them. Main thread.
class AppProcesses
{
public:
    AppProcesses() = default;
    virtual ~AppProcesses() = default;
    AppProcesses(const AppProcesses&) = delete;
    AppProcesses& operator=(const AppProcesses&) = delete;

    /// The instances that run now.
    [[nodiscard]] virtual std::vector<RunningApp> running(const std::string& bundleID) = 0;
    virtual void terminate(const RunningApp& app) = 0;
    [[nodiscard]] virtual bool isTerminated(const RunningApp& app) = 0;
};

/// The machine's own.
class SystemAppProcesses final : public AppProcesses
{
public:
    [[nodiscard]] std::vector<RunningApp> running(const std::string& bundleID) override;
    void terminate(const RunningApp& app) override;
    [[nodiscard]] bool isTerminated(const RunningApp& app) override;
};

} // namespace zolva
