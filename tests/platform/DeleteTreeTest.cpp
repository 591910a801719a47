#include "platform/DeleteTree.h"
#include "platform/FileDescriptor.h"
#include "platform/OpenWithin.h"
#include "support/DroppedCapabilities.h"
#include "support/InChild.h"
#include "support/SecondVolume.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

using namespace zolva;
using namespace zolva::test;

class DeleteTree : public ::testing::Test
{
protected:
    DeleteReport remove(const std::string& name)
    {
        const FileDescriptor root(::open(m_tree.root().c_str(), O_RDONLY | O_DIRECTORY));
        return deleteTree(root.get(), name);
    }

    TempTree m_tree;
};

TEST_F(DeleteTree, FilesFoldersLinksAndPipesGo)
{
    m_tree.text("t/a/b/c", "1");
    m_tree.text("t/.hidden", "1");
    m_tree.folder("t/empty");
    m_tree.fifo("t/a/pipe");
    m_tree.link("t/a/dangling", "/nowhere");
    const DeleteReport report = remove("t");
    EXPECT_TRUE(report.isGone());
    EXPECT_EQ(report.removed, 8);
    EXPECT_FALSE(stands(m_tree.path("t")));
}

TEST_F(DeleteTree, ALinkIsRemovedAndItsTargetStays)
{
    const std::string kept = m_tree.text("kept/file", "kept");
    m_tree.link("link", m_tree.path("kept"));
    m_tree.link("t/inner", m_tree.path("kept"));
    EXPECT_TRUE(remove("link").isGone());
    EXPECT_TRUE(remove("t").isGone());
    EXPECT_FALSE(stands(m_tree.path("link")));
    EXPECT_FALSE(stands(m_tree.path("t")));
    EXPECT_EQ(content(kept), "kept");
}

TEST_F(DeleteTree, OtherNamesOfAFileKeepItsBytes)
{
    m_tree.text("kept", "kept");
    m_tree.hardLink("t/second", "kept");
    EXPECT_TRUE(remove("t").isGone());
    EXPECT_EQ(content(m_tree.path("kept")), "kept");
}

TEST_F(DeleteTree, NothingThereIsNoError)
{
    const DeleteReport report = remove("missing");
    EXPECT_TRUE(report.isGone());
    EXPECT_EQ(report.removed, 0);
}

TEST_F(DeleteTree, ATreeDeeperThanAnyPathGoesWithFewDescriptors)
{
    ASSERT_EQ(::chdir(m_tree.root().c_str()), 0);
    const std::string name(60, 'd');
    ASSERT_EQ(::mkdir("t", 0755), 0);
    ASSERT_EQ(::chdir("t"), 0);
    constexpr int levels = 300;
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(::mkdir(name.c_str(), 0755), 0);
        ASSERT_EQ(::mkdir("side", 0755), 0);
        ASSERT_EQ(::chdir(name.c_str()), 0);
    }
    ASSERT_EQ(::chdir("/"), 0);
    inChild([&] {
        rlimit limit{};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        limit.rlim_cur = 80;
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
        const DeleteReport report = remove("t");
        EXPECT_TRUE(report.isGone());
        EXPECT_EQ(report.removed, 2 * levels + 1);
    });
    EXPECT_FALSE(stands(m_tree.path("t")));
}

TEST_F(DeleteTree, ItGoesOnAfterAnErrorAndTellsEach)
{
    withoutOverridingPermissions([&] {
        m_tree.text("t/a/gone", "1");
        m_tree.text("t/locked/one", "1");
        m_tree.text("t/locked/two", "1");
        m_tree.text("t/unreadable/three", "1");
        m_tree.text("t/z/gone", "1");
        m_tree.setMode("t/locked", 0500);
        m_tree.setMode("t/unreadable", 0300);
        const DeleteReport report = remove("t");
        EXPECT_EQ(report.failed, 3);
        std::vector<std::string> told;
        for (const DeleteProblem& problem : report.problems) {
            EXPECT_EQ(problem.error, EACCES);
            told.push_back(problem.path);
        }
        std::sort(told.begin(), told.end());
        EXPECT_EQ(told, (std::vector<std::string>{"t/locked/one", "t/locked/two", "t/unreadable"}));
        EXPECT_EQ(namesIn(m_tree.path("t")), (std::vector<std::string>{"locked", "unreadable"}));
        struct stat status
        {};
        ASSERT_EQ(::stat(m_tree.path("t/locked").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0500U);
    });
}

TEST_F(DeleteTree, AnEmptyFolderNeedNotBeReadable)
{
    withoutOverridingPermissions([&] {
        m_tree.folder("t/closed");
        m_tree.setMode("t/closed", 0000);
        EXPECT_TRUE(remove("t").isGone());
    });
}

TEST_F(DeleteTree, TheListOfProblemsIsBoundedAndTheirNumberIsNot)
{
    withoutOverridingPermissions([&] {
        for (int i = 0; i < 150; ++i) {
            m_tree.text("t/" + std::to_string(i), "");
        }
        m_tree.setMode("t", 0500);
        const DeleteReport report = remove("t");
        EXPECT_EQ(report.failed, 150);
        EXPECT_EQ(report.problems.size(), 100U);
    });
}

TEST_F(DeleteTree, AFolderOfAnotherMountIsLeftAlone)
{
    const std::string kept = m_tree.text("kept/file", "kept");
    m_tree.folder("t/mount");
    m_tree.text("t/other", "1");
    const bool ran = withBindMount(m_tree.path("kept"), m_tree.path("t/mount"), [&] {
        const DeleteReport report = remove("t");
        ASSERT_EQ(report.failed, 1);
        EXPECT_EQ(report.problems.front().path, "t/mount");
        EXPECT_EQ(report.problems.front().error, EXDEV);
    });
    EXPECT_EQ(content(kept), "kept");
    EXPECT_EQ(stands(m_tree.path("t/other")), !ran);
}

TEST_F(DeleteTree, AMountIsNotOpened)
{
    const FileDescriptor root(::open("/", O_RDONLY | O_DIRECTORY));
    EXPECT_FALSE(openWithin(root.get(), "proc").isOpen());
    EXPECT_EQ(errno, EXDEV);
}

TEST_F(DeleteTree, NoDescriptorIsLeftOpen)
{
    const int before = ::dup(0);
    ::close(before);
    m_tree.text("t/a/b/c/d", "1");
    EXPECT_TRUE(remove("t").isGone());
    const int after = ::dup(0);
    ::close(after);
    EXPECT_EQ(before, after);
}

} // namespace
