#include "platform/ChildGroup.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <functional>

namespace zolva::test {

namespace {

/// A child that runs `first`, tells that it has, and sleeps until a signal ends it.
pid_t sleeper(const std::function<void()>& first, int told)
{
    const pid_t child = ::fork();
    if (child == 0) {
        first();
        const pid_t self = ::getpid();
        const bool sent = ::write(told, &self, sizeof self) == sizeof self;
        while (sent) {
            ::pause();
        }
        ::_exit(1);
    }
    return child;
}

class ChildGroupTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(::pipe(m_pipe.data()), 0);
        ASSERT_EQ(::pipe(m_life.data()), 0);
    }
    void TearDown() override
    {
        ::close(m_pipe[0]);
        ::close(m_pipe[1]);
        ::close(m_life[0]);
    }

    /// Returns when every process has ended that was started before: each holds the writing end.
    void waitForAll() const
    {
        ::close(m_life[1]);
        char byte = 0;
        EXPECT_EQ(::read(m_life[0], &byte, 1), 0);
    }

    [[nodiscard]] int tellEnd() const { return m_pipe[1]; }
    [[nodiscard]] pid_t told() const
    {
        pid_t pid = 0;
        EXPECT_EQ(::read(m_pipe[0], &pid, sizeof pid), static_cast<ssize_t>(sizeof pid));
        return pid;
    }
    static int endingSignal(pid_t child)
    {
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    std::array<int, 2> m_pipe{};
    std::array<int, 2> m_life{};
};

} // namespace

TEST_F(ChildGroupTest, TheChildStandsInAGroupOfItsOwn)
{
    const pid_t child = sleeper(ownGroupInChild(), tellEnd());
    ASSERT_EQ(told(), child);
    EXPECT_EQ(::getpgid(child), child);
    EXPECT_NE(::getpgid(0), child);
    signalGroup(child, GroupSignal::Terminate);
    EXPECT_EQ(endingSignal(child), SIGTERM);
}

TEST_F(ChildGroupTest, ASignalReachesWhatTheChildHasStarted)
{
    const auto atFirst = [own = ownGroupInChild(), end = tellEnd()] {
        own();
        sleeper([] {}, end);
    };
    const pid_t child = sleeper(atFirst, tellEnd());
    const pid_t one = told();
    const pid_t other = told();
    EXPECT_EQ(::getpgid(one), child);
    EXPECT_EQ(::getpgid(other), child);
    signalGroup(child, GroupSignal::Kill);
    EXPECT_EQ(endingSignal(child), SIGKILL);
    waitForAll();
}

TEST_F(ChildGroupTest, SignalsThatThisProcessIgnoresOrBlocksEndTheChildAllTheSame)
{
    sigset_t term;
    sigemptyset(&term);
    sigaddset(&term, SIGTERM);
    sigset_t before;
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &term, &before), 0);
    const auto handler = ::signal(SIGTERM, SIG_IGN);
    const pid_t child = sleeper(ownGroupInChild(), tellEnd());
    ASSERT_EQ(told(), child);
    ::signal(SIGTERM, handler);
    ASSERT_EQ(::pthread_sigmask(SIG_SETMASK, &before, nullptr), 0);
    signalGroup(child, GroupSignal::Terminate);
    EXPECT_EQ(endingSignal(child), SIGTERM);
}

TEST_F(ChildGroupTest, TheChildEndsWithItsParent)
{
    const pid_t parent = ::fork();
    ASSERT_GE(parent, 0);
    if (parent == 0) {
        sleeper(ownGroupInChild(), tellEnd());
        ::pause();
        ::_exit(0);
    }
    const pid_t child = told();
    EXPECT_EQ(::kill(child, 0), 0);
    ASSERT_EQ(::kill(parent, SIGKILL), 0);
    EXPECT_EQ(endingSignal(parent), SIGKILL);
    waitForAll();
}

} // namespace zolva::test
