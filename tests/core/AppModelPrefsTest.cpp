#include "core/WholeModel.h"

#include "core/JsonPrefsStore.h"

#include "support/DroppedCapabilities.h"
#include "support/qt/EventLoop.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

namespace zolva::test {

namespace {

using Texts = std::vector<std::string>;

class ModelPrefs : public WholeModel
{
protected:
    template <typename T>
    T stored(const std::string& key)
    {
        return std::get<T>(store.values.at(key));
    }
};

/// The settings over a file, as two processes have them.
class StoredPrefs : public WholeModel
{
protected:
    /// One process.
    struct Process
    {
        explicit Process(StoredPrefs& test)
            : store(test.file()),
              live(std::make_unique<ScriptedRunner>(test.script), test.held.scans(),
                   MoLocation{"/nowhere/mole", MoLocation::Kind::Shipped}),
              settings(store, live)
        {
            settings.loadPrefs();
        }
        void add(const std::string& entry)
        {
            settings.exclusions().setWlDraft(entry);
            settings.exclusions().addExclusion();
        }
        [[nodiscard]] const Texts& list() const { return settings.exclusions().whitelist(); }

        JsonPrefsStore store;
        LiveData live;
        AppSettings settings;
    };

    [[nodiscard]] std::string file() const { return tree.path("zolva/preferences.json"); }
    void write(const std::string& content) { tree.text("zolva/preferences.json", content); }
    void setMode(unsigned mode) { tree.setMode("zolva/preferences.json", mode); }
    [[nodiscard]] Settings onDisk() const
    {
        JsonPrefsStore fresh(file());
        return Prefs(fresh).load();
    }
};

} // namespace

TEST_F(StoredPrefs, ExclusionsThatCouldNotBeReadAtTheStartAreNotWrittenOver)
{
    write(R"({"zolva.whitelist": ["~/a", "~/b"], "zolva.themeMode": "dark",
              "zolva.keepInTrash": false})");
    setMode(0);
    withoutOverridingPermissions([this] {
        Process window(*this);
        EXPECT_TRUE(window.list().empty());
        EXPECT_NE(window.settings.unread(), "");
        setMode(0600);
        window.settings.setPoll(7);
        EXPECT_EQ(onDisk(), (Settings{ThemeMode::Dark, 7, 80, true, false, {"~/a", "~/b"}}));
        EXPECT_EQ(window.list(), (Texts{"~/a", "~/b"}));
        EXPECT_EQ(window.settings.themeMode(), ThemeMode::Dark);
        EXPECT_FALSE(window.settings.keepInTrash());
        EXPECT_EQ(window.settings.poll(), 7);
        EXPECT_EQ(window.settings.unread(), "");
    });
}

TEST_F(StoredPrefs, WhatWasChangedWhileNothingCouldBeReadIsMergedLater)
{
    write(R"({"zolva.whitelist": ["~/a"], "zolva.requireTouchID": false,
              "zolva.themeMode": "dark"})");
    setMode(0);
    withoutOverridingPermissions([this] {
        Process window(*this);
        window.add("~/mine");
        window.settings.setTouchid(false);
        window.settings.setTouchid(true); // on purpose, though it is the default
        setMode(0600);
        window.settings.takeOthersExclusions();
        EXPECT_EQ(window.list(), (Texts{"~/a", "~/mine"}));
        EXPECT_TRUE(window.settings.touchid());
        EXPECT_EQ(window.settings.themeMode(), ThemeMode::Dark);
        window.settings.setPoll(2);
        EXPECT_EQ(onDisk(), (Settings{ThemeMode::Dark, 2, 80, true, true, {"~/a", "~/mine"}}));
    });
}

TEST_F(StoredPrefs, TwoProcessesThatAddExclusionsKeepBoth)
{
    Process window(*this);
    Process other(*this);
    window.add("~/mine");
    other.add("~/theirs");
    window.settings.exclusions().removeExclusion("~/mine");
    window.add("~/new");
    EXPECT_EQ(onDisk().whitelist, (Texts{"~/theirs", "~/new"}));
    EXPECT_EQ(window.list(), (Texts{"~/theirs", "~/new"}));
}

