#include "mole/AppListDocument.h"
#include "mole/Options.h"
#include "mole/Watch.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace {

using namespace zolva::mole;

/// The signals that ask a program to end do so at once, whatever the parent made of them: nothing
/// here needs tidying up. A reader that went away is told by the write instead.
void endOnSignals()
{
    sigset_t all;
    sigemptyset(&all);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(signal, SIG_DFL);
        sigaddset(&all, signal);
    }
    sigprocmask(SIG_UNBLOCK, &all, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

int exitCodeOf(Delivery outcome)
{
    if (outcome == Delivery::Failed) {
        std::fprintf(stderr, "mole: %s\n", std::strerror(errno));
        return 1;
    }
    return 0;
}

int listApps()
{
    std::vector<std::string> untellable;
    const auto rows = bundlesBelow(applicationFolders(), untellable);
    for (const std::string& path : untellable) {
        std::fprintf(stderr, "mole: left out, its path is not UTF-8: %s\n", path.c_str());
    }
    return exitCodeOf(deliver(appListDocument(rows) + "\n"));
}

} // namespace

int main(int argc, char** argv)
{
    endOnSignals();
    const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const Request request = requestOf(arguments);
    if (const auto* wrong = std::get_if<WrongUsage>(&request)) {
        std::fputs(wrong->message.c_str(), stderr);
        return 2;
    }
    // Nobody could read anything, and the next file opened would take the place of the output.
    if (::fcntl(STDOUT_FILENO, F_GETFD) < 0) {
        return 0;
    }
    if (const auto* watch = std::get_if<WatchStatus>(&request)) {
        return exitCodeOf(watchStatus(watch->interval));
    }
    return listApps();
}
