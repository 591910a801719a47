#include "removal/runs/AnalyzeRemoval.h"

#include "removal/RunBench.h"
#include "removal/runs/AnalyzeMessages.h"
#include "removal/runs/LiveRemovalDisk.h"

#include "support/TrashHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

namespace zolva {
namespace {

using test::RunBench;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct AnalyzeBench
{
    test::TrashHome home;
    RunBench bench;
    AnalyzeRemoval analyze{bench.disk, bench.toasts, bench.trash,
                           [this] { return bench.whitelist; }};

    std::string film() const { return home.path("Movies/film.mov"); }
    void press(std::size_t toast) { bench.toasts.runAction(bench.toasts.toasts().at(toast).id); }
};

TEST(AnalyzeRemoval, MovesOneItemAndOffersToUndoIt)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 3'000'000);
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Moved 3.0 MB to the Trash [Undo]"));
    EXPECT_THAT(b.analyze.trashed(), ElementsAre(b.film()));
    EXPECT_TRUE(b.bench.trash.didJustTrash());
    ASSERT_EQ(b.analyze.analyzeUndos().size(), 1u);
    EXPECT_EQ(b.analyze.analyzeUndos().begin()->second.trashedTo, "/trash/film.mov");

    b.press(0);
    EXPECT_TRUE(b.bench.disk->exists(b.film()));
    EXPECT_THAT(b.analyze.trashed(), IsEmpty());
    EXPECT_THAT(b.analyze.analyzeUndos(), IsEmpty());
    EXPECT_EQ(b.bench.toastTexts().size(), 1u) << "the row that comes back is the report";
}

TEST(AnalyzeRemoval, OfTwoQuickClicksOnOneRowTheSecondDoesNothing)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    b.bench.disk->put(b.film(), 1); // even if something is there again
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    EXPECT_EQ(b.bench.disk->changes().size(), 1u);
    EXPECT_EQ(b.bench.toastTexts().size(), 1u);
}

TEST(AnalyzeRemoval, WhatTheGuardRefusesIsNotTouched)
{
    AnalyzeBench b;
    const std::string documents = b.home.path("Documents");
    b.bench.disk->put(documents, 1);
    b.analyze.trashAnalyzeItem("Documents", documents, 1000);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
    ASSERT_EQ(b.bench.toastTexts().size(), 1u);
    EXPECT_THAT(b.bench.toastTexts().front(),
                ::testing::StartsWith("warning: Can't move that to the Trash: "));
    EXPECT_THAT(b.analyze.trashed(), IsEmpty());
}

TEST(AnalyzeRemoval, AFileDirectlyInAProtectedFolderPasses)
{
    AnalyzeBench b;
    const std::string report = b.home.path("Documents/report.pdf");
    b.bench.disk->put(report, 1);
    b.analyze.trashAnalyzeItem("report.pdf", report, 1000);
    EXPECT_THAT(b.bench.disk->changes(), ElementsAre("move " + report));
}

TEST(AnalyzeRemoval, WhatIsExcludedIsNotTouched)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.bench.whitelist = {"~/Movies"};
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: film.mov is in your \"Never touch these\" list."));
    EXPECT_THAT(b.bench.log.messages(),
                ElementsAre("refused " + b.film() + ": excluded in Settings"));
}

TEST(AnalyzeRemoval, WhatIsGoneIsToldAndNotMarked)
{
    AnalyzeBench b;
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("info: film.mov is already gone"));
    EXPECT_THAT(b.analyze.trashed(), IsEmpty());
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
}

TEST(AnalyzeRemoval, AMoveThatFailsTellsTheSystemsWordsAndMarksNothing)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.bench.disk->fail(b.film(), "No Trash here");
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't move film.mov to the Trash: No Trash here"));
    EXPECT_THAT(b.analyze.trashed(), IsEmpty());
    EXPECT_FALSE(b.bench.trash.didJustTrash());
}

TEST(AnalyzeRemoval, AnItemWithoutALandingPlaceStaysMarkedWithNoOfferToUndo)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.bench.disk->tellNoLanding(b.film());
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Moved 1 KB to the Trash"));
    EXPECT_THAT(b.analyze.trashed(), ElementsAre(b.film()));
    EXPECT_THAT(b.analyze.analyzeUndos(), IsEmpty());
}

