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
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zolva::ctl {

namespace {

using TrashItems = std::vector<KnownItem>;

/// The Trash as it was when the user was asked: what comes into it later was not shown, and stays.
class ListedTrash final : public LiveRemovalDisk
{
public:
    explicit ListedTrash(std::optional<TrashItems> items) : m_items(std::move(items)) {}
    [[nodiscard]] std::optional<TrashItems> listTrash() override { return m_items; }

private:
    std::optional<TrashItems> m_items;
};

/// What lies in the Trash, with its size where somebody will see it.
Plan trashPlan(const Request& request, const TrashItems& items)
{
    std::vector<std::string> paths;
    paths.reserve(items.size());
    for (const KnownItem& item : items) {
        paths.push_back(joinedPath(trashFolder(), item.at));
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
    const auto listing = listTrashItems();
    std::optional<TrashItems> items = listing ? std::optional(*listing) : std::nullopt;
    if (request.dryRun && !items) {
        return {{}, "the Trash cannot be read: " + displayLine(listing.error()), Exit::Failed};
    }
    const Plan plan = trashPlan(request, items.value_or(TrashItems()));
    if (request.dryRun) {
        return wouldAnswer(request, plan);
    }
    RemovalSession session(request);
    const std::string question = "Delete " + amountText(plan) + " in the Trash for good?";
    const bool wanted = nothingGoes(plan) || confirmed(request, plan, question, session.stop());
    if (wanted) {
        measure(session.model().removal().trash());
    }
    // That may have taken its time, and nothing stops the run.
    if (!wanted || !session.begin()) {
        return declined(emptiedJson({}, Json::array()), request);
    }
    RunTools tools = session.tools();
    tools.disk = std::make_shared<ListedTrash>(std::move(items));
    const EmptyReport report = session.finish(zolva::emptyTrash(std::move(tools)));
    Answer answer = request.json ? document(emptiedJson(report, session.toastsJson()))
                                 : Answer{session.toastsText(), {}, {}};
    if (report.start == RunStart::OtherProcess) {
        return otherProcess(answer.output, request);
    }
    answer.code = report.unreadable || !report.failures.empty() ? Exit::Failed : Exit::Done;
    return answer;
}

} // namespace zolva::ctl
