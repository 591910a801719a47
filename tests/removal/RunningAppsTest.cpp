#include "removal/runs/AppProcesses.h"

#include "support/TempTree.h"
#include "support/qt/ScriptedTool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

namespace zolva {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A process whose executable is a copy of a small program, put where the test says.
class Instance
{
public:
    explicit Instance(const std::string& executable)
    {
        int ready[2] = {-1, -1};
        EXPECT_EQ(::pipe2(ready, O_CLOEXEC), 0);
        m_pid = ::fork();
        if (m_pid == 0) {
            ::execl(executable.c_str(), "sleep", "60", nullptr);
            ::_exit(127);
        }
        ::close(ready[1]);
        // Its end is closed once the program has taken the place of the copy of this one.
        pollfd poll{ready[0], POLLIN, 0};
        EXPECT_EQ(::poll(&poll, 1, 10'000), 1);
        ::close(ready[0]);
    }
    ~Instance()
    {
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            static_cast<void>(waitStatus());
        }
    }
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    [[nodiscard]] int pid() const { return m_pid; }
    int waitStatus()
    {
        int status = 0;
        ::waitpid(std::exchange(m_pid, -1), &status, 0);
        return status;
    }

private:
    int m_pid = -1;
};

struct Bundles
{
    test::TempTree tree;

    /// The path of a program inside a new bundle.
    std::string program(const std::string& bundle, const std::string& identifier)
    {
        tree.text(bundle + "/Contents/Info.plist",
                  "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
                  "<key>CFBundleIdentifier</key><string>" +
                      identifier + "</string></dict></plist>");
        tree.folder(bundle + "/Contents/MacOS");
        const std::string copy = tree.path(bundle + "/Contents/MacOS/run");
        std::filesystem::copy_file(std::filesystem::canonical("/bin/sleep"), copy);
        return copy;
    }
};

std::vector<int> pidsOf(const std::vector<RunningApp>& apps)
{
    std::vector<int> pids;
    for (const RunningApp& app : apps) {
        pids.push_back(app.pid);
    }
    return pids;
}

TEST(RunningApps, AreTheProcessesWhoseExecutableLiesInABundleWithTheIdentifier)
{
    Bundles bundles;
    SystemAppProcesses processes;
    const std::string mine = "test.zolva.app" + std::to_string(::getpid());
    EXPECT_THAT(processes.running(mine), IsEmpty());
    const Instance one(bundles.program("One.app", mine));
    const Instance copy(bundles.program("Copy of One.app", mine));
    const Instance other(bundles.program("Other.app", mine + ".other"));
    const Instance bare(bundles.program("No bundle", mine));
    EXPECT_THAT(pidsOf(processes.running(mine)),
                ::testing::UnorderedElementsAre(one.pid(), copy.pid()));
}

TEST(RunningApps, AHelperInsideTheBundleBelongsToTheApplication)
{
    Bundles bundles;
    SystemAppProcesses processes;
    const std::string mine = "test.zolva.outer" + std::to_string(::getpid());
    bundles.program("One.app", mine);
    const Instance helper(bundles.program("One.app/Contents/Helper.app", mine + ".helper"));
    EXPECT_THAT(pidsOf(processes.running(mine)), ElementsAre(helper.pid()));
    EXPECT_THAT(pidsOf(processes.running(mine + ".helper")), ElementsAre(helper.pid()));
}

TEST(RunningApps, AreAskedToEndByTheTermSignalAndNobodyElseIs)
{
    Bundles bundles;
    SystemAppProcesses processes;
    const std::string mine = "test.zolva.term" + std::to_string(::getpid());
    Instance one(bundles.program("One.app", mine));
    const Instance other(bundles.program("Other.app", mine + ".other"));
    const auto running = processes.running(mine);
    ASSERT_EQ(running.size(), 1u);
    EXPECT_FALSE(processes.isTerminated(running.front()));
    processes.terminate(running.front());
    const int status = one.waitStatus();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    EXPECT_TRUE(processes.isTerminated(running.front()));
    EXPECT_THAT(processes.running(mine), IsEmpty());
    EXPECT_FALSE(test::isGone(other.pid()));
}

TEST(RunningApps, OneThatEndedAndWasNotCollectedHasTerminated)
{
    Bundles bundles;
    SystemAppProcesses processes;
    const std::string mine = "test.zolva.zombie" + std::to_string(::getpid());
    const Instance one(bundles.program("One.app", mine));
    const auto running = processes.running(mine);
    ASSERT_EQ(running.size(), 1u);
    ::kill(one.pid(), SIGKILL);
    siginfo_t ended{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(one.pid()), &ended, WEXITED | WNOWAIT), 0);
    EXPECT_TRUE(processes.isTerminated(running.front()));
    EXPECT_THAT(processes.running(mine), IsEmpty());
}

TEST(RunningApps, ALaterProcessOfTheSameIdIsNotAsked)
{
    Bundles bundles;
    SystemAppProcesses processes;
    const std::string mine = "test.zolva.reused" + std::to_string(::getpid());
    Instance one(bundles.program("One.app", mine));
    auto running = processes.running(mine);
    ASSERT_EQ(running.size(), 1u);
    RunningApp before = running.front();
    --before.started;
    EXPECT_TRUE(processes.isTerminated(before));
    processes.terminate(before);
    EXPECT_THAT(pidsOf(processes.running(mine)), ElementsAre(one.pid()));
    // Of two signals that end a process the first is the one it died of.
    ::kill(one.pid(), SIGKILL);
    EXPECT_EQ(WTERMSIG(one.waitStatus()), SIGKILL);
}

TEST(RunningApps, AnEmptyIdentifierIsNobodys)
{
    Bundles bundles;
    SystemAppProcesses processes;
    const Instance one(bundles.program("One.app", ""));
    EXPECT_THAT(processes.running(""), IsEmpty());
}

} // namespace
} // namespace zolva