TEST_F(StoredPrefs, AnExclusionAddedElsewhereIsHonouredAndKeptPastASaveThatWasRefused)
{
    write(R"({"zolva.whitelist": ["~/a"]})");
    Process window(*this);
    const int turn =
        ::open(tree.path("zolva/preferences.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(turn, 0);
    ASSERT_EQ(::flock(turn, LOCK_EX), 0);
    window.add("~/mine");
    EXPECT_EQ(onDisk().whitelist, (Texts{"~/a"}));
    write(R"({"zolva.whitelist": ["~/a", "~/theirs"]})");
    window.settings.takeOthersExclusions();
    EXPECT_EQ(window.list(), (Texts{"~/a", "~/mine", "~/theirs"}));
    ::close(turn);
    window.settings.setPoll(2);
    EXPECT_EQ(onDisk().whitelist, (Texts{"~/a", "~/theirs", "~/mine"}));
}

TEST_F(StoredPrefs, ManyProcessesAtOnceLoseNoneOfTheirExclusions)
{
    std::vector<pid_t> children;
    Texts expected;
    for (int n = 0; n < 4; ++n) {
        const std::string own = "/" + std::to_string(n) + ".";
        expected.insert(expected.end(), {own + "0", own + "1", own + "2"});
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Process mine(*this);
            for (int i = 0; i < 3; ++i) {
                mine.add(own + std::to_string(i));
            }
            // What did not get its turn in time is written with a later change.
            const auto isWritten = [this, last = own + "2"] {
                const Texts list = onDisk().whitelist;
                return std::find(list.begin(), list.end(), last) != list.end();
            };
            for (int i = 0; i < 50 && !isWritten(); ++i) {
                mine.settings.savePrefs();
            }
            ::_exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    EXPECT_THAT(onDisk().whitelist, ::testing::UnorderedElementsAreArray(expected));
}

TEST_F(ModelPrefs, WhatIsStoredIsTakenOverAndNothingIsWrittenBack)
{
    store.values = {{"zolva.themeMode", std::string("dark")},
                    {"zolva.pollInterval", std::int64_t{7}},
                    {"zolva.diskThreshold", std::int64_t{55}},
                    {"zolva.requireTouchID", false},
                    {"zolva.keepInTrash", false},
                    {"zolva.whitelist", Texts{"~/a", "", "~/b"}}};
    AppModel& m = start();
    EXPECT_EQ(m.settings().themeMode(), ThemeMode::Dark);
    EXPECT_EQ(m.settings().poll(), 7);
    EXPECT_EQ(m.live().pollInterval(), std::chrono::seconds(7));
    EXPECT_EQ(m.settings().threshold(), 55);
    EXPECT_FALSE(m.settings().touchid());
    EXPECT_FALSE(m.settings().keepInTrash());
    EXPECT_EQ(m.exclusions().whitelist(), (Texts{"~/a", "~/b"}));
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(ModelPrefs, AnUnknownThemeIsTheSystemsAndTheNextSaveWritesThat)
{
    store.values["zolva.themeMode"] = std::string("sepia");
    AppModel& m = start();
    EXPECT_EQ(m.settings().themeMode(), ThemeMode::System);
    m.settings().setTouchid(true);
    EXPECT_EQ(stored<std::string>("zolva.themeMode"), "system");
}

TEST_F(ModelPrefs, StoredNumbersOutOfBoundsAreReadWithinThem)
{
    for (const auto& [poll, read] : {std::pair<std::int64_t, std::int64_t>{0, 1}, {90, 60}}) {
        store.values["zolva.pollInterval"] = poll;
        EXPECT_EQ(start().settings().poll(), read);
    }
    for (const auto& [threshold, read] :
         {std::pair<std::int64_t, std::int64_t>{0, 1}, {150, 100}}) {
        store.values["zolva.diskThreshold"] = threshold;
        EXPECT_EQ(start().settings().threshold(), read);
    }
}

TEST_F(ModelPrefs, EveryChangeOfOneWritesAllSixAtOnce)
{
    AppSettings& settings = start().settings();
    const std::vector<std::function<void()>> changes = {
        [&] { settings.setThemeMode(ThemeMode::Dark); },
        [&] { settings.setPoll(5); },
        [&] { settings.setThreshold(90); },
        [&] { settings.setTouchid(false); },
        [&] { settings.setKeepInTrash(false); },
        [&] { settings.exclusions().setWhitelist({"~/x"}); }};
    for (const auto& change : changes) {
        store.writes.clear();
        change();
        ASSERT_EQ(store.writes.size(), 1U);
        EXPECT_EQ(store.writes[0].size(), 6U);
    }
    EXPECT_EQ(store.writes[0], (RecordingStore::Written{{"zolva.themeMode", std::string("dark")},
                                                        {"zolva.pollInterval", std::int64_t{5}},
                                                        {"zolva.diskThreshold", std::int64_t{90}},
                                                        {"zolva.requireTouchID", false},
                                                        {"zolva.keepInTrash", false},
                                                        {"zolva.whitelist", Texts{"~/x"}}}));
}

TEST_F(ModelPrefs, SettingTheSameValueSavesJustTheSameAndTellsNobody)
{
    AppSettings& settings = start().settings();
    const Told theme(&settings, &AppSettings::themeModeChanged);
    const Told poll(&settings, &AppSettings::pollChanged);
    const Told threshold(&settings, &AppSettings::thresholdChanged);
    const Told touchid(&settings, &AppSettings::touchidChanged);
    const Told keep(&settings, &AppSettings::keepInTrashChanged);
    settings.setThemeMode(settings.themeMode());
    settings.setPoll(settings.poll());
    settings.setThreshold(settings.threshold());
    settings.setTouchid(settings.touchid());
    settings.setKeepInTrash(settings.keepInTrash());
    settings.exclusions().setWhitelist(settings.exclusions().whitelist());
    EXPECT_EQ(store.writes.size(), 6U);
    EXPECT_EQ(theme.count() + poll.count() + threshold.count() + touchid.count() + keep.count(), 0);
}

TEST_F(ModelPrefs, AChangedFieldIsTold)
{
    AppSettings& settings = start().settings();
    const Told theme(&settings, &AppSettings::themeModeChanged);
    const Told poll(&settings, &AppSettings::pollChanged);
    const Told threshold(&settings, &AppSettings::thresholdChanged);
    const Told touchid(&settings, &AppSettings::touchidChanged);
    const Told keep(&settings, &AppSettings::keepInTrashChanged);
    settings.setThemeMode(ThemeMode::Light);
    settings.setPoll(9);
    settings.setThreshold(9);
    settings.setTouchid(false);
    settings.setKeepInTrash(false);
    EXPECT_EQ(theme.count(), 1);
    EXPECT_EQ(poll.count(), 1);
    EXPECT_EQ(threshold.count(), 1);
    EXPECT_EQ(touchid.count(), 1);
    EXPECT_EQ(keep.count(), 1);
}

TEST_F(ModelPrefs, AFieldKeepsWhatItWasGivenAndOnlyTheWrittenValueIsClamped)
{
    AppModel& m = start();
    m.settings().setPoll(500);
    m.settings().setThreshold(-3);
    EXPECT_EQ(m.settings().poll(), 500);
    EXPECT_EQ(m.settings().threshold(), -3);
    EXPECT_EQ(m.live().pollInterval(), std::chrono::seconds(500));
    EXPECT_EQ(stored<std::int64_t>("zolva.pollInterval"), 60);
    EXPECT_EQ(stored<std::int64_t>("zolva.diskThreshold"), 1);
}

TEST_F(ModelPrefs, NothingIsSavedBeforeThePreferencesAreLoaded)
{
    LiveData live(std::make_unique<ScriptedRunner>(script), held.scans(),
                  MoLocation{"/nowhere/mole", MoLocation::Kind::Shipped});
    AppSettings settings(store, live);
    settings.setPoll(4);
    settings.exclusions().setWhitelist({"~/x"});
    settings.savePrefs();
    EXPECT_FALSE(settings.prefsLoaded());
    EXPECT_TRUE(store.writes.empty());
    settings.loadPrefs();
    EXPECT_TRUE(settings.prefsLoaded());
    EXPECT_EQ(settings.poll(), 1);
    EXPECT_TRUE(store.writes.empty());
    settings.savePrefs();
    EXPECT_EQ(store.writes.size(), 1U);
}

TEST_F(ModelPrefs, AnotherIntervalReplacesARunningStream)
{
    AppModel& m = start();
    m.live().retainStatus();
    m.settings().setPoll(3);
    EXPECT_EQ(script.intervals, (std::vector<std::chrono::seconds>{std::chrono::seconds(1),
                                                                   std::chrono::seconds(3)}));
    EXPECT_EQ(script.stopped, 1);
    m.settings().setPoll(3);
    EXPECT_EQ(script.intervals.size(), 2U);
}

TEST_F(ModelPrefs, AnExclusionIsSavedAsItIsAddedAndAsItIsRemoved)
{
    AppModel& m = start();
    m.exclusions().setWlDraft("~/Projects");
    EXPECT_TRUE(store.writes.empty());
    m.exclusions().addExclusion();
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), (Texts{"~/Projects"}));
    m.exclusions().removeExclusion("~/Projects");
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), Texts{});
    EXPECT_EQ(store.writes.size(), 2U);
}

