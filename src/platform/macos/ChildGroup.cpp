#include "platform/ChildGroup.h"

#include <csignal>

#include <unistd.h>

namespace zolva {

std::function<void()> ownGroupInChild()
{
    return [] { ::setpgid(0, 0); };
}

void giveOwnGroup(long long child)
{
    // Fails once the child runs its program: then the child has done it itself.
    ::setpgid(static_cast<pid_t>(child), static_cast<pid_t>(child));
}

void signalGroup(long long child, GroupSignal signal)
{
    if (child > 1) {
        ::kill(-static_cast<pid_t>(child), signal == GroupSignal::Kill ? SIGKILL : SIGTERM);
    }
}

} // namespace zolva
