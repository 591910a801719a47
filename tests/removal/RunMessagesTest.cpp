#include "removal/runs/RunMessages.h"

#include "removal/TrashMessages.h"
#include "removal/runs/AnalyzeMessages.h"
#include "removal/runs/QuitGuard.h"
#include "removal/runs/UninstallMessages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

RunFigures figures(std::int64_t moved, std::int64_t freed, std::vector<std::string> failures = {},
                   std::int64_t purged = 0, std::vector<std::string> problems = {})
{
    const auto attempts = moved + static_cast<std::int64_t>(failures.size());
    return {attempts, moved, freed, std::move(failures), purged, std::move(problems)};
}

std::vector<std::string> texts(const RunFigures& run, bool keepInTrash)
{
    std::vector<std::string> all;
    for (const SummaryToast& toast : runSummary(run, keepInTrash)) {
        all.push_back(toast.text.toStdString());
    }
    return all;
}

TEST(RunMessages, MovedTellsTheSizeAndOffersToOpenTheTrash)
{
    EXPECT_THAT(runSummary(figures(1, 1500), true),
                ElementsAre(SummaryToast{BannerKind::Success, "Moved 2 KB to the Trash",
                                         SummaryAction::OpenTrash}));
}

TEST(RunMessages, DeletedTellsTheSizeAndOffersNothing)
{
    EXPECT_THAT(runSummary(figures(2, 3'000'000, {}, 2), false),
                ElementsAre(SummaryToast{BannerKind::Success, "Deleted 3.0 MB permanently",
                                         SummaryAction::None}));
}

TEST(RunMessages, WhatWasNotPurgedIsLeftInTheTrash)
{
    EXPECT_THAT(texts(figures(3, 5000, {}, 2), false),
                ElementsAre("Cleaned 5 KB, 1 item left in the Trash"));
    EXPECT_THAT(texts(figures(3, 5000, {}, 1), false),
                ElementsAre("Cleaned 5 KB, 2 items left in the Trash"));
}

TEST(RunMessages, OneFailureIsToldInItsOwnWords)
{
    EXPECT_THAT(texts(figures(0, 0, {"No space left"}), true),
                ElementsAre("Skipped 1 item: No space left"));
}

TEST(RunMessages, WhateverIsToldStandsOnOneLineAndInItsOwnDirection)
{
    EXPECT_THAT(texts(figures(0, 0, {"/a\nb\u202Ec: Busy"}, 0, {"d\r\ne\u2066f: Busy"}), true),
                ElementsAre("Skipped 1 item: /a\uFFFDb\uFFFDc: Busy",
                            "Left in the Trash: d\uFFFD\uFFFDe\uFFFDf: Busy"));
}

TEST(RunMessages, SeveralFailuresAreCountedTwice)
{
    EXPECT_THAT(texts(figures(0, 0, {"a", "b", "c", "d"}), true),
                ElementsAre("Skipped 4 items: 4 paths couldn't be removed"));
}

TEST(RunMessages, ProblemsOfThePurgeComeLast)
{
    EXPECT_THAT(texts(figures(2, 1000, {"x"}, 1, {"x was not in the Trash"}), false),
                ElementsAre("Cleaned 1 KB, 1 item left in the Trash", "Skipped 1 item: x",
                            "Left in the Trash: x was not in the Trash"));
    EXPECT_THAT(
        texts(figures(2, 1000, {}, 0, {"a", "b"}), true),
        ElementsAre("Moved 1 KB to the Trash", "Left in the Trash: 2 items couldn't be emptied"));
}

TEST(RunMessages, OnlyAbsentPathsGiveTheOneToastOfNothingToRemove)
{
    RunFigures run;
    run.attempts = 3;
    EXPECT_THAT(runSummary(run, true),
                ElementsAre(SummaryToast{BannerKind::Info,
                                         "Nothing to remove, those items were already gone",
                                         SummaryAction::None}));
}

TEST(RunMessages, NoAttemptGivesNoToast)
{
    EXPECT_THAT(runSummary({}, true), IsEmpty());
    EXPECT_THAT(runSummary({}, false), IsEmpty());
}

