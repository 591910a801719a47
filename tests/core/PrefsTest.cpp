#include "core/Prefs.h"

#include "core/JsonPrefsStore.h"

#include "support/TempTree.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>

namespace zolva {
namespace {

using nlohmann::json;
using Texts = std::vector<std::string>;

class PrefsOnDisk : public ::testing::Test
{
protected:
    /// As an editor or another process leaves it: another file in the place of the old one.
    void stored(const std::string& content)
    {
        const std::string next = m_tree.text("zolva/next", content);
        std::filesystem::rename(next, m_tree.path("zolva/preferences.json"));
    }

    [[nodiscard]] json onDisk() const
    {
        std::ifstream file(m_tree.path("zolva/preferences.json"));
        return json::parse(file, nullptr, false);
    }

    [[nodiscard]] bool isWritten() const
    {
        struct stat status
        {};
        return ::stat(m_tree.path("zolva").c_str(), &status) == 0;
    }

    test::TempTree m_tree;
    JsonPrefsStore m_store{m_tree.path("zolva/preferences.json")};
    Prefs m_prefs{m_store};
};

TEST_F(PrefsOnDisk, DamagedOnesAreATroubleUntilExclusionsAreStoredAgain)
{
    stored(R"({"zolva.whitelist": ["~/a")");
    EXPECT_NE(m_prefs.trouble().damaged, "");
    m_prefs.writeLastUpdateCheck(1);
    m_prefs.writeSeenAccessIntro(true);
    EXPECT_NE(m_prefs.trouble().damaged, "");
    m_prefs.save(Settings{}, {});
    EXPECT_EQ(m_prefs.trouble().damaged, "");
}

TEST_F(PrefsOnDisk, OnAFirstStartTheDefaultsHoldAndNothingIsWritten)
{
    const Settings settings = m_prefs.load();
    EXPECT_EQ(settings.themeMode, ThemeMode::System);
    EXPECT_EQ(settings.poll, 1);
    EXPECT_EQ(settings.threshold, 80);
    EXPECT_TRUE(settings.touchid);
    EXPECT_TRUE(settings.keepInTrash);
    EXPECT_EQ(settings.whitelist, Texts{});
    EXPECT_FALSE(m_prefs.seenAccessIntro());
    EXPECT_EQ(m_prefs.lastUpdateCheck(), 0.0);
    EXPECT_FALSE(isWritten());
}

TEST_F(PrefsOnDisk, TheIntervalIsReadFromOneToSixty)
{
    for (const auto& [value, read] :
         {std::pair(0, 1), {90, 60}, {-5, 1}, {1, 1}, {60, 60}, {37, 37}}) {
        stored(json{{"zolva.pollInterval", value}}.dump());
        EXPECT_EQ(m_prefs.poll(), read) << value;
    }
}

TEST_F(PrefsOnDisk, TheThresholdIsReadFromOneToAHundred)
{
    for (const auto& [value, read] : {std::pair(0, 1), {150, 100}, {-1, 1}, {100, 100}, {42, 42}}) {
        stored(json{{"zolva.diskThreshold", value}}.dump());
        EXPECT_EQ(m_prefs.threshold(), read) << value;
    }
}

TEST_F(PrefsOnDisk, AStoredFalseIsAValueAndNotAnAbsence)
{
    stored(R"({"zolva.requireTouchID": false, "zolva.keepInTrash": false})");
    EXPECT_FALSE(m_prefs.touchid());
    EXPECT_FALSE(m_prefs.keepInTrash());
}

TEST_F(PrefsOnDisk, AnyOtherThemeReadsAsSystemAndTheNextSaveWritesThat)
{
    stored(R"({"zolva.themeMode": "sepia"})");
    EXPECT_EQ(m_prefs.themeMode(), ThemeMode::System);
    m_prefs.save(m_prefs.load());
    EXPECT_EQ(onDisk()["zolva.themeMode"], "system");
}

TEST_F(PrefsOnDisk, TheThreeThemesComeBackAsTheyWereSaved)
{
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark, ThemeMode::System}) {
        Settings settings;
        settings.themeMode = mode;
        m_prefs.save(settings);
        EXPECT_EQ(m_prefs.themeMode(), mode);
        EXPECT_EQ(onDisk()["zolva.themeMode"], themeModeText(mode));
    }
}

TEST_F(PrefsOnDisk, AWhitelistWithOneNumberReadsAsEmptyAndTheNextSaveOverwritesIt)
{
    stored(R"({"zolva.whitelist": ["~/a", 7, "~/b"]})");
    EXPECT_EQ(m_prefs.whitelist(), Texts{});
    Settings settings = m_prefs.load();
    settings.whitelist.push_back("~/c");
    m_prefs.save(settings);
    EXPECT_EQ(onDisk()["zolva.whitelist"], json({"~/c"}));
}

TEST_F(PrefsOnDisk, AnEmptyTextInTheWhitelistIsLostOnReading)
{
    stored(R"({"zolva.whitelist": ["~/b", "", "  ", "~/a", "~/b"]})");
    EXPECT_EQ(m_prefs.whitelist(), (Texts{"~/b", "  ", "~/a", "~/b"}));
}

