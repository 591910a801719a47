#include "screens/model/AppMessages.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

ResidueRow found(const std::string& place, std::int64_t files, std::int64_t bytes)
{
    ResidueRow row;
    row.loc = place;
    row.n = files;
    row.b = bytes;
    row.p = "~/Library/" + place;
    return row;
}

UninstallApp measured(std::int64_t bytes)
{
    UninstallApp app;
    app.bundleBytes = bytes;
    return app;
}

TEST(AppMessages, MetaTellsVersionAndDay)
{
    UninstallApp app;
    app.version = "4.2.1";
    app.installedDate = TimePoint(std::chrono::milliseconds(
        QDateTime(QDate(2026, 11, 21), QTime(12, 0)).toMSecsSinceEpoch()));
    EXPECT_EQ(appMeta(app, QLocale::c()), "Version 4.2.1 · Installed 21 Nov 2026");
    EXPECT_EQ(appMeta(app, QLocale(QLocale::English, QLocale::UnitedStates)),
              "Version 4.2.1 · Installed Nov 21, 2026");
}

TEST(AppMessages, MetaLeavesOutWhatIsNotKnown)
{
    UninstallApp app;
    EXPECT_EQ(appMeta(app, QLocale::c()), "");
    app.version = "7";
    EXPECT_EQ(appMeta(app, QLocale::c()), "Version 7");
    app.version.reset();
    app.installedDate = TimePoint(
        std::chrono::milliseconds(QDateTime(QDate(2026, 3, 4), QTime(12, 0)).toMSecsSinceEpoch()));
    EXPECT_EQ(appMeta(app, QLocale::c()), "Installed 4 Mar 2026");
}

TEST(AppMessages, SummaryAddsUpFilesAndPlaces)
{
    EXPECT_EQ(leftoverSummary(measured(1'000'000),
                              {found("Application bundle", 40, 1'000'000),
                               found("Caches", 1200, 2'500'000), found("Logs", 3, 1000)}),
              "1243 files in 3 locations · 3.5 MB including leftovers");
}

TEST(AppMessages, SummaryKeepsItsPlurals)
{
    EXPECT_EQ(leftoverSummary(measured(0), {found("Caches", 1, 1000)}),
              "1 files in 1 locations · 1 KB including leftovers");
}

TEST(AppMessages, AnApplicationWithNoLeftoversReadsZeroFilesInZeroLocationsAndItsOwnSize)
{
    EXPECT_EQ(leftoverSummary(measured(5'000'000), {}),
              "0 files in 0 locations · 5.0 MB including leftovers");
}

TEST(AppMessages, TheBundleCountsOnceHoweverItWasMeasured)
{
    const Leftovers rows = {found("Application bundle", 1, 700), found("Caches", 1, 20)};
    EXPECT_EQ(bytesWithLeftovers(measured(800), rows), 820);
    EXPECT_EQ(bytesWithLeftovers(UninstallApp(), rows), 720);
}

TEST(AppMessages, SharedPlacesCountToo)
{
    ResidueRow shared = found("Caches", 1, 20);
    shared.shared = true;
    EXPECT_EQ(bytesWithLeftovers(measured(800), {shared}), 820);
}

TEST(AppMessages, ALeftoverHasItsPlacePathFilesAndSize)
{
    const LeftoverLine line = leftoverLines({found("Caches", 1, 2'500'000)}).front();
    EXPECT_EQ(line.place, "Caches");
    EXPECT_EQ(line.path, "~/Library/Caches");
    EXPECT_EQ(line.files, "1 files");
    EXPECT_EQ(line.size, "2.5 MB");
    EXPECT_EQ(line.tag, "");
    EXPECT_EQ(line.kept, "");
    EXPECT_EQ(line.spoken, "1 files, 2.5 MB. ~/Library/Caches");
}

TEST(AppMessages, ASharedLeftoverNamesItsOtherOwner)
{
    ResidueRow row = found("Caches", 12, 1000);
    row.shared = true;
    row.sharedWith = "Lumen Editor Beta";
    const LeftoverLine line = leftoverLines({row}).front();
    EXPECT_EQ(line.tag, "shared with Lumen Editor Beta");
    EXPECT_EQ(line.kept, "Kept: Lumen Editor Beta uses this same path.");
    EXPECT_EQ(line.spoken, "12 files, 1 KB. ~/Library/Caches. shared with Lumen Editor Beta. Kept: "
                           "Lumen Editor Beta uses this same path.");
}

TEST(AppMessages, ASharedLeftoverWithNoKnownOwnerIsAnotherApps)
{
    ResidueRow row = found("Caches", 12, 1000);
    row.shared = true;
    const LeftoverLine line = leftoverLines({row}).front();
    EXPECT_EQ(line.tag, "shared with another app");
    EXPECT_EQ(line.kept, "Kept: another installed app uses this same path.");
}

TEST(AppMessages, AnOwnerOfAnUnsharedPlaceIsNotTold)
{
    ResidueRow row = found("Caches", 12, 1000);
    row.sharedWith = "Nobody";
    EXPECT_EQ(leftoverLines({row}).front().tag, "");
}

TEST(AppMessages, ALeftoverStaysOnItsLines)
{
    ResidueRow row = found("Caches", 1, 1000);
    row.p = "~/Library/a\nb";
    row.shared = true;
    row.sharedWith = "c\nd";
    const LeftoverLine line = leftoverLines({row}).front();
    EXPECT_EQ(line.path, "~/Library/a\uFFFDb");
    EXPECT_EQ(line.tag, "shared with c\uFFFDd");
}

TEST(AppMessages, SizeIsThatOfTheBundleAndElseTheToolsOwnWord)
{
    UninstallApp app = measured(31'200'000);
    app.size = "30MB";
    EXPECT_EQ(appSize(app), "31.2 MB");
    app.bundleBytes.reset();
    EXPECT_EQ(appSize(app), "30MB");
}

TEST(AppMessages, OneApplicationIsSingular)
{
    EXPECT_EQ(countedApps(0), "0 applications");
    EXPECT_EQ(countedApps(1), "1 application");
    EXPECT_EQ(countedApps(2), "2 applications");
}

TEST(AppMessages, OneTickReadsUninstallAndTwoReadUninstallTwoApps)
{
    EXPECT_EQ(uninstallTitle(0), "Uninstall 0 apps");
    EXPECT_EQ(uninstallTitle(1), "Uninstall");
    EXPECT_EQ(uninstallTitle(2), "Uninstall 2 apps");
}

TEST(AppMessages, NoteSaysWhatBecomesOfTheApplications)
{
    EXPECT_EQ(uninstallNote(true),
              "Checked apps go to the Trash, along with their leftover files.");
    EXPECT_EQ(uninstallNote(false),
              "Checked apps are removed for good, along with their leftover files.");
}

} // namespace

} // namespace zolva::test
