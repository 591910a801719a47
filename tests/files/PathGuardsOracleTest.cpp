#include "files/PathGuards.h"

#include "files/NastyPaths.h"
#include "files/PathText.h"
#include "support/ScopedHome.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <unordered_set>

namespace zolva {

namespace {

using test::NastyPaths;

/// The rule once more: from written-out texts, without the product's tables or functions.
class NaiveGuard
{
public:
    explicit NaiveGuard(std::string home) : m_home(std::move(home))
    {
        for (const char* name : {"Applications",
                                 "Desktop",
                                 "Documents",
                                 "Downloads",
                                 "Movies",
                                 "Music",
                                 "Pictures",
                                 "Public",
                                 "Library",
                                 ".Trash",
                                 "Library/Caches",
                                 "Library/Containers",
                                 "Library/Group Containers",
                                 "Library/Application Support",
                                 "Library/Logs",
                                 "Library/Preferences",
                                 "Library/Saved Application State",
                                 "Library/WebKit",
                                 "Library/HTTPStorages",
                                 "Library/Cookies",
                                 "Library/Developer",
                                 "Library/LaunchAgents",
                                 "Library/Application Scripts",
                                 "Library/Mail",
                                 "Library/Messages",
                                 "Library/Safari",
                                 "Library/Keychains"}) {
            m_containers.insert(m_home + "/" + name);
        }
        m_containers.insert(m_home);
    }

    /// The refusal; empty where there is none.
    [[nodiscard]] std::string verdict(const std::string& text) const
    {
        const std::string expanded = test::naiveExpanded(text, m_home);
        if (test::naiveTrimmed(expanded).empty()) {
            return "empty path";
        }
        if (expanded[0] != '/') {
            return "not an absolute path";
        }
        const std::string path = test::naiveStandardized(expanded);
        if (m_containers.count(path) != 0) {
            return path + " is a protected container";
        }
        const std::string closed = path + "/";
        const bool nul = path.find('\0') != std::string::npos;
        for (const std::string& root : {m_home, m_applications, m_shared}) {
            if (!nul && closed.compare(0, root.size() + 1, root + "/") == 0) {
                return "";
            }
        }
        return path + " is outside the locations Zolva manages";
    }

private:
    std::string m_home;
    std::string m_applications = "/Applications";
    std::string m_shared = "/Users/Shared/Applications";
    std::unordered_set<std::string> m_containers = {
        "/",    "/Applications", "/Library", "/System", "/Users", "/bin", "/etc",
        "/opt", "/private",      "/sbin",    "/tmp",    "/usr",   "/var"};
};

/// What kind of verdict it is: its words without the path.
std::string kindOf(const std::string& verdict)
{
    const std::size_t words = verdict.rfind(" is ");
    return words == std::string::npos ? verdict : verdict.substr(words);
}

TEST(PathGuardsOracle, AgreesOnEveryGeneratedPath)
{
    const std::size_t each = test::generatedPaths() / test::nastyHomes().size() + 1;
    std::map<std::string, std::size_t> kinds;
    unsigned seed = 20'260'000;
    for (const std::string& home : test::nastyHomes()) {
        const test::ScopedVariable variable("HOME", home);
        const NaiveGuard naive(home);
        NastyPaths paths(++seed, home);
        for (std::size_t i = 0; i < each; ++i) {
            const std::string path = paths.path();
            const std::string expected = naive.verdict(path);
            ASSERT_EQ(pathRefusal(path).value_or(""), expected)
                << "of " << ::testing::PrintToString(path) << " at home " << home;
            if (i % 16 == 0) {
                ++kinds[kindOf(expected)];
            }
        }
    }
    // The agreement says something only if every verdict was at stake often enough.
    for (const char* kind : {"", "empty path", "not an absolute path", " is a protected container",
                             " is outside the locations Zolva manages"}) {
        EXPECT_GT(kinds[kind] * 16, each / 20) << kind;
    }
}

TEST(PathGuardsOracle, StandardizesAsTheLibraryOfTheLanguageDoes)
{
    NastyPaths paths(7, "/Users/me");
    for (std::size_t i = 0; i < test::generatedPaths() / 50; ++i) {
        const std::string path = "/" + paths.path();
        // The library keeps the slash after what is a folder by its text, and a doubled root.
        std::string expected = std::filesystem::path(path).lexically_normal().string();
        while (expected.size() > 1 && expected.ends_with('/')) {
            expected.pop_back();
        }
        ASSERT_EQ(standardizedPath(path), expected) << ::testing::PrintToString(path);
    }
}

} // namespace

} // namespace zolva
