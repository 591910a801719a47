#include "mole/Watch.h"

#include "mole/Sampler.h"
#include "mole/StatusDocument.h"

#include <poll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <string>

namespace zolva::mole {

namespace {

/// Rates need two readings. Long enough that the kernel's ticks (a hundredth of a second) tell
/// something, short enough that people do not wait.
constexpr std::chrono::milliseconds firstSpan{150};

/// A timer that first fires after `firstSpan` and then once an interval, counted from that moment.
class Beat
{
public:
    explicit Beat(std::chrono::seconds interval)
        : m_fd(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
    {
        itimerspec times{};
        times.it_value.tv_nsec = std::chrono::nanoseconds(firstSpan).count();
        times.it_interval.tv_sec = interval.count();
        if (m_fd >= 0 && ::timerfd_settime(m_fd, 0, &times, nullptr) != 0) {
            ::close(m_fd);
            m_fd = -1;
        }
    }
    ~Beat()
    {
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }
    Beat(const Beat&) = delete;
    Beat& operator=(const Beat&) = delete;

    [[nodiscard]] bool runs() const { return m_fd >= 0; }

    /// Waits for the next beat; `Closed` if the reader goes first.
    [[nodiscard]] Delivery wait() const
    {
        // No events asked of standard output: it tells of its end unasked.
        std::array<pollfd, 2> waited = {pollfd{m_fd, POLLIN, 0}, pollfd{STDOUT_FILENO, 0, 0}};
        while (true) {
            if (::poll(waited.data(), waited.size(), -1) < 0) {
                if (errno == EINTR) {
                    continue;
                }
                return Delivery::Failed;
            }
            if ((waited[1].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) {
                return Delivery::Closed;
            }
            std::uint64_t beats = 0;
            if (::read(m_fd, &beats, sizeof beats) == sizeof beats) {
                return Delivery::Done;
            }
        }
    }

private:
    int m_fd;
};

} // namespace

Delivery deliver(std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
            continue;
        }
        if (errno == EPIPE) {
            return Delivery::Closed;
        }
        if (errno == EAGAIN) {
            // Whoever started this tool made the pipe a non-blocking one.
            pollfd waited{STDOUT_FILENO, POLLOUT, 0};
            ::poll(&waited, 1, -1);
        } else if (errno != EINTR) {
            return Delivery::Failed;
        }
    }
    return Delivery::Done;
}

Delivery watchStatus(std::chrono::seconds interval)
{
    const Beat beat(interval);
    if (!beat.runs()) {
        return Delivery::Failed;
    }
    Sampler sampler;
    while (true) {
        Delivery outcome = beat.wait();
        if (outcome == Delivery::Done) {
            outcome = deliver(statusDocument(sampler.take()) + "\n");
        }
        if (outcome != Delivery::Done) {
            return outcome;
        }
    }
}

} // namespace zolva::mole
