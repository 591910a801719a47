#include "desktop/QuitSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <system_error>

namespace zolva {

namespace {

constexpr std::array<int, 3> taken = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler reads it");

extern "C" void tellQuit(int /*signal*/)
{
    const int kept = errno;
    const char something = 0;
    // A pipe that is full has told already.
    static_cast<void>(!::write(writeEnd.load(), &something, 1));
    errno = kept;
}

} // namespace

QuitSignals::QuitSignals(QObject* parent) : QObject(parent)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    m_reader = FileDescriptor(ends[0]);
    m_writer = FileDescriptor(ends[1]);
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    writeEnd = m_writer.get();
    m_notifier.emplace(m_reader.get(), QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, [this] {
        drain();
        Q_EMIT asked();
    });
    for (std::size_t i = 0; i < taken.size(); ++i) {
        take(taken[i], i);
    }
}

void QuitSignals::take(int signal, std::size_t place)
{
    struct sigaction action
    {};
    action.sa_handler = tellQuit;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, nullptr, &m_before[place]);
    // Who started the program so that it outlives the terminal meant it.
    if (signal != SIGHUP || m_before[place].sa_handler != SIG_IGN) {
        ::sigaction(signal, &action, nullptr);
    }
}

void QuitSignals::drain() const
{
    std::array<char, 16> some{};
    while (::read(m_reader.get(), some.data(), some.size()) > 0) {
    }
}

QuitSignals::~QuitSignals()
{
    for (std::size_t i = 0; i < taken.size(); ++i) {
        ::sigaction(taken[i], &m_before[i], nullptr);
    }
    m_notifier.reset();
    writeEnd = -1;
}

} // namespace zolva