TEST_F(ModelPrefs, AnEmptyTextInTheListIsLostOnWritingAndStaysInTheField)
{
    AppModel& m = start();
    m.exclusions().setWhitelist({"~/a", ""});
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), (Texts{"~/a"}));
    EXPECT_EQ(m.exclusions().whitelist(), (Texts{"~/a", ""}));
}

TEST_F(ModelPrefs, AChangeOfASettingKeepsWhatAnotherProcessHasAddedToTheExclusions)
{
    store.values["zolva.whitelist"] = Texts{"~/a"};
    AppModel& m = start();
    store.values["zolva.whitelist"] = Texts{"~/a", "~/theirs"};
    m.settings().setTouchid(false);
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), (Texts{"~/a", "~/theirs"}));
    EXPECT_EQ(m.exclusions().whitelist(), (Texts{"~/a", "~/theirs"}));
}

TEST_F(ModelPrefs, ExclusionsStoredSinceTheStartAreNotWrittenOver)
{
    AppModel& m = start();
    store.values["zolva.whitelist"] = Texts{"~/a", "~/b"};
    m.exclusions().setWlDraft("~/c");
    m.exclusions().addExclusion();
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), (Texts{"~/a", "~/b", "~/c"}));
    EXPECT_EQ(m.exclusions().whitelist(), (Texts{"~/c", "~/a", "~/b"}));
}

