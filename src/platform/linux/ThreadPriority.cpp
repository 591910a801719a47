#include "platform/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace zolva {

void giveWay()
{
    constexpr int steps = 10;
    static thread_local bool gives = false;
    if (gives) {
        return;
    }
    gives = true;
    // On Linux each thread has its own, under the number of the thread; beyond the least it stays
    // there.
    const auto thread = static_cast<id_t>(::gettid());
    ::setpriority(PRIO_PROCESS, thread, ::getpriority(PRIO_PROCESS, thread) + steps);
}

} // namespace zolva
