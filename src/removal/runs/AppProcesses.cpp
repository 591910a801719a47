#include "removal/runs/AppProcesses.h"

#include "platform/WholeFile.h"
#include "scanners/AppInventory.h"

#include <cstddef>
#include <optional>

namespace zolva {

namespace {

/// An Info.plist has a few thousand bytes, and this one is read on the main thread.
constexpr std::size_t largestInfo = std::size_t{1024} * 1024;

std::optional<std::string> bundleIdentifier(const std::string& bundle)
{
    const WholeFile info = readWholeFile(bundle + "/Contents/Info.plist", largestInfo);
    return info.error ? std::nullopt : plistText(info.bytes, "CFBundleIdentifier");
}

} // namespace

std::vector<RunningApp> SystemAppProcesses::running(const std::string& bundleID)
{
    return runningApps(bundleID, bundleIdentifier);
}

void SystemAppProcesses::terminate(const RunningApp& app)
{
    askToTerminate(app);
}

bool SystemAppProcesses::isTerminated(const RunningApp& app)
{
    return hasTerminated(app);
}

} // namespace zolva
