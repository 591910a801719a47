#include "platform/ChildGroup.h"

#include <csignal>

#include <unistd.h>

namespace zolva {

namespace {

/// What is blocked or ignored here would stay so in the child, which then could not be ended.
void signalsAsAtLogin()
{
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    ::signal(SIGTERM, SIG_DFL);
    ::signal(SIGPIPE, SIG_DFL);
}

} // namespace

std::function<void()> ownGroupInChild()
{
    return [] {
        ::setpgid(0, 0);
        signalsAsAtLogin();
    };
}

void signalGroup(long long child, GroupSignal signal)
{
    if (child > 1) {
        ::kill(-static_cast<pid_t>(child), signal == GroupSignal::Kill ? SIGKILL : SIGTERM);
    }
}

} // namespace zolva
