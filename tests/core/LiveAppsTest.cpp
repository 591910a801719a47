#include "core/LiveModel.h"

#include <string>
#include <vector>

namespace zolva::test {

namespace {

class LiveApps : public LiveModel
{
protected:
    using Apps = std::vector<UninstallApp>;

    /// Lists, enriches and stores these, in the calls with this number.
    void load(const Apps& apps, std::size_t call = 0)
    {
        unawaited(live->loadApps());
        script.lists.answer(call, apps);
        held.enrich.answer(call, apps);
    }

    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        if (live->apps().value()) {
            for (const UninstallApp& one : *live->apps().value()) {
                all.push_back(one.name);
            }
        }
        return all;
    }

    static AppList failure(const std::string& why)
    {
        return tl::unexpected<MoFailure>(MoError{MoError::NonZeroExit{1, why}});
    }

    static std::vector<ResidueRow> rows(const std::string& loc)
    {
        ResidueRow row;
        row.loc = loc;
        return {row};
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(LiveApps, TheListIsEnrichedBeforeItIsStored)
{
    EXPECT_TRUE(live->apps().isIdle());
    unawaited(live->loadApps());
    EXPECT_TRUE(live->apps().isLoading());
    script.lists.answer(0, Apps{app("a"), app("b")});
    EXPECT_TRUE(live->apps().isLoading());
    ASSERT_EQ(held.enriched.size(), 1U);
    EXPECT_EQ(held.enriched[0].size(), 2U);
    Apps full = {app("a"), app("b")};
    full[0].version = "1.0";
    held.enrich.answer(0, full);
    ASSERT_TRUE(live->apps().isLoaded());
    EXPECT_EQ(live->apps().value()->at(0).version, "1.0");
    EXPECT_EQ(names(), (Names{"a", "b"}));
}

TEST_F(LiveApps, AListThatIsHeldOrBeingReadIsNotReadAgain)
{
    unawaited(live->loadApps());
    unawaited(live->loadApps());
    EXPECT_EQ(script.lists.count(), 1U);
    script.lists.answer(0, Apps{});
    unawaited(live->loadApps());
    EXPECT_EQ(script.lists.count(), 1U);
    held.enrich.answer(0, {});
    unawaited(live->loadApps());
    EXPECT_EQ(script.lists.count(), 1U);
}

TEST_F(LiveApps, AFailedListIsReadAgainByTheNextCall)
{
    unawaited(live->loadApps());
    script.lists.answer(0, failure(" no \n"));
    ASSERT_TRUE(live->apps().isFailed());
    EXPECT_EQ(*live->apps().error(), "no");
    unawaited(live->loadApps());
    EXPECT_TRUE(live->apps().isLoading());
    script.lists.answer(1, Apps{app("a")});
    held.enrich.answer(0, {app("a")});
    EXPECT_EQ(names(), Names{"a"});
}

TEST_F(LiveApps, AForgottenListIsReadAfresh)
{
    load({app("a")});
    live->forgetApps();
    EXPECT_TRUE(live->apps().isIdle());
    load({app("a"), app("b")}, 1);
    EXPECT_EQ(names(), (Names{"a", "b"}));
}

TEST_F(LiveApps, AnAnswerToAnOlderQuestionIsDroppedWhateverItIs)
{
    unawaited(live->loadApps());
    live->forgetApps();
    unawaited(live->loadApps());
    script.lists.answer(0, failure("old"));
    EXPECT_TRUE(live->apps().isLoading());
    script.lists.answer(1, Apps{app("new")});
    held.enrich.answer(0, {app("new")});
    EXPECT_EQ(names(), Names{"new"});
}

TEST_F(LiveApps, AnOlderListThatArrivesLastIsDropped)
{
    unawaited(live->loadApps());
    script.lists.answer(0, Apps{app("old")});
    live->forgetApps();
    unawaited(live->loadApps());
    script.lists.answer(1, Apps{app("new")});
    held.enrich.answer(1, {app("new")});
    held.enrich.answer(0, {app("old")});
    EXPECT_EQ(names(), Names{"new"});

    live->forgetApps();
    unawaited(live->loadApps());
    EXPECT_TRUE(live->apps().isLoading());
}

TEST_F(LiveApps, OnlyTicksOfApplicationsThatStillExistAreKept)
{
    load({app("a"), app("b"), app("c")});
    live->setApps({id("a"), id("c")}, true);
    live->forgetApps();
    load({app("b"), app("c")}, 1);
    EXPECT_EQ(live->checkedApps(), PickSet{id("c")});
}

TEST_F(LiveApps, TheFirstApplicationIsShownWhereNoneOfTheListWas)
{
    load({app("a"), app("b")});
    EXPECT_EQ(live->selectedAppID(), id("a"));
    ASSERT_EQ(held.residues.size(), 1U);
    EXPECT_EQ(held.residues[0].first.name, "a");
    EXPECT_EQ(held.residues[0].second.size(), 2U);

    live->forgetApps();
    load({app("b")}, 1);
    EXPECT_EQ(live->selectedAppID(), id("b"));
    EXPECT_EQ(held.residues.size(), 2U);
}

TEST_F(LiveApps, AnApplicationThatIsStillListedStaysShown)
{
    load({app("a"), app("b")});
    unawaited(live->focusApp(app("b")));
    live->forgetApps();
    load({app("a"), app("b")}, 1);
    EXPECT_EQ(live->selectedAppID(), id("b"));
    EXPECT_EQ(held.residues.size(), 2U);
}

TEST_F(LiveApps, AnEmptyListShowsNone)
{
    load({});
    EXPECT_TRUE(live->apps().isLoaded());
    EXPECT_FALSE(live->selectedAppID());
    EXPECT_TRUE(held.residues.empty());
    EXPECT_TRUE(live->residue().isIdle());
}

TEST_F(LiveApps, LeftoversOfAnApplicationThatIsNoLongerShownAreDropped)
{
    unawaited(live->focusApp(app("a")));
    unawaited(live->focusApp(app("b")));
    held.residue.answer(0, rows("of a"));
    EXPECT_TRUE(live->residue().isLoading());
    held.residue.answer(1, rows("of b"));
    ASSERT_TRUE(live->residue().isLoaded());
    EXPECT_EQ(live->residue().value()->at(0).loc, "of b");
}

TEST_F(LiveApps, LeftoversThatArriveLateDoNotReplaceThoseOnShow)
{
    unawaited(live->focusApp(app("a")));
    unawaited(live->focusApp(app("b")));
    held.residue.answer(1, rows("of b"));
    held.residue.answer(0, rows("of a"));
    EXPECT_EQ(live->residue().value()->at(0).loc, "of b");
}

TEST_F(LiveApps, LeftoversThatArriveAfterTheFocusWasClearedAreDropped)
{
    unawaited(live->focusApp(app("a")));
    live->clearFocus();
    held.residue.answer(0, rows("of a"));
    EXPECT_TRUE(live->residue().isLoading());
}

TEST_F(LiveApps, LeftoversAreReadWithNoOtherApplicationsWhileNoListIsHeld)
{
    unawaited(live->focusApp(app("a")));
    ASSERT_EQ(held.residues.size(), 1U);
    EXPECT_TRUE(held.residues[0].second.empty());
}

TEST_F(LiveApps, TwoCopiesOfAnApplicationAreTwoRows)
{
    UninstallApp copy = app("a");
    copy.path = "/Users/you/Applications/a.app";
    EXPECT_EQ(id("a"), "org.a/Applications/a.app");
    EXPECT_NE(copy.id(), id("a"));
}

TEST_F(LiveApps, AShiftClickTicksTheRangeAndNeverUnticks)
{
    const std::vector<std::string> order = {"1", "2", "3", "4"};
    live->pickApp("2", order, false);
    EXPECT_EQ(live->pickAnchor(), "2");
    live->pickApp("4", order, true);
    EXPECT_EQ(live->checkedApps(), (PickSet{"2", "3", "4"}));
    EXPECT_EQ(live->pickAnchor(), "4");
    live->pickApp("3", order, true);
    EXPECT_EQ(live->checkedApps(), (PickSet{"2", "3", "4"}));
    live->pickApp("3", order, false);
    EXPECT_EQ(live->checkedApps(), (PickSet{"2", "4"}));
}

TEST_F(LiveApps, ManyAreTickedAndUntickedAtOnce)
{
    live->setApps({"1", "2", "3"}, true);
    live->setApps({"2", "9"}, false);
    EXPECT_EQ(live->checkedApps(), (PickSet{"1", "3"}));
}

TEST_F(LiveApps, AStoredListIsShownAsItIs)
{
    load({app("a"), app("b")});
    live->storeApps({app("b")});
    EXPECT_EQ(names(), Names{"b"});
    EXPECT_EQ(live->selectedAppID(), id("a"));
}

TEST_F(LiveApps, AnswersThatArriveAfterTheEndOfTheStoreHarmNobody)
{
    unawaited(live->loadApps());
    unawaited(live->focusApp(app("a")));
    live.reset();
    held.residue.answer(0, rows("late"));
    script.lists.answer(0, Apps{app("late")});
    EXPECT_TRUE(held.enriched.empty());
}

} // namespace zolva::test