TEST(RunMessages, StoppedCountsWhatIsGoneAndWhatIsLeft)
{
    EXPECT_EQ(stoppedText(3, 2), "Stopped. 3 items already removed, 2 left alone.");
    EXPECT_EQ(stoppedText(1, 1), "Stopped. 1 item already removed, 1 left alone.");
    EXPECT_EQ(stoppedText(0, 4), "Stopped. 0 items already removed, 4 left alone.");
}

TEST(RunMessages, TheTableOfRunsHasTheirLabelsAndTitles)
{
    EXPECT_STREQ(runname::clean.label, "clean");
    EXPECT_STREQ(runname::clean.title, "Removing caches");
    EXPECT_STREQ(runname::purge.label, "purge");
    EXPECT_STREQ(runname::purge.title, "Removing build artifacts");
    EXPECT_STREQ(runname::installers.label, "installers");
    EXPECT_STREQ(runname::installers.title, "Removing installers");
    EXPECT_STREQ(runname::installer.label, "installer");
    EXPECT_STREQ(runname::installer.title, "Removing installer");
    EXPECT_STREQ(runname::emptyTrash.label, "empty trash");
    EXPECT_STREQ(runname::emptyTrash.title, "Emptying the Trash");
    EXPECT_STREQ(runname::trash.label, "trash");
    EXPECT_STREQ(runname::trash.title, "Moving to the Trash");
}

TEST(ShortenedPath, FiftyEightCharactersStayWhole)
{
    const std::string path = "/" + std::string(57, 'a');
    EXPECT_EQ(shortenedPath(path).toStdString(), path);
}

TEST(ShortenedPath, FiftyNineCharactersBecomeFiftySix)
{
    const std::string path = std::string(24, 'a') + std::string(4, 'b') + std::string(31, 'c');
    EXPECT_EQ(shortenedPath(path), QString(24, 'a') + QStringLiteral("…") + QString(31, 'c'));
    EXPECT_EQ(shortenedPath(path).size(), 56);
}

TEST(ShortenedPath, CharactersAreCountedAsPeopleCountThem)
{
    std::string letters; // each two code points of three bytes together
    for (int i = 0; i < 58; ++i) {
        letters += "e\xCC\x81";
    }
    EXPECT_EQ(shortenedPath(letters).toStdString(), letters);
    letters += "e\xCC\x81";
    const QString shortened = shortenedPath(letters);
    EXPECT_EQ(shortened.size(), 2 * 24 + 1 + 2 * 31);
    EXPECT_EQ(shortened.mid(46, 3), QString::fromUtf8("e\xCC\x81…"));
}

TEST(ShortenedPath, BytesThatAreNoTextAreShownAndCutToo)
{
    const std::string path = "/" + std::string(80, '\xFF');
    EXPECT_EQ(shortenedPath(path).size(), 56);
    EXPECT_EQ(shortenedPath("/\xFF"), QString::fromUtf8("/\xEF\xBF\xBD"));
}

TEST(ShortenedPath, StandsOnOneLineAndInItsOwnDirection)
{
    EXPECT_EQ(shortenedPath("~/Downloads/a\n~/Documents/b\u202Egpj.dmg").toStdString(),
              "~/Downloads/a\uFFFD~/Documents/b\uFFFDgpj.dmg");
    const std::string path = "\n" + std::string(57, 'a') + "\u2029";
    EXPECT_EQ(shortenedPath(path).toStdString(),
              "\uFFFD" + std::string(23, 'a') + "…" + std::string(30, 'a') + "\uFFFD");
}

TEST(UninstallMessages, CountAppsWithTheirPlural)
{
    EXPECT_EQ(stillRunningText(1),
              "Couldn't quit 1 app to uninstall it. Quit it manually and try again.");
    EXPECT_EQ(stillRunningText(2),
              "Couldn't quit 2 apps to uninstall it. Quit it manually and try again.");
    EXPECT_EQ(needsPasswordText(1),
              "Couldn't uninstall 1 app. It may need an administrator password.");
    EXPECT_EQ(needsPasswordText(3),
              "Couldn't uninstall 3 apps. It may need an administrator password.");
    EXPECT_EQ(uninstalledText(1), "Uninstalled 1 app");
    EXPECT_EQ(uninstalledText(2), "Uninstalled 2 apps");
    EXPECT_EQ(stillStuckText(1),
              "Still couldn't uninstall 1 app. The authentication may have been canceled.");
    EXPECT_EQ(stillStuckText(2),
              "Still couldn't uninstall 2 apps. The authentication may have been canceled.");
    EXPECT_EQ(QString::fromUtf8(authenticateAction), QStringLiteral("Authenticate…"));
}

