#include "removal/runs/UninstallRun.h"

#include "async/Background.h"
#include "async/Unawaited.h"
#include "removal/runs/BulkRun.h"
#include "removal/runs/UninstallMessages.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zolva {

namespace {

using Apps = std::vector<UninstallApp>;

/// Everything of the application that no other one may own, or its bundle alone. In the order of
/// the scan, so the bundle is not always first.
std::vector<std::string> ownPaths(const ResidueScan& scan, const UninstallApp& app,
                                  const Apps& apps)
{
    std::vector<std::string> paths;
    for (ResidueRow& row : scan(app, apps)) {
        if (!row.shared) {
            paths.push_back(std::move(row.p));
        }
    }
    if (paths.empty()) {
        paths.push_back(app.path);
    }
    return paths;
}

/// Moves each path and deletes what landed. Whether anything was moved; what could not be deleted
/// stays in the Trash without a word.
bool removeForGood(const std::shared_ptr<RemovalDisk>& disk, const std::vector<std::string>& paths)
{
    bool moved = false;
    std::vector<KnownItem> landed;
    for (const std::string& path : paths) {
        const TrashAttempt attempt = disk->trashOnePath(path);
        moved = moved || std::holds_alternative<TrashMoved>(attempt.outcome);
        if (attempt.landed) {
            landed.emplace_back(*attempt.landed, attempt.identity);
        }
    }
    static_cast<void>(disk->purgeFromTrash(landed));
    return moved;
}

bool adminMoveOn(const std::shared_ptr<RemovalDisk>& disk, const std::string& path)
{
    return disk->adminMoveToTrash(path);
}

/// Whether the application was running when it was asked to quit.
QCoro::Task<bool> firstPass(UninstallTools tools, UninstallApp app, Apps apps)
{
    const RunTools& run = tools.run;
    const bool wasRunning = co_await quitRunningApp(tools, app.bundleID);
    if (!run.state) {
        co_return wasRunning;
    }
    // Only now: an application that quits may write.
    std::vector<std::string> paths =
        co_await backgroundStep(&ownPaths, tools.scanResidue, app, std::move(apps));
    if (!run.state) {
        co_return wasRunning;
    }
    paths = withoutExcluded(paths, run.settings.whitelist());
    const OwnMoves own(run.trash);
    const bool moved = co_await backgroundStep(&removeForGood, run.disk, std::move(paths));
    if (run.state && moved) {
        run.trash.noteJustTrashed();
    }
    co_return wasRunning;
}

/// What stayed on the disk goes back into the list, behind the others.
void putBackIntoList(ListedApps& list, const Apps& apps)
{
    // A list that is being read anew finds them by itself.
    if (apps.empty() || !list.loaded()) {
        return;
    }
    Apps held = *list.loaded();
    for (const UninstallApp& app : apps) {
        const bool known = std::any_of(held.begin(), held.end(), [&app](const UninstallApp& other) {
            return other.id() == app.id();
        });
        if (!known) {
            held.push_back(app);
        }
    }
    list.store(std::move(held));
}

Apps without(const Apps& apps, const Apps& others)
{
    Apps rest;
    std::copy_if(apps.begin(), apps.end(), std::back_inserter(rest), [&](const UninstallApp& app) {
        return std::none_of(others.begin(), others.end(),
                            [&app](const UninstallApp& other) { return other.id() == app.id(); });
    });
    return rest;
}

std::int64_t countOf(const Apps& apps)
{
    return static_cast<std::int64_t>(apps.size());
}

/// What stands behind "Authenticate…".
struct AdminOffer
{
    Apps apps;  ///< nothing while a pass over them is going
    Apps known; ///< all that were installed
};

/// Pressed again while its pass is going, it begins no second one beside it. What still stays may
/// be tried again, as long as the toast stands.
QCoro::Task<> takeUp(UninstallTools tools, std::shared_ptr<AdminOffer> offer)
{
    const Apps apps = std::exchange(offer->apps, {});
    if (apps.empty()) {
        co_return;
    }
    const UninstallReport report = co_await retryWithAdmin(tools, apps, offer->known);
    offer->apps = report.start == RunStart::Started ? report.stuck : apps;
}

void tellFirstPass(const UninstallTools& tools, const UninstallReport& report, Apps known)
{
    ToastList& toasts = tools.run.toasts;
    if (!report.stillRunning.empty()) {
        toasts.addToast(BannerKind::Warning, stillRunningText(countOf(report.stillRunning)));
    }
    Apps toAuthenticate = without(report.stuck, report.stillRunning);
    if (!toAuthenticate.empty()) {
        const QString text = needsPasswordText(countOf(toAuthenticate));
        const auto offer =
            std::make_shared<AdminOffer>(AdminOffer{std::move(toAuthenticate), std::move(known)});
        toasts.addToast(BannerKind::Warning, text, QString::fromUtf8(authenticateAction),
                        [tools, offer] {
                            if (tools.run.state) {
                                unawaited(takeUp(tools, offer));
                            }
                        });
    }
    if (report.uninstalled > 0) {
        toasts.addToast(BannerKind::Success, uninstalledText(report.uninstalled));
    }
}

struct Split
{
    Apps chosen;
    Apps remaining;
};

/// Takes the ticked applications out of the list, before anything is done on the disk. Who hears of
/// it may begin to read the list anew.
Split takeChosen(ListedApps& list)
{
    const std::set<std::string> checked = list.checkedApps();
    Split split;
    auto& [chosen, remaining] = split;
    for (const UninstallApp& app : *list.loaded()) {
        (checked.contains(app.id()) ? chosen : remaining).push_back(app);
    }
    const std::optional<std::string> focused = list.focused();
    const bool focusLeaves =
        focused && std::any_of(split.chosen.begin(), split.chosen.end(),
                               [&](const UninstallApp& app) { return app.id() == *focused; });
    list.store(remaining);
    list.clearChecked();
    if (focusLeaves) {
        list.clearFocus();
    }
    if (!remaining.empty() && !list.focused()) {
        list.focus(remaining.front());
    }
    return split;
}

/// One application with administrator rights; whether its bundle is gone.
QCoro::Task<bool> adminPass(UninstallTools tools, UninstallApp app, Apps apps)
{
    const RunTools& run = tools.run;
    const std::vector<std::string> paths =
        co_await backgroundStep(&ownPaths, tools.scanResidue, app, std::move(apps));
    for (const std::string& path : paths) {
        if (!run.state) {
            break;
        }
        if (run.disk->exists(path)) {
            // Only what is on the disk afterwards counts.
            static_cast<void>(co_await backgroundStep(&adminMoveOn, run.disk, path));
        }
    }
    co_return !run.disk->exists(app.path);
}

} // namespace

