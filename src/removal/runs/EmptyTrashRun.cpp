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

tl::expected<Deletion, std::string> deleteOn(const std::shared_ptr<RemovalDisk>& disk,
                                             const KnownItem& entry)
{
    return disk->deleteFromTrash(entry);
}

void sweepOn(const std::shared_ptr<RemovalDisk>& disk)
{
    disk->deleteLeftovers();
}

QCoro::Task<EmptyReport> deleteInTurn(RunTools tools, std::vector<KnownItem> entries)
{
    EmptyReport report;
    std::int64_t done = 0;
    // What cannot be deleted is out of the Trash for a while, and is no news when it is back.
    const OwnMoves own(tools.trash);
    for (const KnownItem& entry : entries) {
        if (!tools.state) {
            break;
        }
        tools.state->setCurrent(QString::fromStdString(displayLine(entry.at)));
        tl::expected<Deletion, std::string> deletion =
            co_await backgroundStep(&deleteOn, tools.disk, entry);
        if (!deletion) {
            report.failures.push_back(std::move(deletion.error()));
        } else if (*deletion == Deletion::Done) {
            ++report.emptied;
        }
        if (tools.state) {
            tools.state->setDone(++done);
        }
    }
    co_await backgroundStep(&sweepOn, tools.disk);
    co_return report;
}

/// Of an empty Trash, what nobody sees may still take room.
QCoro::Task<> sweepOnly(RunTools tools)
{
    co_await backgroundStep(&sweepOn, tools.disk);
    if (tools.state) {
        tools.space.refreshFreeSpace();
    }
}

/// What to delete; nothing where the user was told why there is nothing to do.
std::vector<KnownItem> itemsToDelete(const RunTools& tools, EmptyReport& report)
{
    std::optional<std::vector<KnownItem>> entries = tools.disk->listTrash();
    if (!entries) {
        report.unreadable = true;
        log::blockedByPrivacy({"Trash"});
        tools.toasts.addToast(BannerKind::Warning, trashUnreadableText());
        return {};
    }
    if (entries->empty()) {
        tools.toasts.addToast(BannerKind::Info, trashAlreadyEmptyText());
    }
    return std::move(*entries);
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
    std::vector<KnownItem> entries = itemsToDelete(tools, report);
    if (entries.empty()) {
        if (!report.unreadable) {
            co_await sweepOnly(tools);
        }
        co_return report;
    }
    BulkMark bulk(tools.state, name.title, entries.size());
    log::runStarting(name.label, static_cast<std::int64_t>(entries.size()),
                     tools.trash.trashBytes());
    JournalMark journal(tools, name.label, entries.size());

    report = co_await deleteInTurn(tools, std::move(entries));
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
