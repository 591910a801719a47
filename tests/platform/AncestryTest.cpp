#include "platform/linux/Ancestry.h"
#include "platform/OpenFolder.h"
#include "support/DroppedCapabilities.h"
#include "support/SecondVolume.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <filesystem>

namespace {

using namespace zolva;
using namespace zolva::test;

Ancestry climbed(const std::string& path, const Ancestry* known = nullptr)
{
    const FileDescriptor folder = openFolder(path);
    auto found = ancestryOf(folder.get(), known);
    EXPECT_TRUE(found.has_value()) << path;
    return found ? std::move(*found) : Ancestry{};
}

FileIdentity identity(const std::string& path)
{
    return identityAt(AT_FDCWD, path).value_or(FileIdentity{});
}

/// Of the open folder at the top; of nothing if there is none.
FileIdentity topOf(const Ancestry& ancestry)
{
    return ancestry.top ? identityOf(ancestry.top->get()).value_or(FileIdentity{}) : FileIdentity{};
}

std::vector<FileIdentity> identitiesOf(const Ancestry& ancestry)
{
    std::vector<FileIdentity> identities;
    for (const Place& place : ancestry.places) {
        identities.push_back(place.identity);
    }
    return identities;
}

void expectSame(const Ancestry& one, const Ancestry& other)
{
    EXPECT_EQ(one.places, other.places);
    EXPECT_EQ(one.onItsMount, other.onItsMount);
    EXPECT_EQ(topOf(one), topOf(other));
    EXPECT_EQ(one.isWhole, other.isWhole);
}

TEST(Ancestry, EveryFolderUpToTheRootIsFoundOnceAndInOrder)
{
    TempTree tree;
    std::filesystem::path at = std::filesystem::canonical(tree.folder("a/b/c"));
    std::vector<FileIdentity> above{identity(at)};
    while (at != at.root_path()) {
        at = at.parent_path();
        above.push_back(identity(at));
    }
    EXPECT_EQ(identitiesOf(climbed(tree.path("a/b/c"))), above);
    EXPECT_EQ(identitiesOf(climbed("/")), std::vector<FileIdentity>{identity("/")});
    EXPECT_EQ(topOf(climbed("/")), identity("/"));
    EXPECT_TRUE(climbed("/").isWhole);
}

TEST(Ancestry, WhatIsTakenFromAKnownOneIsWhatAClimbWouldFind)
{
    TempTree tree;
    const Ancestry known = climbed(tree.folder("a/b/c"));
    for (const char* folder : {"a/b/c", "a/b/c/below", "a/b", "a/other/deep", "other"}) {
        SCOPED_TRACE(folder);
        const std::string path = tree.folder(folder);
        expectSame(climbed(path, &known), climbed(path));
    }
    for (const char* path : {"/", "/dev", "/proc"}) {
        SCOPED_TRACE(path);
        expectSame(climbed(path, &known), climbed(path));
    }
}

TEST(Ancestry, TheTopIsThatOfTheVolumeAlsoIfAnotherIsKnown)
{
    TempTree tree;
    const std::string here = tree.folder("a");
    withSecondVolume([&](const std::string& top, const std::string& folder) {
        const Ancestry there = climbed(folder);
        EXPECT_EQ(topOf(there), identity(top));
        EXPECT_EQ(there.places.at(there.onItsMount - 1).identity, identity(top));
        const Ancestry known = climbed(here);
        expectSame(climbed(folder, &known), there);
        expectSame(climbed(here, &there), known);
    });
}

TEST(Ancestry, WhereNobodyMayLookFurtherUpItEndsAndIsNotWhole)
{
    withoutOverridingPermissions([] {
        TempTree tree;
        const FileDescriptor folder = openFolder(tree.folder("locked/a/b"));
        tree.setMode("locked", 0000);
        const auto found = ancestryOf(folder.get());
        tree.setMode("locked", 0700);
        ASSERT_TRUE(found.has_value());
        EXPECT_FALSE(found->isWhole);
        EXPECT_EQ(found->top, nullptr);
        EXPECT_EQ(identitiesOf(*found),
                  (std::vector{identity(tree.path("locked/a/b")), identity(tree.path("locked/a")),
                               identity(tree.path("locked"))}));
    });
}

TEST(Ancestry, AFolderMountedBelowItselfDoesNotEndTheClimb)
{
    TempTree tree;
    const std::string inner = tree.folder("a/inner");
    const std::string outer = tree.path("a");
    const auto look = [&](bool isMount) {
        const Ancestry outside = climbed(outer);
        const Ancestry inside = climbed(inner);
        ASSERT_EQ(inside.places.size(), outside.places.size() + 1);
        EXPECT_EQ(inside.places.at(0).identity, identity(isMount ? outer : inner));
        EXPECT_EQ(inside.onItsMount, isMount ? 1U : outside.onItsMount + 1);
        expectSame(climbed(inner, &outside), inside);
        expectSame(climbed(outer, &inside), outside);
    };
    look(false);
    // Where the system lets nobody mount, there is no such folder either.
    static_cast<void>(withBindMount(outer, inner, [&] { look(true); }));
}

TEST(Ancestry, AWayIsOnlyWithoutLinksIfNoneOfItsFoldersIsOne)
{
    TempTree tree;
    const std::string root = std::filesystem::canonical(tree.root());
    tree.folder("a/b");
    tree.link("link", "a");
    tree.link("a/back", "../a");
    const auto place = placeWithoutLinks(root + "/a/b");
    ASSERT_TRUE(place.has_value());
    EXPECT_EQ(place->identity, identity(root + "/a/b"));
    for (const char* path : {"/link", "/link/b", "/a/back/b", "/a/../a/b", "/a/b/..", "/missing"}) {
        EXPECT_FALSE(placeWithoutLinks(root + path).has_value()) << path;
    }
}

} // namespace
