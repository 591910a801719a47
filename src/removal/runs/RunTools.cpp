#include "removal/runs/RunTools.h"

#include "removal/runs/RunMessages.h"

namespace zolva {

RunStart enterRun(const RunTools& tools, HeldRunLock& lock)
{
    return tools.state->bulk() ? RunStart::Busy : lockOutOthers(tools, lock);
}

RunStart lockOutOthers(const RunTools& tools, HeldRunLock& lock)
{
    lock = tools.state->lockRuns(tools.journalFolder);
    if (!lock) {
        tools.toasts.addToast(BannerKind::Info, otherProcessText());
        return RunStart::OtherProcess;
    }
    return RunStart::Started;
}

} // namespace zolva
