#include "platform/linux/PlacedMove.h"

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <cerrno>

namespace {

using namespace zolva;
using namespace zolva::test;

class PlacedMove : public ::testing::Test
{
protected:
    [[nodiscard]] int move(const std::string& from, const std::string& to) const
    {
        return placedMove(m_root.get(), from, m_root.get(), to);
    }

    TempTree m_tree;
    FileDescriptor m_root{::open(m_tree.root().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
};

TEST_F(PlacedMove, FilesFoldersAndLinksMoveAsTheyAre)
{
    m_tree.text("file", "1");
    m_tree.text("folder/inner", "2");
    m_tree.link("link", "/nowhere");
    for (const std::string name : {"file", "folder", "link"}) {
        const auto before = identityAt(m_root.get(), name);
        EXPECT_EQ(move(name, name + " moved"), 0);
        EXPECT_EQ(identityAt(m_root.get(), name + " moved"), before);
        EXPECT_FALSE(stands(m_tree.path(name)));
    }
    EXPECT_EQ(content(m_tree.path("folder moved/inner")), "2");
}

TEST_F(PlacedMove, WhatStandsThereIsNotReplacedNotEvenAnEmptyFolder)
{
    m_tree.text("file", "1");
    m_tree.folder("folder");
    m_tree.text("taken/file", "kept");
    m_tree.folder("taken/folder");
    m_tree.link("taken/link", "/nowhere");
    for (const std::string from : {"file", "folder"}) {
        for (const std::string to : {"taken/file", "taken/folder", "taken/link"}) {
            const auto before = identityAt(m_root.get(), to);
            EXPECT_EQ(move(from, to), EEXIST);
            EXPECT_EQ(identityAt(m_root.get(), to), before);
        }
        EXPECT_TRUE(stands(m_tree.path(from)));
    }
}

TEST_F(PlacedMove, AFailedMoveLeavesNothingBehindAtTheNewPlace)
{
    m_tree.text("folder/inner/x", "kept");
    EXPECT_EQ(move("folder", "folder/inner/itself"), EINVAL);
    EXPECT_EQ(namesIn(m_tree.path("folder/inner")), std::vector<std::string>{"x"});
    EXPECT_EQ(move("missing", "new"), ENOENT);
    EXPECT_FALSE(stands(m_tree.path("new")));
}

} // namespace
