#include "platform/ThreadPriority.h"

#include <pthread.h>

namespace zolva {

void giveWay()
{
    ::pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
}

} // namespace zolva
