#include "removal/runs/UninstallRun.h"

#include "diagnostics/RunJournal.h"
#include "removal/RunBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace zolva {
namespace {

using namespace std::chrono_literals;
using test::RunBench;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

UninstallApp app(const std::string& name)
{
    UninstallApp made;
    made.name = name;
    made.bundleID = "org." + name;
    made.path = "/Applications/" + name + ".app";
    return made;
}

ResidueRow row(std::string path, bool shared = false)
{
    ResidueRow made;
    made.p = std::move(path);
    made.shared = shared;
    return made;
}

class ListInMemory final : public AppList
{
public:
    std::optional<std::vector<UninstallApp>> apps;
    std::set<std::string> checked;
    std::optional<std::string> focus_;
    std::vector<std::string> scanned;

    const std::vector<UninstallApp>* loaded() const override { return apps ? &*apps : nullptr; }
    std::set<std::string> checkedApps() const override { return checked; }
    std::optional<std::string> focused() const override { return focus_; }
    void store(std::vector<UninstallApp> list) override { apps = std::move(list); }
    void clearChecked() override { checked.clear(); }
    void clearFocus() override { focus_.reset(); }
    void focus(UninstallApp shown) override
    {
        focus_ = shown.id();
        scanned.push_back(shown.name);
    }

    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (const UninstallApp& held : *apps) {
            all.push_back(held.name);
        }
        return all;
    }
};

class ScriptedProcesses final : public AppProcesses
{
public:
    std::map<std::string, std::vector<RunningApp>> apps;
    bool stubborn = false; ///< nobody ends when asked
    std::vector<int> asked;
    std::function<void()> onTerminate;

    std::vector<RunningApp> running(const std::string& bundleID) override
    {
        std::vector<RunningApp> all;
        for (const RunningApp& instance : apps[bundleID]) {
            if (!isTerminated(instance)) {
                all.push_back(instance);
            }
        }
        return all;
    }
    void terminate(const RunningApp& instance) override
    {
        asked.push_back(instance.pid);
        if (onTerminate) {
            onTerminate();
        }
        if (!stubborn) {
            ended.insert(instance.pid);
        }
    }
    bool isTerminated(const RunningApp& instance) override { return ended.contains(instance.pid); }

    std::set<int> ended;
};

struct UninstallBench
{
    RunBench bench;
    ListInMemory list;
    ScriptedProcesses processes;
    std::map<std::string, std::vector<ResidueRow>> residue; ///< by name
    std::shared_ptr<std::vector<std::string>> scans = std::make_shared<std::vector<std::string>>();

    explicit UninstallBench(const std::vector<std::string>& names = {"One", "Two", "Three"})
    {
        list.apps.emplace();
        for (const std::string& name : names) {
            list.apps->push_back(app(name));
            bench.disk->put(app(name).path, 1000);
            residue[name] = {row("~/Caches/" + name), row(app(name).path)};
            bench.disk->put("~/Caches/" + name, 5000);
        }
    }

    UninstallTools tools()
    {
        return {bench.tools(), list, processes,
                [rows = residue, notes = scans](const UninstallApp& of,
                                                const std::vector<UninstallApp>& apps) {
                    std::string note = of.name + ":";
                    for (const UninstallApp& other : apps) {
                        note += " " + other.name;
                    }
                    notes->push_back(note);
                    const auto found = rows.find(of.name);
                    return found == rows.end() ? std::vector<ResidueRow>() : found->second;
                }};
    }

    void check(const std::vector<std::string>& names)
    {
        for (const std::string& name : names) {
            list.checked.insert(app(name).id());
        }
    }

    /// Runs to the end, with time going on whenever somebody waits for it.
    UninstallReport finish(QCoro::Task<UninstallReport> task)
    {
        test::pumpUntil([&] {
            // Short steps: toasts go by themselves in time.
            if (!task.isReady() && bench.clock.sleepers() > 0 && processes.stubborn) {
                bench.clock.advance(quitRound);
            }
            return task.isReady();
        });
        return test::settled(std::move(task));
    }
    UninstallReport uninstall() { return finish(uninstallChecked(tools())); }
};

