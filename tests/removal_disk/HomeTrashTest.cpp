#include "removal/disk/HomeTrash.h"

#include "removal/disk/ResolvedPath.h"
#include "support/DroppedCapabilities.h"
#include "support/RecordedLog.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

namespace {

using namespace zolva;
using namespace zolva::test;

class HomeTrash : public ::testing::Test
{
protected:
    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
};

TEST_F(HomeTrash, OneThatDoesNotExistYetIsEmptyAndNotMadeByLooking)
{
    EXPECT_EQ(listTrash(), (std::vector<std::string>()));
    EXPECT_FALSE(stands(m_home.trash()));
    EXPECT_TRUE(makeTrashFolder().has_value());
    EXPECT_TRUE(stands(trashFolder()));
    EXPECT_TRUE(makeTrashFolder().has_value());
}

TEST_F(HomeTrash, EveryEntryIsListedHiddenOnesToo)
{
    m_tree.text("home/.local/share/Trash/files/.DS_Store", "");
    m_tree.folder("home/.local/share/Trash/files/b");
    m_tree.link("home/.local/share/Trash/files/a", "/nowhere");
    EXPECT_EQ(listTrash(), (std::vector<std::string>{".DS_Store", "a", "b"}));
}

TEST_F(HomeTrash, AnUnreadableOneIsToldAsSuch)
{
    withoutOverridingPermissions([&] {
        m_tree.folder("home/.local/share/Trash/files");
        m_tree.setMode("home/.local/share/Trash/files", 0000);
        const auto names = listTrash();
        ASSERT_FALSE(names.has_value());
        EXPECT_EQ(names.error(), m_home.trash() + "/files: Permission denied");
        m_tree.setMode("home/.local/share/Trash/files", 0700);
    });
}

TEST_F(HomeTrash, AnEntryIsDeletedAsItStandsWithItsRecord)
{
    const std::string kept = m_tree.text("home/kept/x", "kept");
    m_tree.link("home/.local/share/Trash/files/link", m_home.path("kept"));
    m_tree.text("home/.local/share/Trash/info/link.trashinfo", "");
    const RecordedLog log;
    EXPECT_EQ(deleteTrashEntry("link"), Deletion::Done);
    EXPECT_FALSE(stands(m_home.inTrash("link")));
    EXPECT_FALSE(stands(m_home.infoOf("link")));
    EXPECT_EQ(content(kept), "kept");
    EXPECT_EQ(log.records(),
              (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Default,
                                       "purged from Trash " + m_home.inTrash("link")}}));
}

TEST_F(HomeTrash, AnEntryThatIsAlreadyGoneIsToldAsThat)
{
    m_tree.folder("home/.local/share/Trash/files");
    m_tree.folder("home/.local/share/Trash/info");
    const RecordedLog log;
    EXPECT_EQ(deleteTrashEntry("gone"), Deletion::AlreadyGone);
    EXPECT_EQ(log.records(), (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Debug,
                                                      "already gone " + m_home.inTrash("gone")}}));
}

TEST_F(HomeTrash, AnEntryOfATrashThatWentAsAWholeIsAlreadyGone)
{
    EXPECT_EQ(deleteTrashEntry("gone"), Deletion::AlreadyGone);
}

TEST_F(HomeTrash, AnEntryThatCannotBeDeletedIsTold)
{
    withoutOverridingPermissions([&] {
        m_tree.text("home/.local/share/Trash/files/locked/x", "kept");
        m_tree.setMode("home/.local/share/Trash/files/locked", 0500);
        const RecordedLog log;
        const auto deleted = deleteTrashEntry("locked");
        ASSERT_FALSE(deleted.has_value());
        EXPECT_EQ(deleted.error(), "locked: Permission denied");
        EXPECT_EQ(log.records(), (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Error,
                                                          "failed " + m_home.inTrash("locked") +
                                                              ": locked: Permission denied"}}));
    });
}

TEST_F(HomeTrash, WhatIsNoNameOfAnEntryDeletesNothing)
{
    m_tree.text("home/.local/share/Trash/files/a/b", "kept");
    m_tree.folder("home/.local/share/Trash/info");
    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("a/b"),
          std::string("../info"), std::string("/"), std::string("a\0b", 3)}) {
        EXPECT_FALSE(deleteTrashEntry(name).has_value()) << name;
    }
    EXPECT_EQ(content(m_home.inTrash("a/b")), "kept");
}

TEST_F(HomeTrash, LinksAreResolvedAsFarAsThereIsAnything)
{
    const std::string root = m_tree.root();
    m_tree.text("real/file", "");
    m_tree.link("link", "real");
    m_tree.link("chain", root + "/link/file");
    m_tree.link("dangling", "real/missing/more");
    m_tree.link("loop", "loop");
    m_tree.link("up", "real/..");
    EXPECT_EQ(resolvedPath(root + "/link/file"), root + "/real/file");
    EXPECT_EQ(resolvedPath(root + "/chain"), root + "/real/file");
    EXPECT_EQ(resolvedPath(root + "/dangling"), root + "/real/missing/more");
    EXPECT_EQ(resolvedPath(root + "/loop"), root + "/loop");
    EXPECT_EQ(resolvedPath(root + "/up/link/."), root + "/real");
    EXPECT_EQ(resolvedPath(root + "/missing/../link"), root + "/real");
    EXPECT_EQ(resolvedPath("/"), "/");
}

} // namespace
