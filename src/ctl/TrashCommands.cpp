#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/RemovalPlan.h"
#include "ctl/RemovalReport.h"
#include "ctl/RemovalSession.h"
#include "ctl/Table.h"
#include "ctl/TrashReading.h"
#include "files/DisplayPath.h"
#include "files/PathText.h"
#include "files/SizeText.h"
#include "removal/disk/HomeTrash.h"
#include "removal/disk/PutBack.h"
#include "removal/runs/EmptyTrashRun.h"
#include "removal/runs/LiveRemovalDisk.h"

#include <QEventLoop>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zolva::ctl {

namespace {

/// All that lies in the Trash, with its size where somebody will see it.
Plan trashPlan(const Request& request)
{
    const std::vector<std::string> names = listTrash().value_or(std::vector<std::string>());
    std::vector<std::string> paths;
    paths.reserve(names.size());
    for (const std::string& name : names) {
        paths.push_back(joinedPath(trashFolder(), name));
    }
    const std::vector<std::int64_t> sizes = sizesToShow(request, paths);
    Plan plan;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        plan.push_back({std::move(paths[i]), sizes[i], std::nullopt});
    }
    return plan;
}

/// The run tells the log how much it begins with.
void measure(TrashMeter& meter)
{
    meter.refreshTrashMeter();
    QEventLoop loop;
    while (meter.isMeasuring()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
}

Json emptiedJson(const EmptyReport& report, const Json& toasts)
{
    return {{"emptied", report.emptied}, {"failed", report.failures.size()}, {"toasts", toasts}};
}

} // namespace

TrashReading readTrash()
{
    LiveRemovalDisk disk;
    const std::optional<std::int64_t> count = disk.trashCount();
    const std::atomic<bool> never = false;
    return {.bytes = count ? disk.measureTrash(never) : 0,
            .count = count.value_or(0),
            .isUnreadable = !count};
}

Answer putBack(const Request& request)
{
    std::vector<std::string> restored;
    std::vector<std::string> problems;
    std::string text;
    for (const std::string& name : request.operands) {
        const auto done = putBackByName(name);
        if (done) {
            restored.push_back(*done);
            text += "Put back " + displayLine(*done) + "\n";
        } else {
            problems.push_back(done.error());
            text += "Couldn't put back " + displayLine(done.error()) + "\n";
        }
    }
    Answer answer{std::move(text), {}, {}};
    if (request.json) {
        Json json = {{"restored", textsJson(restored)}, {"problems", textsJson(problems)}};
        putRaw(json, restored);
        answer = document(json);
    }
    answer.code = problems.empty() ? Exit::Done : Exit::Failed;
    return answer;
}

Answer trashMeter(const Request& request)
{
    const TrashReading trash = readTrash();
    if (request.json) {
        return document(
            {{"bytes", trash.bytes}, {"count", trash.count}, {"unreadable", trash.isUnreadable}});
    }
    if (trash.isUnreadable) {
        return {"The Trash cannot be read.\n", {}, {}};
    }
    return {painted(sizeText(trash.bytes), Ink::Strong, request.look) + " in " +
                counted(trash.count, "item") + "\n",
            {},
            {}};
}

Answer emptyTrash(const Request& request)
{
    if (const auto refusal = nobodyToAsk(request)) {
        return *refusal;
    }
    const Plan plan = trashPlan(request);
    if (request.dryRun) {
        return wouldAnswer(request, plan);
    }
    RemovalSession session(request);
    const std::string question = "Delete " + amountText(plan) + " in the Trash for good?";
    if (!confirmed(request, plan, question, session.stop())) {
        return declined(emptiedJson({}, Json::array()), request);
    }
    measure(session.model().removal().trash());
    const EmptyReport report = session.finish(zolva::emptyTrash(session.tools()));
    Answer answer = request.json ? document(emptiedJson(report, session.toastsJson()))
                                 : Answer{session.toastsText(), {}, {}};
    if (report.start == RunStart::OtherProcess) {
        return otherProcess(answer.output, request);
    }
    answer.code = report.unreadable || !report.failures.empty() ? Exit::Failed : Exit::Done;
    return answer;
}

} // namespace zolva::ctl