TEST(Uninstall, RemovesWhatIsTheApplicationsOwnForGood)
{
    UninstallBench b;
    b.check({"Two"});
    const UninstallReport report = b.uninstall();
    EXPECT_EQ(report.uninstalled, 1);
    EXPECT_THAT(b.bench.disk->changes(),
                ElementsAre("trash ~/Caches/Two", "trash /Applications/Two.app", "purge /trash/Two",
                            "purge /trash/Two.app"));
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three"));
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
    EXPECT_TRUE(b.bench.disk->exists("/Applications/One.app"));
}

TEST(Uninstall, DeletesForGoodAlsoWhereTheSettingKeepsThingsInTheTrash)
{
    UninstallBench b;
    b.bench.keepInTrash = true;
    b.check({"Two"});
    b.uninstall();
    EXPECT_FALSE(b.bench.disk->exists("/trash/Two.app"));
}

TEST(Uninstall, TheRowsLeaveTheListBeforeAnythingIsDone)
{
    UninstallBench b;
    b.list.focus_ = app("One").id();
    b.check({"One", "Three"});
    auto task = uninstallChecked(b.tools());
    EXPECT_THAT(b.list.names(), ElementsAre("Two"));
    EXPECT_THAT(b.list.checked, IsEmpty());
    EXPECT_EQ(b.list.focus_, app("Two").id());
    EXPECT_THAT(b.list.scanned, ElementsAre("Two"));
    EXPECT_FALSE(b.bench.state.bulk());
    EXPECT_FALSE(journalRead(b.bench.journalFolder()));
    b.finish(std::move(task));
}

TEST(Uninstall, AFocusThatStaysIsLeftAlone)
{
    UninstallBench b;
    b.list.focus_ = app("Two").id();
    b.check({"One"});
    b.uninstall();
    EXPECT_EQ(b.list.focus_, app("Two").id());
    EXPECT_THAT(b.list.scanned, IsEmpty());
}

TEST(Uninstall, OfTheLastApplicationLeavesNoFocus)
{
    UninstallBench b({"One"});
    b.list.focus_ = app("One").id();
    b.check({"One"});
    b.uninstall();
    EXPECT_FALSE(b.list.focus_);
    EXPECT_THAT(b.list.names(), IsEmpty());
}

TEST(Uninstall, WithoutALoadedListNothingHappens)
{
    UninstallBench b;
    b.check({"One"});
    b.list.apps.reset();
    EXPECT_EQ(b.uninstall().start, RunStart::NothingToDo);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
}

TEST(Uninstall, SharedLeftoversStay)
{
    UninstallBench b;
    b.residue["Two"] = {row("~/Caches/Two", true), row("/Applications/Two.app")};
    b.check({"Two"});
    b.uninstall();
    EXPECT_TRUE(b.bench.disk->exists("~/Caches/Two"));
    EXPECT_FALSE(b.bench.disk->exists("/Applications/Two.app"));
}

TEST(Uninstall, WhereOnlySharedRowsAreFoundTheBundleAloneGoes)
{
    UninstallBench b;
    b.residue["Two"] = {row("~/Caches/Two", true)};
    b.check({"Two"});
    b.uninstall();
    EXPECT_THAT(b.bench.disk->changes(),
                ElementsAre("trash /Applications/Two.app", "purge /trash/Two.app"));
}

TEST(Uninstall, ExcludedPathsAreLeftOutAndLogged)
{
    UninstallBench b;
    b.bench.whitelist = {"~/Caches"};
    b.check({"Two"});
    b.uninstall();
    EXPECT_TRUE(b.bench.disk->exists("~/Caches/Two"));
    EXPECT_EQ(b.bench.log.messages().front(), "refused ~/Caches/Two: excluded in Settings");
}

TEST(Uninstall, AnExcludedBundleIsNotTouchedAndComesBackIntoTheList)
{
    UninstallBench b;
    b.bench.whitelist = {"/Applications", "~/Caches"};
    b.check({"Two"});
    const UninstallReport report = b.uninstall();
    EXPECT_EQ(report.uninstalled, 0);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three", "Two"));
}