QCoro::Task<bool> quitRunningApp(UninstallTools tools, std::string bundleID)
{
    AppProcesses& processes = tools.processes;
    const std::vector<RunningApp> running = processes.running(bundleID);
    for (const RunningApp& app : running) {
        processes.terminate(app);
    }
    const auto allEnded = [&processes, &running] {
        return std::all_of(running.begin(), running.end(), [&processes](const RunningApp& app) {
            return processes.isTerminated(app);
        });
    };
    for (int round = 0; round < quitRounds && tools.run.state && !allEnded(); ++round) {
        co_await tools.run.clock.sleep(quitRound);
    }
    co_return !running.empty();
}

bool isStillRunning(AppProcesses& processes, const std::string& bundleID)
{
    return !processes.running(bundleID).empty();
}

QCoro::Task<UninstallReport> uninstallChecked(UninstallTools tools)
{
    UninstallReport report;
    if (!tools.list.loaded()) {
        co_return report;
    }
    HeldRunLock lock;
    report.start = lockOutOthers(tools.run, lock);
    if (report.start != RunStart::Started) {
        co_return report;
    }
    const Split split = takeChosen(tools.list);
    for (const UninstallApp& app : split.chosen) {
        // Without the chosen ones: two that go together do not protect each other's leftovers.
        const bool wasRunning = co_await firstPass(tools, app, split.remaining);
        if (!tools.run.state) {
            co_return report;
        }
        if (tools.run.disk->exists(app.path)) {
            report.stuck.push_back(app);
            if (wasRunning && isStillRunning(tools.processes, app.bundleID)) {
                report.stillRunning.push_back(app);
            }
        }
    }
    lock.reset();
    report.uninstalled = countOf(split.chosen) - countOf(report.stuck);
    putBackIntoList(tools.list, report.stuck);
    Apps known = split.remaining;
    known.insert(known.end(), report.stuck.begin(), report.stuck.end());
    tellFirstPass(tools, report, std::move(known));
    co_return report;
}

QCoro::Task<UninstallReport> retryWithAdmin(UninstallTools tools, std::vector<UninstallApp> apps,
                                            std::vector<UninstallApp> known)
{
    UninstallReport report;
    HeldRunLock lock;
    report.start = lockOutOthers(tools.run, lock);
    if (report.start != RunStart::Started) {
        co_return report;
    }
    // Without any, as while the list is read anew, no leftover would seem to be another's.
    if (const Apps* const held = tools.list.loaded()) {
        known = *held;
    }
    for (const UninstallApp& app : apps) {
        const bool gone = co_await adminPass(tools, app, known);
        if (!tools.run.state) {
            co_return report;
        }
        if (!gone) {
            report.stuck.push_back(app);
        }
    }
    lock.reset();
    report.uninstalled = countOf(apps) - countOf(report.stuck);
    putBackIntoList(tools.list, report.stuck);
    ToastList& toasts = tools.run.toasts;
    if (report.uninstalled > 0) {
        toasts.addToast(BannerKind::Success, uninstalledText(report.uninstalled));
    }
    if (!report.stuck.empty()) {
        toasts.addToast(BannerKind::Warning, stillStuckText(countOf(report.stuck)));
    }
    co_return report;
}

} // namespace zolva