TEST(TrashMessages, SayWhatEmptyingCameTo)
{
    EXPECT_EQ(trashEmptiedText(5, 0), "Trash emptied.");
    EXPECT_EQ(trashEmptiedText(3, 1), "Emptied 3 items, 1 could not be removed.");
    EXPECT_EQ(trashEmptiedText(1, 2), "Emptied 1 item, 2 could not be removed.");
    EXPECT_EQ(trashEmptiedText(0, 2), "Emptied 0 items, 2 could not be removed.");
    EXPECT_EQ(trashAlreadyEmptyText(), "The Trash is already empty.");
    EXPECT_EQ(trashUnreadableText(),
              "Zolva can't read the Trash. Grant Full Disk Access in System Settings.");
    EXPECT_EQ(newItemsText(), "New items in the Trash, empty it to reclaim the space.");
}

TEST(AnalyzeMessages, NameTheItem)
{
    EXPECT_EQ(cannotMoveText("protected container"),
              "Can't move that to the Trash: protected container");
    EXPECT_EQ(neverTouchText("film.mov"), "film.mov is in your \"Never touch these\" list.");
    EXPECT_EQ(isGoneText("film.mov"), "film.mov is already gone");
    EXPECT_EQ(moveFailedText("film.mov", "Busy"), "Couldn't move film.mov to the Trash: Busy");
    EXPECT_EQ(movedToTrashText(1'234'567'890), "Moved 1.23 GB to the Trash");
    EXPECT_EQ(cannotPutBackText(), "That item can no longer be put back");
    EXPECT_EQ(leftTheTrashText("film.mov"),
              "film.mov is no longer in the Trash, so it can't be put back");
    EXPECT_EQ(placeTakenText("~/film.mov", "film.mov"),
              "Something else is already at ~/film.mov, so film.mov stayed in the Trash");
    EXPECT_EQ(putBackFailedText("film.mov", "Busy"), "Couldn't put film.mov back: Busy");
}

TEST(AnalyzeMessages, ShowAnyNameOnOneLineAndInItsOwnDirection)
{
    const std::string name = "a\nb\u202Ec";
    const std::string shown = "a\uFFFDb\uFFFDc";
    EXPECT_EQ(cannotMoveText(name).toStdString(), "Can't move that to the Trash: " + shown);
    EXPECT_EQ(neverTouchText(name).toStdString(),
              shown + " is in your \"Never touch these\" list.");
    EXPECT_EQ(isGoneText(name).toStdString(), shown + " is already gone");
    EXPECT_EQ(moveFailedText(name, name).toStdString(),
              "Couldn't move " + shown + " to the Trash: " + shown);
    EXPECT_EQ(leftTheTrashText(name).toStdString(),
              shown + " is no longer in the Trash, so it can't be put back");
    EXPECT_EQ(placeTakenText("~/" + name, name).toStdString(),
              "Something else is already at ~/" + shown + ", so " + shown + " stayed in the Trash");
    EXPECT_EQ(putBackFailedText(name, name).toStdString(),
              "Couldn't put " + shown + " back: " + shown);
}

TEST(QuitWords, AreThoseOfTheAlert)
{
    EXPECT_STREQ(quitwords::message, "Zolva is still removing files");
    EXPECT_STREQ(quitwords::detail,
                 "Quitting now would stop partway through, leaving some items removed and others "
                 "not. Stop the run first, or wait for it to finish.");
    EXPECT_STREQ(quitwords::keepGoing, "Keep Going");
    EXPECT_STREQ(quitwords::stopAndQuit, "Stop and Quit");
}

} // namespace
} // namespace zolva
