#include "screens/model/SettingsMessages.h"

#include "screens/model/ToolText.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

using Kind = MoLocation::Kind;

TEST(SettingsMessages, TheSwitchSaysWhatBecomesOfWhatIsRemoved)
{
    EXPECT_EQ(keepInTrashNote(true),
              "Clean, Purge, Installers and Uninstall put things in the Trash, where you can put "
              "them back. The space comes back when you empty it.");
    EXPECT_EQ(keepInTrashNote(false),
              "Clean, Purge, Installers and Uninstall remove things for good. Nothing goes to the "
              "Trash and nothing can be undone.");
    EXPECT_EQ(keepInTrashSpoken(true), "On, removals are recoverable");
    EXPECT_EQ(keepInTrashSpoken(false), "Off, removals are permanent");
}

TEST(SettingsMessages, TheToolIsNamedByItsVersionAndWhereItComesFrom)
{
    EXPECT_EQ(toolLine("1.2.3", Kind::Shipped), "mo 1.2.3 · Bundled (modified) · GPL-3.0");
    EXPECT_EQ(toolLine("1.2.3", Kind::Installed), "mo 1.2.3 · Homebrew (modified) · GPL-3.0");
}

TEST(SettingsMessages, WithoutAToolTheVersionIsUnknownAndTheToolNotFound)
{
    EXPECT_EQ(toolLine({}, Kind::Absent), "mo an unknown version · Not found (modified) · GPL-3.0");
}

TEST(SettingsMessages, TheNoticeTellsTheChangeAndWhereTheSourceIs)
{
    EXPECT_EQ(toolAbout("1.2.3"),
              "Zolva runs the mole command-line tool to read and clean your Mac. mole is free "
              "software under the GNU General Public License v3. Zolva ships mole 1.2.3 with one "
              "change: its launcher was patched to resolve paths from inside the app bundle "
              "instead of Homebrew.");
    EXPECT_EQ(toolSourceNote("1.2.3"),
              "The complete corresponding source, mole 1.2.3 plus Zolva's patch, is available "
              "from the source link.");
    EXPECT_EQ(toolSourceNote({}),
              "The complete corresponding source, mole an unknown version plus Zolva's patch, is "
              "available from the source link.");
}

TEST(SettingsMessages, TheSourceOfAnUnknownVersionIsThePageThatTheBuildWasGiven)
{
    EXPECT_EQ(toolPage({}), ZOLVA_TOOL_PAGE);
}

TEST(SettingsMessages, TheSourceIsThatOfTheVeryVersion)
{
    const std::string page = toolPage({});
    EXPECT_EQ(toolPage("1.2.3"), page + "/tree/V1.2.3");
    EXPECT_EQ(page.rfind("https://", 0), 0U);
    EXPECT_NE(page.back(), '/');
}

TEST(SettingsMessages, AVersionStaysOneNameOfTheAddress)
{
    EXPECT_EQ(toolPage("1 b/c?d#e"), toolPage({}) + "/tree/V1%20b%2Fc%3Fd%23e");
}

} // namespace

} // namespace zolva::test
