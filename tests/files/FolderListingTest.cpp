#include "files/FolderListing.h"

#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <dirent.h>

#include <map>

namespace {

using zolva::EntryKind;
using zolva::HiddenEntries;
using zolva::listFolder;
using zolva::test::TempTree;

TEST(FolderListing, EntriesHaveTheirOwnKindLinksBeingLinks)
{
    TempTree tree;
    tree.file("file");
    tree.folder("folder");
    tree.link("to folder", "folder");
    tree.link("dangling", "nowhere");
    tree.fifo("pipe");
    const auto entries = listFolder(tree.root(), HiddenEntries::Keep);
    ASSERT_TRUE(entries.has_value());
    std::map<std::string, EntryKind> kinds;
    for (const auto& entry : *entries) {
        kinds[entry.name] = entry.kind;
    }
    EXPECT_EQ(kinds, (std::map<std::string, EntryKind>{{"file", EntryKind::File},
                                                       {"folder", EntryKind::Folder},
                                                       {"to folder", EntryKind::Link},
                                                       {"dangling", EntryKind::Link},
                                                       {"pipe", EntryKind::Other}}));
}

TEST(FolderListing, TheOrderIsTheSystems)
{
    TempTree tree;
    for (int i = 0; i < 40; ++i) {
        tree.file("f" + std::to_string(i));
    }
    std::vector<std::string> plain;
    DIR* listing = ::opendir(tree.root().c_str());
    ASSERT_NE(listing, nullptr);
    while (const dirent* entry = ::readdir(listing)) {
        const std::string name = static_cast<const char*>(entry->d_name);
        if (name != "." && name != "..") {
            plain.push_back(name);
        }
    }
    ::closedir(listing);
    std::vector<std::string> names;
    const auto entries = listFolder(tree.root(), HiddenEntries::Keep).value();
    for (const auto& entry : entries) {
        names.push_back(entry.name);
    }
    EXPECT_EQ(names, plain);
}

TEST(FolderListing, HiddenEntriesAreThoseWhoseNameBeginsWithADot)
{
    TempTree tree;
    tree.file(".hidden");
    tree.folder("..folder");
    tree.file("shown.");
    EXPECT_EQ(listFolder(tree.root(), HiddenEntries::Keep).value().size(), 3U);
    const auto shown = listFolder(tree.root(), HiddenEntries::Skip).value();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].name, "shown.");
}

TEST(FolderListing, ALinkToAFolderIsFollowed)
{
    TempTree tree;
    tree.file("folder/file");
    EXPECT_EQ(listFolder(tree.link("link", "folder"), HiddenEntries::Keep).value().size(), 1U);
}

TEST(FolderListing, WhatCannotBeListedGivesNothingAndAnEmptyFolderAnEmptyList)
{
    TempTree tree;
    const std::string file = tree.file("file");
    const std::string pipe = tree.fifo("pipe");
    tree.folder("closed");
    tree.setMode("closed", 0);
    EXPECT_FALSE(listFolder(tree.path("none"), HiddenEntries::Keep).has_value());
    EXPECT_FALSE(listFolder(file, HiddenEntries::Keep).has_value());
    EXPECT_FALSE(listFolder(pipe, HiddenEntries::Keep).has_value());
    EXPECT_FALSE(listFolder(tree.link("link", "none"), HiddenEntries::Keep).has_value());
    EXPECT_TRUE(listFolder(tree.folder("empty"), HiddenEntries::Keep).value().empty());
    zolva::test::withoutOverridingPermissions(
        [&] { EXPECT_FALSE(listFolder(tree.path("closed"), HiddenEntries::Keep).has_value()); });
}

TEST(FolderListing, ExistenceAndFolderhoodFollowLinks)
{
    TempTree tree;
    tree.folder("folder");
    tree.file("file");
    tree.link("to folder", "folder");
    tree.link("to file", "file");
    tree.link("dangling", "nowhere");
    for (const char* name : {"folder", "file", "to folder", "to file"}) {
        EXPECT_TRUE(zolva::existsAt(tree.path(name))) << name;
    }
    for (const char* name : {"dangling", "none", "file/below"}) {
        EXPECT_FALSE(zolva::existsAt(tree.path(name))) << name;
    }
    EXPECT_TRUE(zolva::isFolderAt(tree.path("folder")));
    EXPECT_TRUE(zolva::isFolderAt(tree.path("to folder")));
    for (const char* name : {"file", "to file", "dangling", "none"}) {
        EXPECT_FALSE(zolva::isFolderAt(tree.path(name))) << name;
    }
}

} // namespace
