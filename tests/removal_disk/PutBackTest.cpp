#include "removal/disk/PutBack.h"

#include "removal/disk/TrashOnePath.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace zolva;
using namespace zolva::test;

class PutBack : public ::testing::Test
{
protected:
    void record(const std::string& name, const std::string& path)
    {
        m_tree.text("home/.local/share/Trash/files/" + name, "item");
        m_tree.text("home/.local/share/Trash/info/" + name + ".trashinfo",
                    "[Trash Info]\nPath=" + path + "\n");
    }

    static std::string told(const std::string& name)
    {
        const auto done = putBackByName(name);
        return done ? "(restored)" : done.error();
    }

    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
};

TEST_F(PutBack, AnItemReturnsToThePathItHad)
{
    m_tree.text("home/x", "1");
    const auto landed = trashOnePath("~/x").landed;
    ASSERT_TRUE(landed.has_value());
    EXPECT_TRUE(putBackItem(*landed, "~/x").has_value());
    EXPECT_EQ(content(m_home.path("x")), "1");
}

TEST_F(PutBack, WhatTookTheOldNameStaysAndSoDoesTheItem)
{
    const std::string path = m_tree.text("home/x", "old");
    const auto landed = trashOnePath(path).landed;
    m_tree.text("home/x", "new");
    EXPECT_EQ(putBackItem(*landed, path).error(), "File exists");
    EXPECT_EQ(content(path), "new");
    EXPECT_EQ(content(*landed), "old");
}

TEST_F(PutBack, ByNameItGoesToWhereTheRecordSays)
{
    const std::string path = m_tree.text("home/a/b/x\n%", "1");
    ASSERT_TRUE(trashOnePath(path).landed.has_value());
    std::filesystem::remove_all(m_home.path("a"));
    EXPECT_EQ(putBackByName("x\n%"), path);
    EXPECT_EQ(content(path), "1");
    EXPECT_FALSE(stands(m_home.infoOf("x\n%")));
}

TEST_F(PutBack, TheGuardIsAskedAboutThePlace)
{
    record("x", "/etc/zolva-test");
    EXPECT_EQ(told("x"), "x: /etc/zolva-test is outside the locations Zolva manages");
    record("y", m_home.path("Documents"));
    EXPECT_EQ(told("y"), "y: " + m_home.path("Documents") + " is a protected container");
    EXPECT_EQ(content(m_home.inTrash("x")), "item");
    EXPECT_EQ(content(m_home.inTrash("y")), "item");
    EXPECT_FALSE(stands("/etc/zolva-test"));
}

TEST_F(PutBack, WhatIsNotInTheTrashIsToldByItsName)
{
    EXPECT_EQ(told("x"), "x: " + m_home.trash() + ": No such file or directory");
    record("x", m_home.path("x"));
    EXPECT_EQ(told("missing"), "missing: not in the Trash");
    for (const char* name : {"", ".", "..", "../files/x", "x/"}) {
        EXPECT_EQ(told(name), std::string(name) + ": not in the Trash");
    }
    EXPECT_EQ(content(m_home.inTrash("x")), "item");
}

TEST_F(PutBack, WithoutARecordItStays)
{
    m_tree.text("home/.local/share/Trash/files/x", "item");
    EXPECT_TRUE(told("x").starts_with("x: no record of where it came from"));
    EXPECT_EQ(content(m_home.inTrash("x")), "item");
}

TEST_F(PutBack, ByNameNothingIsOverwritten)
{
    record("x", m_home.path("x"));
    m_tree.text("home/x", "new");
    EXPECT_EQ(told("x"), "x: " + m_home.path("x") + ": File exists");
    EXPECT_EQ(content(m_home.path("x")), "new");
    EXPECT_EQ(content(m_home.inTrash("x")), "item");
}

} // namespace
