#include "screens/model/ConfirmMessages.h"

#include <gtest/gtest.h>

#include <string>

namespace zolva {
namespace {

std::vector<CatPath> paths(std::size_t count, std::int64_t bytes = 1000)
{
    std::vector<CatPath> all(count);
    for (std::size_t number = 0; number < count; ++number) {
        all[number].p = "/c/" + std::to_string(number);
        all[number].b = bytes;
    }
    return all;
}

std::vector<Project> projects(std::size_t count)
{
    std::vector<Project> all(count);
    for (Project& project : all) {
        project.p = "~/code/one";
        project.artifact = "build";
        project.b = 1'000'000;
    }
    return all;
}

std::vector<InstallerItem> installers(std::size_t count)
{
    std::vector<InstallerItem> all(count);
    for (InstallerItem& item : all) {
        item.p = "~/Downloads/one.dmg";
        item.b = 2'000'000;
    }
    return all;
}

std::vector<UninstallApp> apps(std::size_t count)
{
    std::vector<UninstallApp> all(count);
    for (UninstallApp& app : all) {
        app.path = "/Applications/One.app";
        app.bundleBytes = 5;
    }
    return all;
}

TEST(ConfirmMessages, CleaningIntoTheTrash)
{
    const ConfirmWords words = eraseWords(paths(3), 2, true);
    EXPECT_EQ(words.title, "Move 3 KB to the Trash?");
    EXPECT_EQ(
        words.body,
        "Removing 3 paths across 2 categories. They go to the Trash, so you can put them back. "
        "Your Mac rebuilds these caches on its own. Anything already in your Trash is left "
        "alone.");
    EXPECT_EQ(words.button, "Clean");
    EXPECT_EQ(words.symbol, "sparkles");
}

TEST(ConfirmMessages, CleaningForGood)
{
    const ConfirmWords words = eraseWords(paths(1), 1, false);
    EXPECT_EQ(words.title, "Delete 1 KB permanently?");
    EXPECT_EQ(words.body,
              "Removing 1 path across 1 category. This cannot be undone. Your Mac rebuilds these "
              "caches on its own. Anything already in your Trash is left alone.");
    EXPECT_EQ(words.button, "Clean");
}

TEST(ConfirmMessages, NothingTakesThePlural)
{
    EXPECT_TRUE(eraseWords({}, 0, true).body.startsWith("Removing 0 paths across 0 categories. "));
    EXPECT_TRUE(purgeWords({}, true).body.startsWith("Removing 0 build folders. "));
    EXPECT_EQ(installerWords({}, true).title, "Move 0 installers to the Trash?");
    EXPECT_TRUE(emptyTrashWords(0, 0).body.startsWith("0 items (0 bytes) "));
}

TEST(ConfirmMessages, PurgingIntoTheTrash)
{
    const ConfirmWords words = purgeWords(projects(2), true);
    EXPECT_EQ(words.title, "Move 2.0 MB of build artifacts to the Trash?");
    EXPECT_EQ(words.body,
              "Removing 2 build folders. They go to the Trash, so you can put them back. Your next "
              "build recreates them. Anything already in your Trash is left alone.");
    EXPECT_EQ(words.button, "Purge");
    EXPECT_EQ(words.symbol, "folder.badge.minus");
    ASSERT_EQ(words.rows.size(), 2);
    EXPECT_EQ(words.rows[0], (ConfirmRow{"~/code/one/build", "1.0 MB", "~/code/one/build"}));
}

TEST(ConfirmMessages, PurgingForGood)
{
    const ConfirmWords words = purgeWords(projects(1), false);
    EXPECT_EQ(words.title, "Delete 1.0 MB of build artifacts permanently?");
    EXPECT_EQ(words.body,
              "Removing 1 build folder. This cannot be undone. Your next build recreates them. "
              "Anything already in your Trash is left alone.");
    EXPECT_EQ(words.button, "Purge");
}

TEST(ConfirmMessages, InstallersIntoTheTrash)
{
    const ConfirmWords words = installerWords(installers(1), true);
    EXPECT_EQ(words.title, "Move 1 installer to the Trash?");
    EXPECT_EQ(words.body,
              "They go to the Trash, so you can put them back. The space comes back when you empty "
              "it. You can download them again from their source.");
    EXPECT_EQ(words.button, "Move to Trash");
    EXPECT_EQ(words.symbol, "shippingbox.fill");
    ASSERT_EQ(words.rows.size(), 1);
    EXPECT_EQ(words.rows[0], (ConfirmRow{"~/Downloads/one.dmg", "2.0 MB", "~/Downloads/one.dmg"}));
}

TEST(ConfirmMessages, InstallersForGood)
{
    const ConfirmWords words = installerWords(installers(2), false);
    EXPECT_EQ(words.title, "Delete 2 installers permanently?");
    EXPECT_EQ(words.body,
              "This cannot be undone. The space comes back straight away. You can download them "
              "again from their source.");
    EXPECT_EQ(words.button, "Delete");
}

TEST(ConfirmMessages, UninstallingIntoTheTrash)
{
    const ConfirmWords words = uninstallWords(apps(1), true);
    EXPECT_EQ(words.title, "Uninstall this app?");
    EXPECT_EQ(words.body,
              "Each app's bundle and its leftover files are removed. They go to the Trash, so you "
              "can put them back. Leftovers shared with another installed app are left alone.");
    EXPECT_EQ(words.button, "Uninstall");
    EXPECT_EQ(words.symbol, "trash.fill");
    ASSERT_EQ(words.rows.size(), 1);
    EXPECT_EQ(words.rows[0], (ConfirmRow{"/Applications/One.app", "", "/Applications/One.app"}));
}

TEST(ConfirmMessages, UninstallingForGood)
{
    const ConfirmWords words = uninstallWords(apps(3), false);
    EXPECT_EQ(words.title, "Uninstall 3 apps?");
    EXPECT_EQ(
        words.body,
        "Each app's bundle and its leftover files are removed. This cannot be undone. You "
        "would need to install the app again. Leftovers shared with another installed app are "
        "left alone.");
    EXPECT_EQ(words.button, "Uninstall 3");
}

TEST(ConfirmMessages, UninstallingNothing)
{
    const ConfirmWords words = uninstallWords({}, true);
    EXPECT_EQ(words.title, "Uninstall 0 apps?");
    EXPECT_EQ(words.button, "Uninstall 0");
    EXPECT_TRUE(words.rows.isEmpty());
}

TEST(ConfirmMessages, EmptyingTheTrash)
{
    const ConfirmWords words = emptyTrashWords(2, 5'000'000);
    EXPECT_EQ(words.title, "Empty the Trash?");
    EXPECT_EQ(words.body, "2 items (5.0 MB) will be permanently deleted. This cannot be undone.");
    EXPECT_EQ(words.button, "Empty Trash");
    EXPECT_EQ(words.symbol, "trash.fill");
    EXPECT_TRUE(words.rows.isEmpty());
    EXPECT_EQ(emptyTrashWords(1, 0).body,
              "1 item (0 bytes) will be permanently deleted. This cannot be undone.");
}

TEST(ConfirmMessages, FourteenRowsAreAllShown)
{
    const ConfirmWords words = eraseWords(paths(14), 1, true);
    EXPECT_EQ(words.rows.size(), 14);
    EXPECT_EQ(words.more, "");
}

TEST(ConfirmMessages, OfFifteenRowsOneIsCounted)
{
    const ConfirmWords words = eraseWords(paths(15), 1, true);
    EXPECT_EQ(words.rows.size(), 14);
    EXPECT_EQ(words.rows.back().label, "/c/13");
    EXPECT_EQ(words.more, "and 1 more");
}

TEST(ConfirmMessages, APathOfFiftyNineCharactersIsShortenedToFiftySix)
{
    std::vector<CatPath> two = paths(2);
    two[0].p = std::string(58, 'x');
    two[1].p = std::string(28, 'x') + std::string(31, 'y');
    const ConfirmWords words = eraseWords(two, 1, true);
    EXPECT_EQ(words.rows[0].label.size(), 58);
    EXPECT_EQ(words.rows[1].label.toStdString(), std::string(24, 'x') + "…" + std::string(31, 'y'));
    EXPECT_EQ(words.rows[1].label.size(), 56);
}

TEST(ConfirmMessages, ARowKnowsItsWholePath)
{
    std::vector<CatPath> one = paths(1);
    one[0].p = std::string(100, 'x') + "\n";
    const ConfirmWords words = eraseWords(one, 1, true);
    EXPECT_EQ(words.rows[0].fullText.toStdString(), std::string(100, 'x') + "\uFFFD");
}

TEST(ConfirmMessages, AnyPathStandsOnOneLineAndInItsOwnDirection)
{
    const std::string path = "~/Downloads/a\n~/Documents/b\u202Egpj.dmg";
    const std::string shown = "~/Downloads/a\uFFFD~/Documents/b\uFFFDgpj.dmg";
    std::vector<CatPath> caches = paths(1);
    caches[0].p = path;
    std::vector<Project> folders = projects(1);
    folders[0].p = path;
    std::vector<InstallerItem> files = installers(1);
    files[0].p = path;
    std::vector<UninstallApp> bundles = apps(1);
    bundles[0].path = path;
    const auto rowIs = [](const ConfirmWords& words, const std::string& wanted) {
        ASSERT_EQ(words.rows.size(), 1);
        EXPECT_EQ(words.rows[0].label.toStdString(), wanted);
        EXPECT_EQ(words.rows[0].fullText.toStdString(), wanted);
    };
    rowIs(eraseWords(caches, 1, true), shown);
    rowIs(purgeWords(folders, true), shown + "/build");
    rowIs(installerWords(files, true), shown);
    rowIs(uninstallWords(bundles, true), shown);
}

} // namespace
} // namespace zolva
