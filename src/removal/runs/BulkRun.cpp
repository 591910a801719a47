#include "removal/runs/BulkRun.h"

#include "async/Background.h"
#include "diagnostics/Log.h"
#include "files/ExclusionRules.h"
#include "removal/runs/RunMarks.h"

#include <algorithm>
#include <utility>

namespace zolva {

namespace {

TrashAttempt trashOn(const std::shared_ptr<RemovalDisk>& disk, const std::string& path)
{
    return disk->trashOnePath(path);
}

Purge purgeOn(const std::shared_ptr<RemovalDisk>& disk, const std::vector<KnownItem>& landed)
{
    return disk->purgeFromTrash(landed);
}

/// The text of an outcome that was refused or failed; null for the others.
const std::string* failureText(const TrashOutcome& outcome)
{
    if (const auto* refused = std::get_if<TrashRefused>(&outcome)) {
        return &refused->text;
    }
    const auto* failed = std::get_if<TrashFailed>(&outcome);
    return failed ? &failed->text : nullptr;
}

/// Each path in its turn, until the end or the wish to stop.
QCoro::Task<std::vector<RunItem>> moveInTurn(RunTools tools, std::vector<std::string> paths)
{
    std::vector<RunItem> items;
    const OwnMoves own(tools.trash);
    for (std::string& path : paths) {
        if (!tools.state || tools.state->cancelRequested()) {
            break;
        }
        tools.state->setCurrent(shortenedPath(path));
        TrashAttempt attempt = co_await backgroundStep(&trashOn, tools.disk, path);
        items.push_back({std::move(path), std::move(attempt)});
        if (tools.state) {
            tools.state->setDone(static_cast<std::int64_t>(items.size()));
        }
    }
    const bool moved = std::any_of(items.begin(), items.end(), [](const RunItem& item) {
        return std::holds_alternative<TrashMoved>(item.attempt.outcome);
    });
    if (tools.state && moved) {
        tools.trash.noteJustTrashed();
    }
    co_return items;
}

/// Nothing can stop it: also what a stopped run has moved is deleted.
QCoro::Task<Purge> purgeLanded(RunTools tools, std::vector<KnownItem> landed)
{
    const auto count = static_cast<std::int64_t>(landed.size());
    const OwnMoves own(tools.trash);
    Purge purge = co_await backgroundStep(&purgeOn, tools.disk, std::move(landed));
    if (tools.state) {
        tools.state->setDone(count);
        if (!purge.problems.empty()) {
            // What could not be deleted was out of the Trash for a while; that it is back is no
            // news, also if nobody told the meter yet.
            tools.trash.refreshTrashMeter();
        }
    }
    co_return purge;
}

std::vector<KnownItem> landedOf(const std::vector<RunItem>& items)
{
    std::vector<KnownItem> landed;
    for (const RunItem& item : items) {
        if (item.attempt.landed) {
            landed.emplace_back(*item.attempt.landed, item.attempt.identity);
        }
    }
    return landed;
}

std::int64_t bytesMoved(const std::vector<RunItem>& items)
{
    std::int64_t bytes = 0;
    for (const RunItem& item : items) {
        if (const auto* moved = std::get_if<TrashMoved>(&item.attempt.outcome)) {
            bytes += moved->bytes;
        }
    }
    return bytes;
}

/// The log's last lines and the toast of a stopped run.
void report(const RunTools& tools, const RunName& name, const RunResult& result,
            JournalMark& journal)
{
    const RunFigures figures = figuresOf(result);
    log::runFinished(name.label, figures.moved, figures.purged,
                     static_cast<std::int64_t>(figures.failures.size() + figures.problems.size()));
    journal.end();
    if (result.stopped) {
        log::runStopped(name.label, figures.moved, result.left);
        tools.toasts.addToast(BannerKind::Info, stoppedText(figures.moved, result.left));
    }
}

} // namespace

QCoro::Task<RunResult> runBulk(RunTools tools, BulkOrder order, HeldRunLock lock)
{
    std::vector<std::string> kept = withoutExcluded(order.paths, tools.settings.whitelist());
    const std::size_t total = kept.size();
    BulkMark bulk(tools.state, order.name.title, total);
    log::runStarting(order.name.label, static_cast<std::int64_t>(total), order.bytes);
    JournalMark journal(tools, order.name.label, total);

    RunResult result;
    result.items = co_await moveInTurn(tools, std::move(kept));
    if (!tools.state) {
        co_return result;
    }
    result.left = static_cast<std::int64_t>(total - result.items.size());
    // A wish to stop that came during the last path left nothing over.
    result.stopped = result.left > 0;
    result.freed = bytesMoved(result.items);

    if (!tools.settings.keepInTrash()) {
        std::vector<KnownItem> landed = landedOf(result.items);
        bulk.enterPhase(runname::emptyTrash.title, landed.size());
        Purge purge = co_await purgeLanded(tools, std::move(landed));
        result.purged = purge.purged;
        result.problems = std::move(purge.problems);
        if (!tools.state) {
            co_return result;
        }
    }
    bulk.end();
    report(tools, order.name, result, journal);
    tools.state->clearCancel();
    lock.reset();
    co_return result;
}

void showRunSummary(const RunTools& tools, const RunResult& result)
{
    for (const SummaryToast& toast : runSummary(figuresOf(result), tools.settings.keepInTrash())) {
        if (toast.action == SummaryAction::OpenTrash) {
            tools.toasts.addToast(toast.kind, toast.text, QString::fromUtf8(openTrashAction),
                                  tools.openTrash);
        } else {
            tools.toasts.addToast(toast.kind, toast.text);
        }
    }
}

RunFigures figuresOf(const RunResult& result)
{
    RunFigures figures;
    figures.attempts = static_cast<std::int64_t>(result.items.size());
    figures.freed = result.freed;
    figures.purged = result.purged;
    figures.problems = result.problems;
    for (const RunItem& item : result.items) {
        if (std::holds_alternative<TrashMoved>(item.attempt.outcome)) {
            ++figures.moved;
        } else if (const std::string* text = failureText(item.attempt.outcome)) {
            figures.failures.push_back(*text);
        }
    }
    return figures;
}

bool hasTrouble(const RunResult& result)
{
    return !result.problems.empty() || !figuresOf(result).failures.empty();
}

std::vector<std::string> withoutExcluded(const std::vector<std::string>& paths,
                                         const std::vector<std::string>& whitelist)
{
    std::vector<std::string> kept;
    for (const std::string& path : paths) {
        if (isExcluded(path, whitelist)) {
            log::refused(path, excludedReason);
        } else {
            kept.push_back(path);
        }
    }
    return kept;
}

} // namespace zolva
