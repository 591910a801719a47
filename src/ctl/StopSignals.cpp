#include "ctl/StopSignals.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <system_error>

namespace zolva::ctl {

namespace {

constexpr std::array<int, 3> taken = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler reads it");

extern "C" void tellStop(int /*signal*/)
{
    const int kept = errno;
    const char something = 0;
    // A pipe that is full has told already.
    static_cast<void>(!::write(writeEnd.load(), &something, 1));
    errno = kept;
}

} // namespace

StopSignals::StopSignals()
{
    if (::pipe(m_ends.data()) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    for (const int end : m_ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    writeEnd = m_ends[1];
    m_notifier.emplace(m_ends[0], QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, [this] {
        // Nothing is read, so that the descriptor goes on telling it.
        m_notifier->setEnabled(false);
        Q_EMIT asked();
    });
    for (std::size_t i = 0; i < taken.size(); ++i) {
        take(taken[i], i);
    }
}

bool StopSignals::wasAsked() const
{
    pollfd end = {m_ends[0], POLLIN, 0};
    return ::poll(&end, 1, 0) == 1;
}

void StopSignals::take(int signal, std::size_t place)
{
    struct sigaction action
    {};
    action.sa_handler = tellStop;
    sigemptyset(&action.sa_mask);
    // No restart: a write that nobody takes is given up.
    action.sa_flags = 0;
    ::sigaction(signal, nullptr, &m_before[place]);
    // Who started the program so that it outlives the terminal meant it.
    if (signal != SIGHUP || m_before[place].sa_handler != SIG_IGN) {
        ::sigaction(signal, &action, nullptr);
    }
}

StopSignals::~StopSignals()
{
    for (std::size_t i = 0; i < taken.size(); ++i) {
        ::sigaction(taken[i], &m_before[i], nullptr);
    }
    m_notifier.reset();
    writeEnd = -1;
    for (const int end : m_ends) {
        ::close(end);
    }
}

} // namespace zolva::ctl
