#include "platform/RunningApps.h"

#import <AppKit/AppKit.h>

#include <unistd.h>

namespace zolva {

namespace {

NSRunningApplication* applicationOf(const RunningApp& app)
{
    return [NSRunningApplication runningApplicationWithProcessIdentifier:app.pid];
}

} // namespace

std::vector<RunningApp> runningApps(const std::string& bundleID, const BundleIdentifierOf&)
{
    std::vector<RunningApp> running;
    NSString* identifier = [NSString stringWithUTF8String:bundleID.c_str()];
    if (!identifier) {
        return running;
    }
    for (NSRunningApplication* app in
         [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier]) {
        if (!app.isTerminated && app.processIdentifier != ::getpid()) {
            running.push_back({app.processIdentifier, 0});
        }
    }
    return running;
}

void askToTerminate(const RunningApp& app)
{
    [applicationOf(app) terminate];
}

bool hasTerminated(const RunningApp& app)
{
    NSRunningApplication* application = applicationOf(app);
    return !application || application.isTerminated;
}

} // namespace zolva
