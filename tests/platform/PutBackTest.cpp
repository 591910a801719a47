#include "platform/SystemTrash.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace {

using namespace zolva;
using namespace zolva::test;

class PutBackFromTrash : public ::testing::Test
{
protected:
    std::string trashed(const std::string& path)
    {
        const auto moved = moveToTrash(m_home.home(), path);
        return moved ? *moved->landed : "(failed)";
    }

    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
};

TEST_F(PutBackFromTrash, TheItemReturnsAndItsRecordGoes)
{
    const std::string path = m_tree.text("home/a/x", "1");
    const std::string landed = trashed(path);
    EXPECT_TRUE(putBackFromTrash(landed, path, MissingParent::IsAnError).has_value());
    EXPECT_EQ(content(path), "1");
    EXPECT_FALSE(stands(landed));
    EXPECT_FALSE(stands(m_home.infoOf("x")));
}

TEST_F(PutBackFromTrash, NothingIsOverwritten)
{
    const std::string path = m_tree.text("home/a/x", "old");
    const std::string landed = trashed(path);
    m_tree.text("home/a/x", "new");
    const auto done = putBackFromTrash(landed, path, MissingParent::IsAnError);
    ASSERT_FALSE(done.has_value());
    EXPECT_EQ(done.error().code, EEXIST);
    EXPECT_EQ(content(path), "new");
    EXPECT_EQ(content(landed), "old");
    EXPECT_TRUE(stands(m_home.infoOf("x")));
}

TEST_F(PutBackFromTrash, ADanglingLinkAtThePlaceCountsAsSomething)
{
    const std::string path = m_tree.text("home/a/x", "old");
    const std::string landed = trashed(path);
    m_tree.link("home/a/x", m_home.path("nowhere"));
    EXPECT_EQ(putBackFromTrash(landed, path, MissingParent::IsAnError).error().code, EEXIST);
    EXPECT_FALSE(stands(m_home.path("nowhere")));
    EXPECT_EQ(content(landed), "old");
}

TEST_F(PutBackFromTrash, AMissingFolderIsMadeOnlyOnRequest)
{
    const std::string path = m_tree.text("home/a/b/x", "1");
    const std::string landed = trashed(path);
    std::filesystem::remove_all(m_home.path("a"));
    EXPECT_EQ(putBackFromTrash(landed, path, MissingParent::IsAnError).error().code, ENOENT);
    EXPECT_FALSE(stands(m_home.path("a")));
    EXPECT_TRUE(putBackFromTrash(landed, path, MissingParent::IsMadeAnew).has_value());
    EXPECT_EQ(content(path), "1");
}

TEST_F(PutBackFromTrash, WhatIsNoLongerThereIsToldAndNothingMade)
{
    const auto done =
        putBackFromTrash(m_home.inTrash("x"), m_home.path("a/x"), MissingParent::IsMadeAnew);
    ASSERT_FALSE(done.has_value());
    EXPECT_EQ(done.error().code, ENOENT);
    EXPECT_FALSE(stands(m_home.path("a")));
}

TEST_F(PutBackFromTrash, ARecordOfAnotherKindIsNotBelieved)
{
    const auto origin = [this](const std::string& record) {
        m_tree.text("home/.local/share/Trash/info/x.trashinfo", record);
        m_tree.text("home/.local/share/Trash/files/x", "1");
        const auto trash = pinHomeTrash(m_home.home());
        const auto found = trashOrigin(*trash, "x");
        return found ? *found : "(" + found.error().text + ")";
    };
    const std::string nowhere = "(x.trashinfo: names no place to put it back)";
    EXPECT_EQ(origin("[Trash Info]\nPath=/home/u/x\n"), "/home/u/x");
    EXPECT_EQ(origin("[Trash Info]\nPath=relative\n"), nowhere);
    EXPECT_EQ(origin("[Trash Info]\nPath=/home/u/../v\n"), nowhere);
    EXPECT_EQ(origin(""), nowhere);
}

TEST_F(PutBackFromTrash, ARecordThatIsALinkOrAPipeIsNotRead)
{
    m_tree.text("home/record", "[Trash Info]\nPath=/home/u/x\n");
    m_tree.text("home/.local/share/Trash/files/x", "1");
    m_tree.link("home/.local/share/Trash/info/x.trashinfo", m_home.path("record"));
    m_tree.fifo("home/.local/share/Trash/info/y.trashinfo");
    const auto trash = pinHomeTrash(m_home.home());
    EXPECT_EQ(trashOrigin(*trash, "x").error().code, ELOOP);
    EXPECT_EQ(trashOrigin(*trash, "y").error().code, EINVAL);
    EXPECT_EQ(trashOrigin(*trash, "../x").error().code, EINVAL);
}

} // namespace