TEST_F(ModelPrefs, AListThatIsGoneFromTheDiskComesBackWithTheNextChange)
{
    store.values["zolva.whitelist"] = Texts{"~/a", "~/b"};
    AppModel& m = start();
    store.values.erase("zolva.whitelist");
    m.settings().setTouchid(false);
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), (Texts{"~/a", "~/b"}));
}

TEST_F(ModelPrefs, WhatCouldNotBeReadAtTheStartIsTakenOverAtTheNextLook)
{
    store.told.unread = "Permission denied";
    AppModel& m = start();
    EXPECT_EQ(m.settings().unread(), "Permission denied");
    store.values = {{"zolva.themeMode", std::string("dark")}, {"zolva.whitelist", Texts{"~/a"}}};
    store.told = {};
    m.settings().takeOthersExclusions();
    EXPECT_EQ(m.settings().unread(), "");
    EXPECT_EQ(m.settings().themeMode(), ThemeMode::Dark);
    EXPECT_EQ(m.exclusions().whitelist(), (Texts{"~/a"}));
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(ModelPrefs, WhileNothingCouldBeReadOnlyWhatWasChangedIsOfferedToTheStore)
{
    store.told.unread = "Permission denied";
    AppModel& m = start();
    m.settings().setPoll(9);
    m.settings().setPoll(1);
    m.exclusions().setWlDraft("~/mine");
    m.exclusions().addExclusion();
    EXPECT_EQ(store.writes,
              (std::vector<RecordingStore::Written>{{{"zolva.pollInterval", std::int64_t{9}}},
                                                    {{"zolva.pollInterval", std::int64_t{1}}},
                                                    {{"zolva.whitelist", Texts{"~/mine"}}}}));
    store.told = {};
    m.settings().setPoll(3);
    m.settings().setPoll(4);
    EXPECT_EQ(store.writes[3].size(), 1U);
    EXPECT_EQ(store.writes[4].size(), 6U);
}

TEST_F(ModelPrefs, AnExclusionTakenOutHereStaysOutWhateverAnotherProcessAdds)
{
    store.values["zolva.whitelist"] = Texts{"~/a", "~/b"};
    AppModel& m = start();
    store.values["zolva.whitelist"] = Texts{"~/a", "~/b", "~/theirs"};
    m.exclusions().removeExclusion("~/a");
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), (Texts{"~/b", "~/theirs"}));
}