TEST(Uninstall, TwoChosenTogetherDoNotProtectEachOthersLeftovers)
{
    UninstallBench b;
    b.check({"One", "Two"});
    b.uninstall();
    EXPECT_THAT(*b.scans, ElementsAre("One: Three", "Two: Three"));
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 2 apps"));
}

TEST(Uninstall, TheLeftoversAreScannedAfterTheApplicationQuit)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    std::size_t scansThen = 9;
    b.processes.onTerminate = [&] { scansThen = b.scans->size(); };
    b.check({"Two"});
    b.uninstall();
    EXPECT_EQ(scansThen, 0u);
    EXPECT_EQ(b.scans->size(), 1u);
}

TEST(Uninstall, AnApplicationThatQuitsInTimeIsRemovedWithoutAWarning)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}, {8, 1}};
    b.processes.stubborn = true;
    b.check({"Two"});
    auto task = uninstallChecked(b.tools());
    EXPECT_THAT(b.processes.asked, ElementsAre(7, 8));
    b.bench.clock.advance(2900ms);
    EXPECT_THAT(*b.scans, IsEmpty());
    b.processes.ended = {7, 8};
    b.bench.clock.advance(150ms);
    b.processes.stubborn = false;
    b.finish(std::move(task));
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
}

TEST(Uninstall, OneThatIgnoresTheRequestAndCannotBeMovedIsToBeQuitByHand)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.processes.stubborn = true;
    b.bench.disk->fail("/Applications/Two.app", "Busy");
    b.check({"Two"});
    const UninstallReport report = b.uninstall();
    EXPECT_EQ(report.stillRunning.size(), 1u);
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't quit 1 app to uninstall it. Quit it manually and "
                            "try again."));
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three", "Two"));
}

TEST(Uninstall, OneThatQuitButCannotBeMovedMayNeedAPassword)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.bench.disk->fail("/Applications/Two.app", "Permission denied");
    b.check({"Two"});
    EXPECT_THAT(b.uninstall().stillRunning, IsEmpty());
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't uninstall 1 app. It may need an administrator "
                            "password. [Authenticate…]"));
}

TEST(Uninstall, OneThatIgnoresTheRequestButWasMovedAnywayCountsAsUninstalled)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.processes.stubborn = true;
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
}

TEST(Uninstall, WaitsAtMostTwentyRoundsForAnApplication)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.processes.stubborn = true;
    auto task = quitRunningApp(b.tools(), "org.Two");
    b.bench.clock.advance(2999ms);
    EXPECT_FALSE(task.isReady());
    b.bench.clock.advance(1ms);
    ASSERT_TRUE(task.isReady());
    EXPECT_TRUE(test::settled(std::move(task)));
    EXPECT_TRUE(isStillRunning(b.processes, "org.Two"));
}

TEST(Uninstall, QuittingWhatDoesNotRunWaitsForNothing)
{
    UninstallBench b;
    auto task = quitRunningApp(b.tools(), "org.Two");
    ASSERT_TRUE(task.isReady());
    EXPECT_FALSE(test::settled(std::move(task)));
    EXPECT_FALSE(isStillRunning(b.processes, "org.Two"));
}

TEST(Uninstall, ABundleThatIsGoneCountsAlsoWhereALeftoverFailed)
{
    UninstallBench b;
    b.bench.disk->fail("~/Caches/Two", "Busy");
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
}

TEST(Uninstall, ProblemsOfThePurgeAreDroppedWithoutAWord)
{
    UninstallBench b;
    b.bench.disk->failPurge("Two.app", "Busy");
    b.check({"Two"});
    b.uninstall();
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
    EXPECT_TRUE(b.bench.disk->exists("/trash/Two.app"));
}

TEST(Uninstall, MixedResultsAreToldInOrder)
{
    UninstallBench b;
    b.processes.apps["org.One"] = {{7, 1}};
    b.processes.stubborn = true;
    b.bench.disk->fail("/Applications/One.app", "Busy");
    b.bench.disk->fail("/Applications/Two.app", "Permission denied");
    b.check({"One", "Two", "Three"});
    b.uninstall();
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't quit 1 app to uninstall it. Quit it manually and "
                            "try again.",
                            "warning: Couldn't uninstall 1 app. It may need an administrator "
                            "password. [Authenticate…]",
                            "success: Uninstalled 1 app"));
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Two"));
}

