#include "removal/runs/EmptyTrashRun.h"

#include "async/Background.h"
#include "diagnostics/Log.h"
#include "files/DisplayPath.h"
#include "removal/TrashMessages.h"
#include "removal/runs/RunMarks.h"
#include "removal/runs/RunMessages.h"

#include <utility>

namespace zolva {

namespace {

std::optional<std::string> deleteOn(const std::shared_ptr<RemovalDisk>& disk,
                                    const std::string& name)
{
    return disk->deleteFromTrash(name);
}

QCoro::Task<EmptyReport> deleteInTurn(RunTools tools, std::vector<std::string> names)
{
    EmptyReport report;
    std::int64_t done = 0;
    for (const std::string& name : names) {
        if (!tools.state) {
            break;
        }
        tools.state->setCurrent(QString::fromStdString(displayText(name)));
        std::optional<std::string> failure = co_await background(&deleteOn, tools.disk, name);
        if (failure) {
            report.failures.push_back(std::move(*failure));
        } else {
            ++report.emptied;
        }
        if (tools.state) {
            tools.state->setDone(++done);
        }
    }
    co_return report;
}

/// The names to delete; none where the user was told why there is nothing to do.
std::vector<std::string> namesToDelete(const RunTools& tools, EmptyReport& report)
{
    std::optional<std::vector<std::string>> names = tools.disk->listTrash();
    if (!names) {
        report.unreadable = true;
        log::blockedByPrivacy({"Trash"});
        tools.toasts.addToast(BannerKind::Warning, trashUnreadableText());
        return {};
    }
    if (names->empty()) {
        tools.toasts.addToast(BannerKind::Info, trashAlreadyEmptyText());
    }
    return std::move(*names);
}

} // namespace

QCoro::Task<EmptyReport> emptyTrash(RunTools tools)
{
    constexpr RunName name = runname::emptyTrash;
    EmptyReport report;
    HeldRunLock lock;
    const RunStart start = enterRun(tools, lock);
    if (start != RunStart::Started) {
        report.start = start;
        co_return report;
    }
    std::vector<std::string> names = namesToDelete(tools, report);
    if (names.empty()) {
        co_return report;
    }
    BulkMark bulk(tools.state, name.title, names.size());
    log::runStarting(name.label, static_cast<std::int64_t>(names.size()), tools.trash.trashBytes());
    JournalMark journal(tools, name.label, names.size());

    report = co_await deleteInTurn(tools, std::move(names));
    report.start = RunStart::Started;
    if (!tools.state) {
        co_return report;
    }
    const auto failed = static_cast<std::int64_t>(report.failures.size());
    bulk.end();
    log::runFinished(name.label, report.emptied, report.emptied, failed);
    journal.end();
    lock.reset();
    tools.toasts.addToast(failed == 0 ? BannerKind::Success : BannerKind::Warning,
                          trashEmptiedText(report.emptied, failed));
    tools.trash.refreshTrashMeter();
    tools.space.refreshFreeSpace();
    co_return report;
}

} // namespace zolva
