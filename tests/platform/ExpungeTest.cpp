#include "platform/Expunge.h"

#include "platform/SystemTrash.h"
#include "support/DroppedCapabilities.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

using namespace zolva;
using namespace zolva::test;

class Expunge : public ::testing::Test
{
protected:
    std::string inTrash(const std::string& relative, const std::string& text)
    {
        return m_tree.text("home/.local/share/Trash/files/" + relative, text);
    }
    tl::expected<void, TrashFailure> remove(const std::string& name,
                                            std::optional<FileIdentity> expected = std::nullopt)
    {
        return deleteFromTrash(*pinHomeTrash(m_home.home()), name, expected);
    }
    std::string expunged() { return m_home.trash() + "/expunged"; }

    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
};

TEST_F(Expunge, ADeletionLeavesNothingOutOfSight)
{
    inTrash("x/deep/file", "1");
    EXPECT_TRUE(remove("x").has_value());
    EXPECT_TRUE(stands(expunged()));
    EXPECT_TRUE(namesIn(expunged()).empty());
}

TEST_F(Expunge, WhatCannotBeTakenOutOfSightStaysWholeAndIsTold)
{
    const std::string kept = inTrash("x/file", "kept");
    const std::string record = m_tree.text("home/.local/share/Trash/info/x.trashinfo", "");
    const std::string other = m_tree.folder("home/other");
    for (const bool isLink : {false, true}) {
        isLink ? m_tree.link("home/.local/share/Trash/expunged", other)
               : m_tree.text("home/.local/share/Trash/expunged", "");
        const auto deleted = remove("x");
        ASSERT_FALSE(deleted.has_value());
        EXPECT_TRUE(deleted.error().text.starts_with("x: ")) << deleted.error().text;
        EXPECT_EQ(content(kept), "kept");
        EXPECT_TRUE(stands(record));
        ASSERT_EQ(::unlink(expunged().c_str()), 0);
    }
    m_tree.folder("home/.local/share/Trash/expunged");
    ASSERT_EQ(::chmod(expunged().c_str(), 0777), 0);
    EXPECT_EQ(remove("x").error().code, EPERM);
    EXPECT_EQ(content(kept), "kept");
}

TEST_F(Expunge, WhatCannotBeDeletedGoesBackToWhereItLay)
{
    withoutOverridingPermissions([&] {
        const std::string kept = inTrash("x/locked/file", "kept");
        inTrash("x/other", "1");
        m_tree.setMode("home/.local/share/Trash/files/x/locked", 0500);
        const auto deleted = remove("x");
        ASSERT_FALSE(deleted.has_value());
        EXPECT_EQ(deleted.error().text, "x/locked/file: Permission denied");
        EXPECT_EQ(content(kept), "kept");
        EXPECT_TRUE(namesIn(expunged()).empty());
        m_tree.setMode("home/.local/share/Trash/files/x/locked", 0700);
    });
}

TEST_F(Expunge, AnEmptyFolderThatMayNotBeWrittenToIsDeletedAllTheSame)
{
    withoutOverridingPermissions([&] {
        m_tree.folder("home/.local/share/Trash/files/x");
        m_tree.setMode("home/.local/share/Trash/files/x", 0500);
        EXPECT_TRUE(remove("x").has_value());
        EXPECT_FALSE(stands(m_home.inTrash("x")));
    });
}

TEST_F(Expunge, AnotherThingByTheSameNameIsNotMeant)
{
    inTrash("x", "old");
    const auto identity = identityAt(AT_FDCWD, m_home.inTrash("x"));
    ASSERT_EQ(::rename(m_home.inTrash("x").c_str(), m_home.path("restored").c_str()), 0);
    inTrash("x", "new");
    EXPECT_EQ(remove("x", identity).error().code, ENOENT);
    EXPECT_EQ(content(m_home.inTrash("x")), "new");
    const std::string place = m_home.path("x");
    const auto back =
        putBackFromTrash(m_home.inTrash("x"), place, MissingParent::IsAnError, identity);
    ASSERT_FALSE(back.has_value());
    EXPECT_EQ(back.error().code, ENOENT);
    EXPECT_FALSE(stands(place));
    EXPECT_EQ(content(m_home.inTrash("x")), "new");
    EXPECT_TRUE(remove("x", identityAt(AT_FDCWD, m_home.inTrash("x"))).has_value());
}

TEST_F(Expunge, WhatADeathLeftOutOfSightGoesWithTheLeftovers)
{
    inTrash("kept", "kept");
    m_tree.text("home/.local/share/Trash/expunged/zolva-1/deep/file", "1");
    m_tree.link("home/.local/share/Trash/expunged/2", m_home.inTrash(""));
    deleteLeftovers(*pinHomeTrash(m_home.home()));
    EXPECT_TRUE(namesIn(expunged()).empty());
    EXPECT_EQ(content(m_home.inTrash("kept")), "kept");
}

TEST_F(Expunge, AFolderOfThatNameBesideATrashThatWasMovedAwayIsSomebodysOwn)
{
    for (const std::string place : {"things", "files"}) {
        const std::string item = inTrash("x", "1");
        m_tree.folder("home/.local/share/Trash/info");
        const std::string kept = m_tree.text("home/other/expunged/kept", "kept");
        const auto trash = pinHomeTrash(m_home.home());
        const std::string moved = m_home.path("other/" + place);
        ASSERT_EQ(::rename((m_home.trash() + "/files").c_str(), moved.c_str()), 0);
        deleteLeftovers(*trash);
        EXPECT_EQ(content(kept), "kept") << place;
        const auto deleted = deleteFromTrash(*trash, "x");
        ASSERT_FALSE(deleted.has_value());
        EXPECT_NE(deleted.error().code, ENOENT) << "it would count as gone";
        EXPECT_EQ(content(moved + "/x"), "1");
    }
}

TEST_F(Expunge, ARecordInAFolderOfAnotherUserIsNotForgotten)
{
    for (const std::string& folder : {m_home.trash() + "/info", m_home.trash()}) {
        const std::string record = m_tree.text("home/.local/share/Trash/info/x.trashinfo", "kept");
        const std::string landed = inTrash("x", "1");
        const std::string back = m_home.path("x");
        // Only a user who may do that may find such a folder writable.
        const bool isOthers = ::chown(folder.c_str(), 12345, static_cast<gid_t>(-1)) == 0;
        EXPECT_TRUE(putBackFromTrash(landed, back, MissingParent::IsAnError).has_value());
        EXPECT_EQ(content(record), isOthers ? "kept" : "(none)") << folder;
        ASSERT_EQ(::unlink(back.c_str()), 0);
        ASSERT_EQ(::chown(folder.c_str(), ::geteuid(), static_cast<gid_t>(-1)), 0);
    }
}

TEST_F(Expunge, OnlyATrashsOwnRecordIsForgotten)
{
    // The parent of what landed is no Trash, though there is such a folder beside it.
    const std::string record = m_tree.text("home/info/x.trashinfo", "kept");
    const std::string landed = m_tree.text("home/things/x", "1");
    EXPECT_TRUE(putBackFromTrash(landed, m_home.path("x"), MissingParent::IsAnError).has_value());
    EXPECT_EQ(content(record), "kept");
    // Nor are records beyond a link its own.
    const std::string other = m_tree.text("home/other/y.trashinfo", "kept");
    m_tree.link("home/.local/share/Trash/info", m_home.path("other"));
    EXPECT_TRUE(putBackFromTrash(inTrash("y", "1"), m_home.path("y"), MissingParent::IsAnError)
                    .has_value());
    EXPECT_EQ(content(other), "kept");
}

} // namespace