TEST(Uninstall, ItMayOverlapABulkRunOfThisProcess)
{
    UninstallBench b;
    b.bench.state.setBulk(BulkProgress{"Removing caches", 1, 0, ""});
    HeldRunLock held = b.bench.state.lockRuns(b.bench.journalFolder());
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_TRUE(b.bench.state.bulk());
}

TEST(Uninstall, WhileAnotherProcessRemovesTheRowsStayAndNothingIsTouched)
{
    UninstallBench b;
    const RunLock another(b.bench.journalFolder());
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().start, RunStart::OtherProcess);
    EXPECT_EQ(b.list.names().size(), 3u);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
}

TEST(Uninstall, ItsOwnItemsInTheTrashRaiseNoToastOfNewItems)
{
    UninstallBench b;
    b.check({"Two"});
    b.uninstall();
    EXPECT_TRUE(b.bench.trash.didJustTrash());
    b.bench.clock.advance(12s);
    EXPECT_FALSE(b.bench.trash.didJustTrash());
}

/// An application that needs a password, after the first pass.
struct StuckBench : UninstallBench
{
    StuckBench()
    {
        bench.disk->fail("/Applications/Two.app", "Permission denied");
        check({"Two"});
        uninstall();
    }
    void authenticate()
    {
        const std::size_t toasts = bench.toastTexts().size();
        bench.toasts.runAction(bench.toasts.toasts().front().id);
        test::pumpUntil([&] { return bench.toastTexts().size() > toasts; });
    }
};

TEST(Authenticate, MovesABundleThatNeedsAPasswordAndLeavesItInTheTrash)
{
    StuckBench b;
    ASSERT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't uninstall 1 app. It may need an administrator "
                            "password. [Authenticate…]"));
    b.bench.disk->allowAdmin("/Applications/Two.app");
    const std::size_t before = b.bench.disk->changes().size();
    b.authenticate();
    EXPECT_EQ(b.bench.toastTexts().back(), "success: Uninstalled 1 app");
    const auto changes = b.bench.disk->changes();
    EXPECT_THAT(std::vector<std::string>(changes.begin() + static_cast<std::ptrdiff_t>(before),
                                         changes.end()),
                ElementsAre("admin /Applications/Two.app"))
        << "only what still exists, and nothing is purged";
    EXPECT_EQ(b.scans->back(), "Two: One Three Two");
}

TEST(Authenticate, ACancelledPromptIsTold)
{
    StuckBench b;
    b.authenticate();
    EXPECT_EQ(b.bench.toastTexts().back(),
              "warning: Still couldn't uninstall 1 app. The authentication may have been "
              "canceled.");
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three", "Two")) << "once, not twice";
    EXPECT_TRUE(b.bench.disk->exists("/Applications/Two.app"));
}

TEST(Authenticate, AsksNoExclusionList)
{
    StuckBench b;
    b.bench.whitelist = {"/Applications"};
    b.bench.disk->allowAdmin("/Applications/Two.app");
    b.authenticate();
    EXPECT_FALSE(b.bench.disk->exists("/Applications/Two.app"));
}

TEST(Authenticate, BeginsNoQuietPeriod)
{
    StuckBench b;
    b.bench.clock.advance(9s); // the toast still stands
    UninstallTools tools = b.tools();
    b.bench.disk->allowAdmin("/Applications/Two.app");
    // The leftovers of the first pass began one.
    b.bench.clock.advance(3s);
    ASSERT_FALSE(b.bench.trash.didJustTrash());
    const UninstallReport report = b.finish(retryWithAdmin(tools, {app("Two")}));
    EXPECT_EQ(report.uninstalled, 1);
    EXPECT_FALSE(b.bench.trash.didJustTrash());
}

TEST(Authenticate, TheOfferIsGoneWithItsToast)
{
    StuckBench b;
    b.bench.clock.advance(10s);
    EXPECT_THAT(b.bench.toastTexts(), IsEmpty());
}

} // namespace
} // namespace zolva
