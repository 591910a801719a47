#include "files/HomeFolder.h"

#include "platform/Environment.h"
#include "support/InChild.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <pwd.h>
#include <unistd.h>

namespace zolva {

namespace {

using test::ScopedVariable;

/// The account's home as its entry has it; "/" where a process has no account.
std::string homeOfThisAccount()
{
    const passwd* entry = ::getpwuid(::getuid());
    const std::string home = entry != nullptr ? entry->pw_dir : "/";
    return home.starts_with('/') ? home : "/";
}

TEST(HomeFolder, IsTheVariableWhereThatIsAbsolute)
{
    const ScopedVariable home("HOME", "/home/somebody");
    EXPECT_EQ(homeFolder(), "/home/somebody");
}

TEST(HomeFolder, IsTheAccountsWhereTheVariableIsUnset)
{
    const ScopedVariable home("HOME", std::nullopt);
    EXPECT_EQ(homeFolder(), homeOfThisAccount());
}

TEST(HomeFolder, IsTheAccountsWhereTheVariableIsEmpty)
{
    const ScopedVariable home("HOME", "");
    EXPECT_EQ(homeFolder(), homeOfThisAccount());
}

TEST(HomeFolder, IsTheAccountsWhereTheVariableIsRelative)
{
    for (const char* relative : {"home/somebody", "~", ".", "..", " /home/somebody"}) {
        const ScopedVariable home("HOME", relative);
        EXPECT_EQ(homeFolder(), homeOfThisAccount()) << relative;
    }
}

TEST(HomeFolder, HasItsDoubledAndTrailingSlashesTidied)
{
    const ScopedVariable home("HOME", "//home///somebody//");
    EXPECT_EQ(homeFolder(), "/home/somebody");
}

TEST(HomeFolder, IsNeverEmptyEvenWhereItIsTheRoot)
{
    for (const char* root : {"/", "//", "/////"}) {
        const ScopedVariable home("HOME", root);
        EXPECT_EQ(homeFolder(), "/") << root;
    }
}

TEST(HomeFolder, KeepsALinkAsItIsWritten)
{
    test::TempTree tree;
    tree.folder("real");
    const std::string link = tree.link("link", tree.path("real"));
    const ScopedVariable home("HOME", link);
    EXPECT_EQ(homeFolder(), link);
}

TEST(HomeFolder, KeepsDotsAndBytesThatAreNotText)
{
    const ScopedVariable home("HOME", "/home/../h\xFF/./x");
    EXPECT_EQ(homeFolder(), "/home/../h\xFF/./x");
}

TEST(HomeFolder, FollowsTheVariableFromCallToCall)
{
    const ScopedVariable first("HOME", "/home/one");
    EXPECT_EQ(homeFolder(), "/home/one");
    const ScopedVariable second("HOME", "/home/two");
    EXPECT_EQ(homeFolder(), "/home/two");
}

TEST(HomeFolder, IsThatOfTheKeptEnvironmentWhateverIsSetLater)
{
    test::inChild([] {
        const ScopedVariable first("HOME", "/home/one");
        keepEnvironment();
        const ScopedVariable second("HOME", "/home/two");
        EXPECT_EQ(homeFolder(), "/home/one");
    });
}

TEST(AccountHome, IsThatOfTheAccountsEntry)
{
    const passwd* entry = ::getpwnam("root");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(accountHome("root"), std::optional<std::string>(entry->pw_dir));
}

TEST(AccountHome, DoesNotFollowTheVariable)
{
    const passwd* entry = ::getpwnam("root");
    ASSERT_NE(entry, nullptr);
    const std::string own = entry->pw_dir;
    const ScopedVariable home("HOME", "/somewhere/else");
    EXPECT_EQ(accountHome("root"), own);
}

TEST(AccountHome, IsNothingForAnUnknownOrNamelessAccount)
{
    EXPECT_EQ(accountHome("no-such-account-here"), std::nullopt);
    EXPECT_EQ(accountHome(""), std::nullopt);
}

TEST(AccountHome, DoesNotTakeTheNameUpToANulForAnAccount)
{
    using namespace std::string_literals;
    EXPECT_EQ(accountHome("root\0x"s), std::nullopt);
}

} // namespace

} // namespace zolva
