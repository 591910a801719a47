#include "files/PathGuards.h"

#include "files/HomeFolder.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace zolva {

namespace {

using namespace std::string_literals;
using Refusal = std::optional<std::string>;
using test::ScopedVariable;

const Refusal allowed;

Refusal protectedContainer(const std::string& path)
{
    return path + " is a protected container";
}

Refusal outside(const std::string& path)
{
    return path + " is outside the locations Zolva manages";
}

class PathGuards : public ::testing::Test
{
private:
    ScopedVariable m_home{"HOME", "/Users/me"};
};

TEST_F(PathGuards, AnEmptyPathAndOneOfBlanksAreEmpty)
{
    for (const char* blank : {"", " ", "\t\n \r", "\u00A0\u2003\u2028"}) {
        EXPECT_EQ(pathRefusal(blank), Refusal("empty path"));
    }
}

TEST_F(PathGuards, ALoneTildeIsRefusedAsAProtectedContainer)
{
    EXPECT_EQ(pathRefusal("~"), protectedContainer("/Users/me"));
    EXPECT_EQ(pathRefusal("~/"), protectedContainer("/Users/me"));
}

TEST_F(PathGuards, HomeItselfIsRefusedAsAProtectedContainer)
{
    for (const char* home : {"/Users/me", "/Users/me/", "//Users//me//", "/Users/./me/x/.."}) {
        EXPECT_EQ(pathRefusal(home), protectedContainer("/Users/me")) << home;
    }
}

TEST_F(PathGuards, ARelativePathIsNotAbsolute)
{
    for (const char* path : {"Documents", "./x", "../x", ".", "x/Users/me/y", "\xFF"}) {
        EXPECT_EQ(pathRefusal(path), Refusal("not an absolute path")) << path;
    }
}

TEST_F(PathGuards, AnAbsolutePathAfterABlankIsNotAbsolute)
{
    for (const char* path : {" /Users/me/x", "\n/Users/me/x", "\u00A0/Users/me/x", " ~/x"}) {
        EXPECT_EQ(pathRefusal(path), Refusal("not an absolute path")) << path;
    }
}

TEST_F(PathGuards, AnUnknownAccountIsNotAbsolute)
{
    EXPECT_EQ(pathRefusal("~no-such-account-here/x"), Refusal("not an absolute path"));
}

TEST_F(PathGuards, DotsAreJudgedByWhereTheyLeadAndNotAsTraversal)
{
    EXPECT_EQ(pathRefusal("~/Library/../Documents"), protectedContainer("/Users/me/Documents"));
    EXPECT_EQ(pathRefusal("~/Documents/x/.."), protectedContainer("/Users/me/Documents"));
    EXPECT_EQ(pathRefusal("~/../you/x"), outside("/Users/you/x"));
    EXPECT_EQ(pathRefusal("~/../../.."), protectedContainer("/"));
    EXPECT_EQ(pathRefusal("/etc/../Users/me/x"), allowed);
}

TEST_F(PathGuards, AFileInAHomeFolderPassesAndTheFolderDoesNot)
{
    EXPECT_EQ(pathRefusal("~/Documents/report.pdf"), allowed);
    EXPECT_EQ(pathRefusal("~/Documents"), protectedContainer("/Users/me/Documents"));
}

TEST_F(PathGuards, AnApplicationPassesAndTheFolderOfApplicationsDoesNot)
{
    EXPECT_EQ(pathRefusal("/Applications/Foo.app"), allowed);
    EXPECT_EQ(pathRefusal("/Applications"), protectedContainer("/Applications"));
}

TEST_F(PathGuards, ARootsNeighbourWithTheSameBeginningIsOutside)
{
    EXPECT_EQ(pathRefusal("/Applications2/Foo.app"), outside("/Applications2/Foo.app"));
    EXPECT_EQ(pathRefusal("/Users/me2/x"), outside("/Users/me2/x"));
    EXPECT_EQ(pathRefusal("/Users/Shared/Applications2/x"),
              outside("/Users/Shared/Applications2/x"));
}

TEST_F(PathGuards, OnlyApplicationsAreManagedAmongWhatIsShared)
{
    EXPECT_EQ(pathRefusal("/Users/Shared/Applications/Foo.app"), allowed);
    EXPECT_EQ(pathRefusal("/Users/Shared/Foo"), outside("/Users/Shared/Foo"));
}

TEST_F(PathGuards, TheSharedApplicationsRootItselfMayBeTouched)
{
    // It is a root and no protected container: the rule has it so.
    EXPECT_EQ(pathRefusal("/Users/Shared/Applications"), allowed);
}

TEST_F(PathGuards, AnotherUsersHomeIsOutside)
{
    EXPECT_EQ(pathRefusal("/Users/you"), outside("/Users/you"));
    EXPECT_EQ(pathRefusal("/Users/you/Documents/x"), outside("/Users/you/Documents/x"));
}

TEST_F(PathGuards, WhatLiesBelowTheSystemsFoldersIsOutsideAndNotProtected)
{
    for (const char* path : {"/tmp/x", "/private/var/x", "/Library/Caches/x", "/opt/homebrew/x"}) {
        EXPECT_EQ(pathRefusal(path), outside(path));
    }
}

TEST_F(PathGuards, TheCachesFolderIsRefusedAndAFolderInItPasses)
{
    EXPECT_EQ(pathRefusal("~/Library/Caches"), protectedContainer("/Users/me/Library/Caches"));
    EXPECT_EQ(pathRefusal("~/Library/Caches/com.example.app"), allowed);
}

TEST_F(PathGuards, NamesAreComparedByCase)
{
    EXPECT_EQ(pathRefusal("~/documents"), allowed);
    EXPECT_EQ(pathRefusal("/applications/Foo.app"), outside("/applications/Foo.app"));
    EXPECT_EQ(pathRefusal("/users/me/x"), outside("/users/me/x"));
}

TEST_F(PathGuards, ATrailingBlankIsPartOfTheName)
{
    EXPECT_EQ(pathRefusal("~/Documents "), allowed);
    EXPECT_EQ(pathRefusal("/Users/me "), outside("/Users/me "));
}

TEST_F(PathGuards, BytesThatAreNotTextAreJudgedAsTheyStand)
{
    EXPECT_EQ(pathRefusal("~/\xFF\xC3"), allowed);
    EXPECT_EQ(pathRefusal("/\xFF/x"), outside("/\xFF/x"));
}

TEST_F(PathGuards, APathWithANulIsNeverAllowed)
{
    // A system call would act on what stands before it.
    EXPECT_EQ(pathRefusal("~/Documents\0/x"s), outside("/Users/me/Documents\0/x"s));
    EXPECT_EQ(pathRefusal("/Applications/x\0"s), outside("/Applications/x\0"s));
}

TEST_F(PathGuards, EveryProtectedPathIsRefusedAndWhatStandsBelowItIsNoContainer)
{
    for (const std::string& path : protectedPaths()) {
        EXPECT_EQ(pathRefusal(path), protectedContainer(path));
        EXPECT_EQ(pathRefusal(path + "/"), protectedContainer(path));
        const std::string below = path == "/" ? "/any thing" : path + "/any thing";
        const Refusal verdict = pathRefusal(below);
        EXPECT_TRUE(verdict == allowed || verdict == outside(below)) << below;
    }
}

TEST_F(PathGuards, ProtectedPathsAreTheFixedOnesAndThoseOfTheHomeFolder)
{
    const std::string home = "/Users/me";
    std::set<std::string> expected = {"/",    "/Applications", "/Library", "/System",  "/Users",
                                      "/bin", "/etc",          "/opt",     "/private", "/sbin",
                                      "/tmp", "/usr",          "/var",     home};
    for (const char* name : {"Applications", "Desktop", "Documents", "Downloads", "Movies", "Music",
                             "Pictures", "Public", "Library", ".Trash"}) {
        expected.insert(home + "/" + name);
    }
    for (const char* name :
         {"Caches", "Containers", "Group Containers", "Application Support", "Logs", "Preferences",
          "Saved Application State", "WebKit", "HTTPStorages", "Cookies", "Developer",
          "LaunchAgents", "Application Scripts", "Mail", "Messages", "Safari", "Keychains"}) {
        expected.insert(home + "/Library/" + name);
    }
    EXPECT_EQ(expected.size(), 41U);
    EXPECT_EQ(protectedPaths(), expected);
}

TEST_F(PathGuards, ProtectedPathsFollowTheHomeFolderFromCallToCall)
{
    const ScopedVariable home("HOME", "/home/other");
    EXPECT_TRUE(protectedPaths().contains("/home/other/Library/Mail"));
    EXPECT_FALSE(protectedPaths().contains("/Users/me/Library/Mail"));
    EXPECT_EQ(pathRefusal("/home/other/Movies"), protectedContainer("/home/other/Movies"));
    EXPECT_EQ(pathRefusal("/Users/me/Movies"), outside("/Users/me/Movies"));
}

TEST_F(PathGuards, ProtectedPathsTakeTheHomeFoldersTextUnchanged)
{
    const ScopedVariable home("HOME", "/Users/./me");
    EXPECT_TRUE(protectedPaths().contains("/Users/./me/Desktop"));
    EXPECT_FALSE(protectedPaths().contains("/Users/me/Desktop"));
}

TEST_F(PathGuards, AHomeFolderAtTheRootManagesNothing)
{
    const ScopedVariable home("HOME", "/");
    EXPECT_EQ(pathRefusal("~"), protectedContainer("/"));
    EXPECT_EQ(pathRefusal("/etc/passwd"), outside("/etc/passwd"));
    EXPECT_EQ(pathRefusal("~/Documents/x"), outside("/Documents/x"));
    EXPECT_EQ(pathRefusal("/Applications/Foo.app"), allowed);
}

TEST_F(PathGuards, APathThatDoesNotExistGetsTheVerdictOfOneThatDoes)
{
    test::TempTree tree;
    const ScopedVariable home("HOME", tree.root());
    const std::string there = tree.file("Documents/there");
    const std::string missing = tree.path("Documents/missing");
    EXPECT_EQ(pathRefusal(there), allowed);
    EXPECT_EQ(pathRefusal(missing), allowed);
    EXPECT_EQ(pathRefusal(tree.path("Documents")), protectedContainer(tree.path("Documents")));
    EXPECT_EQ(pathRefusal(tree.path("Desktop")), protectedContainer(tree.path("Desktop")));
}

TEST_F(PathGuards, ALinkIsJudgedByWhereItStands)
{
    test::TempTree tree;
    const ScopedVariable home("HOME", tree.root());
    EXPECT_EQ(pathRefusal(tree.link("to-etc", "/etc")), allowed);
    EXPECT_EQ(pathRefusal(tree.link("to-home", tree.root())), allowed);
}

} // namespace

} // namespace zolva