TEST(AnalyzeRemoval, WithKeepInTrashOffTheItemStillStaysInTheTrash)
{
    AnalyzeBench b;
    b.bench.keepInTrash = false;
    b.bench.disk->put(b.film(), 1);
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    EXPECT_TRUE(b.bench.disk->exists("/trash/film.mov"));
    EXPECT_THAT(b.bench.disk->changes(), ElementsAre("move " + b.film()));
}

TEST(AnalyzeUndo, AfterTheTrashWasEmptiedItIsNoLongerThereAndThenCanNoLongerBePutBack)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    b.bench.disk->take("/trash/film.mov");
    b.press(0);
    b.press(0);
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("success: Moved 1 KB to the Trash [Undo]",
                            "warning: film.mov is no longer in the Trash, so it can't be put back",
                            "info: That item can no longer be put back"));
}

TEST(AnalyzeUndo, WhereANewFileHasTakenTheNameBothStayAndUndoStaysPossible)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    b.bench.disk->put(b.film(), 7);
    b.press(0);
    EXPECT_EQ(b.bench.toastTexts().back(), "warning: Something else is already at " + b.film() +
                                               ", so film.mov stayed in the Trash");
    EXPECT_THAT(b.bench.disk->changes(), ElementsAre("move " + b.film()));
    b.bench.disk->take(b.film());
    b.press(0);
    EXPECT_TRUE(b.bench.disk->exists(b.film()));
}

TEST(AnalyzeUndo, APutBackThatFailsLeavesTheItemAndTheRecord)
{
    AnalyzeBench b;
    b.bench.disk->put(b.film(), 1);
    b.analyze.trashAnalyzeItem("film.mov", b.film(), 1000);
    b.bench.disk->failPutBack("Read-only file system");
    b.press(0);
    EXPECT_EQ(b.bench.toastTexts().back(),
              "warning: Couldn't put film.mov back: Read-only file system");
    EXPECT_EQ(b.analyze.analyzeUndos().size(), 1u);
    EXPECT_THAT(b.analyze.trashed(), ElementsAre(b.film()));
}

TEST(AnalyzeUndo, AnUnknownRecordCanNoLongerBePutBack)
{
    AnalyzeBench b;
    b.analyze.putBack(QUuid::createUuid());
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("info: That item can no longer be put back"));
}

TEST(AnalyzeUndo, OnARealDiskTheFileComesBackWholeAndItsRecordLeavesTheTrash)
{
    test::TrashHome home;
    RunBench bench;
    AnalyzeRemoval analyze{std::make_shared<LiveRemovalDisk>(), bench.toasts, bench.trash,
                           [] { return std::vector<std::string>(); }};
    const std::string film = home.tree.text("home/Movies/film.mov", "frames");

    analyze.trashAnalyzeItem("film.mov", "~/Movies/film.mov", 6);
    EXPECT_FALSE(test::stands(film));
    EXPECT_EQ(test::content(home.inTrash("film.mov")), "frames");
    bench.toasts.runAction(bench.toasts.toasts().front().id);
    EXPECT_EQ(test::content(film), "frames");
    EXPECT_FALSE(test::stands(home.inTrash("film.mov")));
    EXPECT_FALSE(test::stands(home.infoOf("film.mov")));
}

TEST(AnalyzeUndo, WhatTookItsNameInTheTrashMeanwhileIsNotPutBack)
{
    test::TrashHome home;
    RunBench bench;
    AnalyzeRemoval analyze{std::make_shared<LiveRemovalDisk>(), bench.toasts, bench.trash,
                           [] { return std::vector<std::string>(); }};
    const std::string film = home.tree.text("home/Movies/film.mov", "frames");

    analyze.trashAnalyzeItem("film.mov", "~/Movies/film.mov", 6);
    // Restored by the desktop, and another one by that name removed.
    ASSERT_EQ(::rename(home.inTrash("film.mov").c_str(), home.path("kept.mov").c_str()), 0);
    home.tree.text("home/.local/share/Trash/files/film.mov", "other");
    bench.toasts.runAction(bench.toasts.toasts().front().id);
    EXPECT_EQ(bench.toastTexts().back(), "warning: " + leftTheTrashText("film.mov").toStdString());
    EXPECT_FALSE(test::stands(film));
    EXPECT_EQ(test::content(home.inTrash("film.mov")), "other");
    EXPECT_TRUE(analyze.analyzeUndos().empty());
}

} // namespace
} // namespace zolva