TEST_F(ModelPrefs, WhatAnotherProcessTookOutOfTheExclusionsStaysProtectedHere)
{
    store.values["zolva.whitelist"] = Texts{"~/a", "~/b"};
    AppModel& m = start();
    store.values["zolva.whitelist"] = Texts{"~/b"};
    m.settings().takeOthersExclusions();
    EXPECT_EQ(m.exclusions().whitelist(), (Texts{"~/a", "~/b"}));
}

TEST_F(ModelPrefs, TakingTheExclusionsOfOthersIsToldAndWritesNothing)
{
    AppModel& m = start();
    store.values["zolva.whitelist"] = Texts{"~/theirs"};
    const Told told(&m.exclusions(), &Exclusions::whitelistChanged);
    m.settings().takeOthersExclusions();
    m.settings().takeOthersExclusions();
    EXPECT_EQ(told.count(), 1);
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(ModelPrefs, AnExclusionAddedByWhoHearsOfTheirsIsSaved)
{
    AppModel& m = start();
    store.values["zolva.whitelist"] = Texts{"~/theirs"};
    const QObject listener;
    QObject::connect(&m.exclusions(), &Exclusions::whitelistChanged, &listener, [&m] {
        m.exclusions().setWlDraft("~/mine");
        m.exclusions().addExclusion();
    });
    m.settings().takeOthersExclusions();
    EXPECT_EQ(stored<Texts>("zolva.whitelist"), (Texts{"~/theirs", "~/mine"}));
}

TEST_F(ModelPrefs, TheIntervalIsToldInSeconds)
{
    AppSettings& settings = start().settings();
    EXPECT_EQ(settings.pollText(), "1 second");
    settings.setPoll(2);
    EXPECT_EQ(settings.pollText(), "2 seconds");
    settings.setPoll(0);
    EXPECT_EQ(settings.pollText(), "0 seconds");
}

TEST_F(ModelPrefs, TheThemeIsTheOneChosenOrTheDesktops)
{
    AppModel& m = start();
    const Told told(&m, &AppModel::isLightThemeChanged);
    for (const bool dark : {true, false}) {
        appearance.dark = dark;
        Q_EMIT appearance.changed();
        pumpOnce();
        m.settings().setThemeMode(ThemeMode::Light);
        EXPECT_TRUE(m.isLightTheme());
        m.settings().setThemeMode(ThemeMode::Dark);
        EXPECT_FALSE(m.isLightTheme());
        m.settings().setThemeMode(ThemeMode::System);
        EXPECT_EQ(m.isLightTheme(), !dark);
    }
    EXPECT_EQ(told.count(), 8);
}

} // namespace zolva::test