TEST_F(PrefsOnDisk, AnEmptyTextInTheWhitelistIsLostOnWriting)
{
    m_prefs.writeWhitelist({"", "~/b", "", "~/a"});
    EXPECT_EQ(onDisk()["zolva.whitelist"], json({"~/b", "~/a"}));
    Settings settings;
    settings.whitelist = {"x", ""};
    m_prefs.save(settings, {"~/b", "~/a"});
    EXPECT_EQ(onDisk()["zolva.whitelist"], json({"x"}));
}

TEST_F(PrefsOnDisk, ValuesOfTheWrongTypeReadAsTheZeroOfTheRead)
{
    stored(R"({"zolva.pollInterval": "30", "zolva.diskThreshold": true, "zolva.themeMode": 2,
               "zolva.requireTouchID": "yes", "zolva.keepInTrash": 1, "zolva.whitelist": "~/a",
               "zolva.seenAccessIntro": [], "zolva.lastUpdateCheck": "now"})");
    const Settings settings = m_prefs.load();
    EXPECT_EQ(settings.poll, 1);
    EXPECT_EQ(settings.threshold, 1);
    EXPECT_EQ(settings.themeMode, ThemeMode::System);
    EXPECT_FALSE(settings.touchid);
    EXPECT_FALSE(settings.keepInTrash);
    EXPECT_EQ(settings.whitelist, Texts{});
    EXPECT_FALSE(m_prefs.seenAccessIntro());
    EXPECT_EQ(m_prefs.lastUpdateCheck(), 0.0);
}

TEST_F(PrefsOnDisk, AFractionIsNoWholeNumberAndAVastOneIsClamped)
{
    stored(R"({"zolva.pollInterval": 30.5, "zolva.diskThreshold": 18446744073709551615})");
    EXPECT_EQ(m_prefs.poll(), 1);
    EXPECT_EQ(m_prefs.threshold(), 100);
}

TEST_F(PrefsOnDisk, SavingWritesAllSixClampedAndLeavesTheSettingsGivenAlone)
{
    Settings settings{ThemeMode::Dark, 500, -3, false, false, {"~/x"}};
    m_prefs.save(settings);
    EXPECT_EQ(onDisk(), (json{{"zolva.themeMode", "dark"},
                              {"zolva.pollInterval", 60},
                              {"zolva.diskThreshold", 1},
                              {"zolva.requireTouchID", false},
                              {"zolva.keepInTrash", false},
                              {"zolva.whitelist", {"~/x"}}}));
    EXPECT_EQ(settings.poll, 500);
    settings.poll = 60;
    settings.threshold = 1;
    EXPECT_EQ(m_prefs.load(), settings);
}

TEST_F(PrefsOnDisk, SavingTakesOutOfTheListOnlyWhatWasTakenOutHere)
{
    stored(R"({"zolva.whitelist": ["~/a", "~/theirs", "", "~/b"]})");
    Settings settings;
    settings.whitelist = {"~/b", "~/c"};
    m_prefs.save(settings, {"~/a"});
    EXPECT_EQ(onDisk()["zolva.whitelist"], json({"~/theirs", "~/b", "~/c"}));
}

TEST_F(PrefsOnDisk, SavingChangesLeavesTheOtherSettingsAsTheyAreStored)
{
    stored(R"({"zolva.whitelist": ["~/a", "~/b"], "zolva.pollInterval": 7})");
    const Settings before = m_prefs.load();
    stored(R"({"zolva.whitelist": ["~/a", "~/b", "~/theirs"], "zolva.pollInterval": 9})");
    Settings now = before;
    now.whitelist = {"~/a", "~/c"};
    now.keepInTrash = false;
    m_prefs.saveChanges(before, now);
    EXPECT_EQ(onDisk(), (json{{"zolva.whitelist", {"~/a", "~/theirs", "~/c"}},
                              {"zolva.pollInterval", 9},
                              {"zolva.keepInTrash", false}}));
}

TEST_F(PrefsOnDisk, SavingNoChangesWritesNothing)
{
    m_prefs.saveChanges({}, {});
    EXPECT_FALSE(onDisk().is_object());
}

TEST_F(PrefsOnDisk, TheAccessIntroIsRememberedBesideTheSettings)
{
    m_prefs.save({});
    m_prefs.writeSeenAccessIntro();
    EXPECT_TRUE(m_prefs.seenAccessIntro());
    EXPECT_EQ(onDisk()["zolva.seenAccessIntro"], true);
    EXPECT_EQ(onDisk()["zolva.pollInterval"], 1);
}

TEST_F(PrefsOnDisk, TheTimeOfTheLastCheckIsAFloatingPointNumber)
{
    m_prefs.writeLastUpdateCheck(1'700'000'000.0);
    EXPECT_EQ(m_prefs.lastUpdateCheck(), 1'700'000'000.0);
    EXPECT_TRUE(onDisk()["zolva.lastUpdateCheck"].is_number_float());
    stored(R"({"zolva.lastUpdateCheck": 5})");
    EXPECT_EQ(m_prefs.lastUpdateCheck(), 5.0);
}

} // namespace
} // namespace zolva
