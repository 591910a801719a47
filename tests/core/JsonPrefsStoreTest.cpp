#include "core/JsonPrefsStore.h"

#include "core/SystemPrefsStore.h"

#include "support/DroppedCapabilities.h"
#include "support/RecordedLog.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>

namespace zolva {
namespace {

using nlohmann::json;
using Texts = std::vector<std::string>;

class JsonPrefs : public ::testing::Test
{
protected:
    [[nodiscard]] std::string path() const { return m_tree.path("zolva/preferences.json"); }
    void stored(const std::string& content) { m_tree.text("zolva/preferences.json", content); }

    [[nodiscard]] static std::string contentOf(const std::string& file)
    {
        std::ifstream stream(file, std::ios::binary);
        std::ostringstream content;
        content << stream.rdbuf();
        return content.str();
    }

    [[nodiscard]] json onDisk() const { return json::parse(contentOf(path()), nullptr, false); }
    [[nodiscard]] static bool isThere(const std::string& file)
    {
        struct stat status
        {};
        return ::lstat(file.c_str(), &status) == 0;
    }

    test::TempTree m_tree;
    test::RecordedLog m_log;
    JsonPrefsStore m_store{path()};
};

TEST_F(JsonPrefs, EveryTypeComesBackInAnotherStoreOfTheSameFile)
{
    m_store.write({{"b", true},
                   {"w", std::int64_t{-7}},
                   {"n", 0.5},
                   {"t", std::string("ä")},
                   {"l", Texts{"x", ""}}});
    JsonPrefsStore other(path());
    EXPECT_TRUE(other.boolean("b"));
    EXPECT_EQ(other.wholeNumber("w"), -7);
    EXPECT_EQ(other.number("n"), 0.5);
    EXPECT_EQ(other.text("t"), "ä");
    EXPECT_EQ(other.texts("l"), (Texts{"x", ""}));
    EXPECT_FALSE(other.has("none"));
}

TEST_F(JsonPrefs, AStoredZeroIsPresentAndANullIsNot)
{
    stored(R"({"zero": 0, "no": false, "null": null})");
    EXPECT_TRUE(m_store.has("zero"));
    EXPECT_TRUE(m_store.has("no"));
    EXPECT_FALSE(m_store.has("null"));
}

TEST_F(JsonPrefs, KeysItDoesNotKnowAreKept)
{
    stored(R"({"theirs": {"deep": [1, {"x": null}]}, "zolva.poll": 3})");
    m_store.write({{"zolva.poll", std::int64_t{4}}});
    EXPECT_EQ(onDisk(), json::parse(R"({"theirs": {"deep": [1, {"x": null}]}, "zolva.poll": 4})"));
}

TEST_F(JsonPrefs, TwoStoresDoNotUndoEachOthersKeys)
{
    JsonPrefsStore other(path());
    m_store.write({{"a", std::int64_t{1}}});
    other.write({{"b", std::int64_t{2}}});
    m_store.write({{"a", std::int64_t{3}}});
    EXPECT_EQ(onDisk(), (json{{"a", 3}, {"b", 2}}));
    EXPECT_EQ(m_store.wholeNumber("b"), 2);
    EXPECT_EQ(other.wholeNumber("a"), 3);
}

TEST_F(JsonPrefs, ManyProcessesAtOnceLoseNoneOfTheirKeys)
{
    constexpr int processes = 4;
    constexpr int writes = 5;
    std::vector<pid_t> children;
    for (int n = 0; n < processes; ++n) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            JsonPrefsStore mine(path());
            for (int i = 0; i < writes; ++i) {
                mine.write({{std::to_string(n) + "." + std::to_string(i), true}});
            }
            // What did not get its turn in time is written with a later change.
            const std::string last = std::to_string(n) + ".last";
            for (int i = 0; i < 50 && !JsonPrefsStore(path()).has(last); ++i) {
                mine.write({{last, std::int64_t{i}}});
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
    JsonPrefsStore after(path());
    for (int n = 0; n < processes; ++n) {
        for (int i = 0; i < writes; ++i) {
            EXPECT_TRUE(after.boolean(std::to_string(n) + "." + std::to_string(i))) << n << i;
        }
    }
}

TEST_F(JsonPrefs, ManyProcessesAtOnceLoseNoneOfTheirEntriesInOneList)
{
    constexpr int processes = 4;
    constexpr int writes = 5;
    stored(R"({"l": ["old", "gone"]})");
    std::vector<pid_t> children;
    for (int n = 0; n < processes; ++n) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            JsonPrefsStore mine(path());
            const std::string own = std::to_string(n) + ".";
            static_cast<void>(mine.texts("l")); // what it goes by is older than what it changes
            mine.write({{"l", TextsChange{{own + "given up"}, {"gone"}}}});
            for (int i = 0; i < writes; ++i) {
                mine.write({{"l", TextsChange{{own + std::to_string(i)}, {own + "given up"}}}});
            }
            // What did not get its turn in time is written with a later change.
            const auto isWritten = [this, last = own + std::to_string(writes - 1)] {
                const Texts list = JsonPrefsStore(path()).texts("l").value_or(Texts());
                return std::find(list.begin(), list.end(), last) != list.end();
            };
            for (int i = 0; i < 50 && !isWritten(); ++i) {
                mine.write({});
            }
            ::_exit(0);
        }
        children.push_back(child);
    }
    Texts expected = {"old"};
    for (int n = 0; n < processes; ++n) {
        int status = 0;
        ASSERT_EQ(::waitpid(children[static_cast<std::size_t>(n)], &status, 0),
                  children[static_cast<std::size_t>(n)]);
        EXPECT_EQ(status, 0);
        for (int i = 0; i < writes; ++i) {
            expected.push_back(std::to_string(n) + "." + std::to_string(i));
        }
    }
    EXPECT_THAT(JsonPrefsStore(path()).texts("l").value_or(Texts()),
                ::testing::UnorderedElementsAreArray(expected));
}

TEST_F(JsonPrefs, WhatOthersAddIsSeenAndKeptPastAChangeThatWasRefused)
{
    stored(R"({"l": ["old", "gone"], "n": 1})");
    const int held =
        ::open(m_tree.path("zolva/preferences.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(held, 0);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    m_store.write({{"l", TextsChange{{"mine"}, {"gone"}}}});
    EXPECT_EQ(m_log.messages(), (Texts{"preferences not written: another process holds them"}));
    EXPECT_EQ(m_store.texts("l"), (Texts{"old", "mine"}));
    stored(R"({"l": ["old", "gone", "theirs, with another length"], "n": 1})");
    EXPECT_EQ(m_store.texts("l"), (Texts{"old", "theirs, with another length", "mine"}));
    ::close(held);
    m_store.write({{"n", std::int64_t{2}}});
    EXPECT_EQ(onDisk(), (json{{"l", {"old", "theirs, with another length", "mine"}}, {"n", 2}}));
}

TEST_F(JsonPrefs, ChangesThatWereRefusedAreMadeOneAfterTheOther)
{
    stored(R"({"l": ["a"], "whole": ["x"]})");
    const int held =
        ::open(m_tree.path("zolva/preferences.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(held, 0);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    m_store.write({{"l", TextsChange{{"b", "c"}, {}}}, {"whole", Texts{"y"}}});
    m_store.write({{"l", TextsChange{{"d"}, {"b"}}}, {"whole", TextsChange{{"z"}, {}}}});
    ::close(held);
    m_store.write({});
    EXPECT_EQ(onDisk(), (json{{"l", {"a", "c", "d"}}, {"whole", {"y", "z"}}}));
}

TEST_F(JsonPrefs, AChangeOfWhatIsNoListOfTextsBeginsWithAnEmptyOne)
{
    stored(R"({"l": ["a", 7], "n": 7})");
    m_store.write({{"l", TextsChange{{"b"}, {}}},
                   {"n", TextsChange{{"b"}, {}}},
                   {"none", TextsChange{{}, {"b"}}}});
    EXPECT_EQ(onDisk(), (json{{"l", {"b"}}, {"n", {"b"}}, {"none", json::array()}}));
}

TEST_F(JsonPrefs, TheFileIsTheUsersOwnAndSoIsItsFolder)
{
    m_store.write({{"a", true}});
    struct stat status
    {};
    ASSERT_EQ(::stat(path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0600u);
    ASSERT_EQ(::stat(m_tree.path("zolva").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0077u, 0u);
}

TEST_F(JsonPrefs, ALinkToTheFileStaysALink)
{
    m_tree.text("dotfiles/zolva.json", R"({"a": 1})");
    m_tree.link("zolva/preferences.json", m_tree.path("dotfiles/zolva.json"));
    EXPECT_EQ(m_store.wholeNumber("a"), 1);
    m_store.write({{"a", std::int64_t{2}}});
    EXPECT_EQ(json::parse(contentOf(m_tree.path("dotfiles/zolva.json"))), (json{{"a", 2}}));
    struct stat status
    {};
    ASSERT_EQ(::lstat(path().c_str(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST_F(JsonPrefs, ALinkToAFileThatIsNotThereYetIsAFirstStartAndStaysALink)
{
    m_tree.folder("dotfiles");
    m_tree.link("zolva/preferences.json", m_tree.path("dotfiles/zolva.json"));
    EXPECT_EQ(m_store.trouble().unread, "");
    m_store.write({{"a", std::int64_t{2}}});
    EXPECT_EQ(json::parse(contentOf(m_tree.path("dotfiles/zolva.json"))), (json{{"a", 2}}));
    EXPECT_TRUE(std::filesystem::is_symlink(path()));
}

TEST_F(JsonPrefs, ALinkIntoAFolderThatIsNotThereIsNotRead)
{
    m_tree.link("zolva/preferences.json", "../disk/dotfiles/zolva.json");
    EXPECT_EQ(m_store.trouble().unread, "No such file or directory");
    m_store.write({{"a", std::int64_t{2}}});
    EXPECT_TRUE(std::filesystem::is_symlink(path()));
    EXPECT_FALSE(isThere(m_tree.path("disk")));
    m_tree.text("disk/dotfiles/zolva.json", R"({"b": 1})");
    EXPECT_EQ(m_store.wholeNumber("b"), 1);
    EXPECT_EQ(m_store.trouble().unread, "");
}

TEST_F(JsonPrefs, ADamagedFileBehindALinkIsATroubleAtEachLookAndTheLinkStays)
{
    const std::string file = m_tree.text("dotfiles/zolva.json", "{");
    m_tree.link("zolva/preferences.json", file);
    EXPECT_EQ(m_store.trouble().damaged, file + ".damaged");
    EXPECT_EQ(m_store.trouble().damaged, file + ".damaged");
    EXPECT_EQ(JsonPrefsStore(path()).trouble().damaged, file + ".damaged");
    m_store.write({{"a", std::int64_t{2}}});
    EXPECT_EQ(json::parse(contentOf(file)), (json{{"a", 2}}));
    EXPECT_TRUE(std::filesystem::is_symlink(path()));
}

TEST_F(JsonPrefs, ATextThatIsNotUtf8ComesBackByteForByteAndTheFileStaysJson)
{
    const std::string odd = "/h/50%\xFF\xC3/\xE2\x82";
    m_store.write({{"t", odd}, {"l", Texts{odd, "/h/50%41", "ä"}}});
    ASSERT_TRUE(onDisk().is_object());
    JsonPrefsStore other(path());
    EXPECT_EQ(other.text("t"), odd);
    EXPECT_EQ(other.texts("l"), (Texts{odd, "/h/50%41", "ä"}));
}

struct Damage
{
    std::string name;
    std::string content;
};

void PrintTo(const Damage& damage, std::ostream* stream)
{
    *stream << damage.name;
}

class DamagedPrefs : public JsonPrefs, public ::testing::WithParamInterface<Damage>
{};

TEST_P(DamagedPrefs, AreSetAsideWithALineInTheLogAndDefaultsAreUsed)
{
    stored(GetParam().content);
    EXPECT_FALSE(m_store.has("a"));
    EXPECT_EQ(m_store.wholeNumber("a"), 0);
    EXPECT_FALSE(isThere(path()));
    EXPECT_TRUE(contentOf(path() + ".damaged") == GetParam().content);
    EXPECT_EQ(m_log.messages(),
              (Texts{"preferences damaged, set aside as " + path() + ".damaged"}));
    m_store.write({{"a", std::int64_t{5}}});
    EXPECT_EQ(onDisk(), (json{{"a", 5}}));
}

const std::vector<Damage> damages = {
    {"Empty", ""},
    {"Truncated", R"({"a": 1)"},
    {"List", R"([{"a": 1}])"},
    {"Number", "7"},
    {"NoText", "\xFF\xFE"},
    {"NoUtf8", "{\"a\": \"\xFF\"}"},
    {"MoreBehind", R"({"a": 1} x)"},
    {"NumberOutOfRange", R"({"a": 1e999})"},
    {"HalfASurrogate", R"({"a": "\ud800"})"},
    {"NulByte", std::string("{\"a\"\0: 1}", 9)},
    {"TooDeep", R"({"a": )" + std::string(100, '[') + std::string(100, ']') + "}"},
    {"HundredThousandBrackets", R"({"a": )" + std::string(100'000, '[')},
    {"TooLarge", "{\"a\": \"" + std::string(std::size_t{5} << 20, 'x') + "\"}"},
};

INSTANTIATE_TEST_SUITE_P(Each, DamagedPrefs, ::testing::ValuesIn(damages),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(JsonPrefs, DamageFoundAtAWriteIsSetAsideToo)
{
    m_store.write({{"a", std::int64_t{1}}});
    stored("{");
    m_store.write({{"b", std::int64_t{2}}});
    EXPECT_EQ(contentOf(path() + ".damaged"), "{");
    EXPECT_EQ(onDisk(), (json{{"b", 2}}));
}

TEST_F(JsonPrefs, ANewDamageIsSetAsideLikeTheFirst)
{
    stored("{");
    EXPECT_FALSE(m_store.has("a"));
    stored("{{");
    EXPECT_FALSE(m_store.has("a"));
    EXPECT_EQ(contentOf(path() + ".damaged"), "{{");
}

TEST_F(JsonPrefs, AFolderInThePlaceOfTheFileIsToldAndLeftAlone)
{
    m_tree.folder("zolva/preferences.json/inner");
    EXPECT_FALSE(m_store.has("a"));
    m_store.write({{"a", std::int64_t{5}}});
    EXPECT_EQ(m_store.wholeNumber("a"), 5);
    EXPECT_TRUE(isThere(m_tree.path("zolva/preferences.json/inner")));
    EXPECT_THAT(m_log.messages(),
                ::testing::ElementsAre(::testing::StartsWith("preferences not read: "),
                                       ::testing::StartsWith("preferences not written: ")));
}

TEST_F(JsonPrefs, APipeInThePlaceOfTheFileIsNotWaitedFor)
{
    m_tree.fifo("zolva/preferences.json");
    EXPECT_FALSE(m_store.has("a"));
}

TEST_F(JsonPrefs, AFileThatMayNotBeReadIsNotReplaced)
{
    stored(R"({"theirs": 1})");
    m_tree.setMode("zolva/preferences.json", 0);
    test::withoutOverridingPermissions([&] {
        EXPECT_FALSE(m_store.has("theirs"));
        m_store.write({{"a", std::int64_t{5}}});
        EXPECT_EQ(m_store.wholeNumber("a"), 5);
        EXPECT_THAT(m_log.messages(),
                    ::testing::ElementsAre(::testing::StartsWith("preferences not read: "),
                                           ::testing::StartsWith("preferences not written: ")));
    });
    m_tree.setMode("zolva/preferences.json", 0600);
    EXPECT_EQ(onDisk(), (json{{"theirs", 1}}));
}

TEST_F(JsonPrefs, AFileThatCanBeReadAgainIsReadThoughItNeverChanged)
{
    stored(R"({"l": ["a", "b"], "n": 1})");
    m_tree.setMode("zolva/preferences.json", 0);
    test::withoutOverridingPermissions([&] {
        EXPECT_FALSE(m_store.has("n"));
        EXPECT_FALSE(m_store.has("l"));
        EXPECT_NE(m_store.trouble().unread, "");
        m_tree.setMode("zolva/preferences.json", 0600);
        EXPECT_EQ(m_store.trouble().unread, "");
        EXPECT_EQ(m_store.texts("l"), (Texts{"a", "b"}));
        m_tree.setMode("zolva/preferences.json", 0);
        m_store.write({{"l", TextsChange{{"c"}, {}}}});
        m_tree.setMode("zolva/preferences.json", 0600);
        m_store.write({{"n", std::int64_t{2}}});
        EXPECT_EQ(onDisk(), (json{{"l", {"a", "b", "c"}}, {"n", 2}}));
        EXPECT_THAT(m_log.messages(),
                    ::testing::ElementsAre(::testing::StartsWith("preferences not read: "),
                                           ::testing::StartsWith("preferences not written: ")));
    });
}

TEST_F(JsonPrefs, WhatWasReadStillHoldsWhileTheFileCannotBeRead)
{
    stored(R"({"l": ["a"]})");
    test::withoutOverridingPermissions([&] {
        EXPECT_EQ(m_store.texts("l"), (Texts{"a"}));
        stored(R"({"l": ["a", "b"]})");
        m_tree.setMode("zolva/preferences.json", 0);
        EXPECT_EQ(m_store.texts("l"), (Texts{"a"}));
        EXPECT_EQ(m_store.texts("l"), (Texts{"a"}));
        EXPECT_EQ(m_store.trouble().unread, "");
        EXPECT_EQ(m_log.messages().size(), 1U);
        m_tree.setMode("zolva/preferences.json", 0600);
        EXPECT_EQ(m_store.texts("l"), (Texts{"a", "b"}));
    });
}

TEST_F(JsonPrefs, AFolderThatMayNotBeLookedIntoMayHoldAFileAndIsTold)
{
    stored(R"({"n": 1})");
    m_tree.setMode("zolva", 0);
    test::withoutOverridingPermissions([&] {
        EXPECT_NE(m_store.trouble().unread, "");
        EXPECT_THAT(m_log.messages(),
                    ::testing::ElementsAre(::testing::StartsWith("preferences not read: ")));
        m_tree.setMode("zolva", 0700);
        EXPECT_EQ(m_store.wholeNumber("n"), 1);
    });
    m_tree.setMode("zolva", 0700);
}

TEST_F(JsonPrefs, AFirstStartIsNoTrouble)
{
    EXPECT_EQ(m_store.trouble().unread, "");
    EXPECT_EQ(m_store.trouble().damaged, "");
}

TEST_F(JsonPrefs, ADamagedFileIsATroubleAsLongAsItLiesAside)
{
    stored("{");
    EXPECT_EQ(m_store.trouble().damaged, path() + ".damaged");
    EXPECT_EQ(JsonPrefsStore(path()).trouble().damaged, path() + ".damaged");
    m_store.write({{"a", true}});
    EXPECT_EQ(m_store.trouble().damaged, path() + ".damaged");
    ASSERT_TRUE(std::filesystem::remove(path() + ".damaged"));
    EXPECT_EQ(m_store.trouble().damaged, "");
}

TEST_F(JsonPrefs, ADamagedFileThatCannotBeSetAsideIsNotReplaced)
{
    stored("{");
    m_tree.folder("zolva/preferences.json.damaged/inner");
    EXPECT_EQ(m_store.trouble().damaged, path());
    m_store.write({{"a", true}});
    EXPECT_EQ(contentOf(path()), "{");
    EXPECT_TRUE(m_store.boolean("a"));
    EXPECT_THAT(m_log.messages(),
                ::testing::Contains(::testing::StartsWith("preferences not written: ")));
}

TEST_F(JsonPrefs, InAFolderThatCannotBeWrittenTheValuesHoldForThisProcess)
{
    m_tree.setMode("", 0500);
    test::withoutOverridingPermissions([&] {
        m_store.write({{"a", std::int64_t{5}}});
        EXPECT_EQ(m_store.wholeNumber("a"), 5);
        EXPECT_THAT(m_log.messages(),
                    ::testing::ElementsAre(::testing::StartsWith("preferences not written: ")));
    });
    EXPECT_FALSE(isThere(m_tree.path("zolva")));
}

TEST_F(JsonPrefs, WhatAFullDiskRefusedIsWrittenWithTheNextChange)
{
    stored(R"({"old": 1})");
    test::withoutOverridingPermissions([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit nothing{0, RLIM_INFINITY};
        const rlimit enough{RLIM_INFINITY, RLIM_INFINITY};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &nothing), 0);
        m_store.write({{"a", std::int64_t{5}}});
        EXPECT_EQ(onDisk(), (json{{"old", 1}}));
        EXPECT_EQ(m_store.wholeNumber("a"), 5);
        EXPECT_EQ(m_store.wholeNumber("old"), 1);
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &enough), 0);
        m_store.write({{"b", std::int64_t{6}}});
        EXPECT_EQ(onDisk(), (json{{"old", 1}, {"a", 5}, {"b", 6}}));
        EXPECT_THAT(m_log.messages(),
                    ::testing::ElementsAre(::testing::StartsWith("preferences not written: ")));
    });
}

TEST_F(JsonPrefs, AProcessThatStoppedInItsTurnIsNotWaitedForForever)
{
    m_store.write({{"a", std::int64_t{1}}});
    const int held = ::open(m_tree.path("zolva/preferences.lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(held, 0);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    m_store.write({{"a", std::int64_t{2}}});
    EXPECT_EQ(onDisk(), (json{{"a", 1}}));
    EXPECT_EQ(m_store.wholeNumber("a"), 2);
    EXPECT_EQ(m_log.messages(), (Texts{"preferences not written: another process holds them"}));
    ::close(held);
    m_store.write({{"b", std::int64_t{3}}});
    EXPECT_EQ(onDisk(), (json{{"a", 2}, {"b", 3}}));
}

TEST(SystemPrefsStore, StandsInTheFolderForConfigurations)
{
    const test::TempTree tree;
    const test::ScopedHome home(tree.root());
    const test::ScopedVariable config("XDG_CONFIG_HOME", tree.path("conf"));
    systemPrefsStore()->write({{"a", true}});
    EXPECT_EQ(::access(tree.path("conf/zolva/preferences.json").c_str(), F_OK), 0);
}

TEST(SystemPrefsStore, WithoutOneOrWithARelativeOneStandsInTheHomeFoldersOwn)
{
    for (const std::optional<std::string>& value :
         {std::optional<std::string>(), std::optional<std::string>("relative")}) {
        const test::TempTree tree;
        const test::ScopedHome home(tree.root());
        const test::ScopedVariable config("XDG_CONFIG_HOME", value);
        systemPrefsStore()->write({{"a", true}});
        EXPECT_EQ(::access(tree.path(".config/zolva/preferences.json").c_str(), F_OK), 0);
    }
}

} // namespace
} // namespace zolva
