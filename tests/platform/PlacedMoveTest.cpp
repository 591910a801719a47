#include "platform/linux/PlacedMove.h"

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <thread>

namespace {

using namespace zolva;
using namespace zolva::test;

constexpr int rounds = 150;

/// Calls `act` over and over beside the test, until it says that it is done or the scope ends.
class Meanwhile
{
public:
    explicit Meanwhile(std::function<bool()> act)
        : m_thread([this, act = std::move(act)] {
              bool done = false;
              while (!m_stop && !done) {
                  done = act();
                  m_running = true;
              }
          })
    {
        while (!m_running) {
            std::this_thread::yield();
        }
    }
    ~Meanwhile()
    {
        m_stop = true;
        m_thread.join();
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    std::atomic<bool> m_stop = false;
    std::atomic<bool> m_running = false;
    std::thread m_thread;
};

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

TEST_F(PlacedMove, WhatAnotherProgramSavesOverTheItemMeanwhileIsNeverLost)
{
    for (int round = 0; round < rounds; ++round) {
        m_tree.text("item", "0");
        int saved = 0;
        {
            // As programs do: a new file, renamed over the old one.
            const Meanwhile saver([&] {
                m_tree.text("saving", std::to_string(saved + 1));
                const bool replaced =
                    stands(m_tree.path("item")) &&
                    ::rename(m_tree.path("saving").c_str(), m_tree.path("item").c_str()) == 0;
                saved += replaced ? 1 : 0;
                return !replaced;
            });
            ASSERT_EQ(move("item", "moved"), 0);
        }
        const std::string newest = std::to_string(saved);
        ASSERT_TRUE(content(m_tree.path("item")) == newest ||
                    content(m_tree.path("moved")) == newest)
            << "round " << round;
        for (const char* name : {"item", "moved", "saving"}) {
            ::unlink(m_tree.path(name).c_str());
        }
    }
}

TEST_F(PlacedMove, ANewcomerAtTheLastMomentIsNotReplaced)
{
    int came = 0;
    for (int round = 0; round < rounds; ++round) {
        m_tree.folder("item");
        struct stat newcomer
        {};
        bool isThere = false;
        {
            const Meanwhile other([&] {
                isThere = ::mkdirat(m_root.get(), "moved", 0700) == 0 &&
                          ::fstatat(m_root.get(), "moved", &newcomer, 0) == 0;
                return isThere;
            });
            const int error = move("item", "moved");
            ASSERT_TRUE(error == 0 || error == EEXIST) << error;
        }
        const auto found = identityAt(m_root.get(), "moved");
        ASSERT_TRUE(found.has_value());
        ASSERT_TRUE(!isThere || found->inode == newcomer.st_ino) << "round " << round;
        came += isThere ? 1 : 0;
        ::rmdir(m_tree.path("item").c_str());
        ::rmdir(m_tree.path("moved").c_str());
    }
    EXPECT_GT(came, 0);
}

} // namespace
