#include "diagnostics/RunLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace zolva {

namespace {

constexpr auto lockName = "/in-progress.lock";

} // namespace

RunLock::RunLock(const std::string& folder)
{
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    m_fd = ::open((folder + lockName).c_str(), O_RDWR | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                  0644);
    if (m_fd < 0) {
        return;
    }
    if (::flock(m_fd, LOCK_EX | LOCK_NB) == 0) {
        m_state = State::Held;
    } else if (errno == EWOULDBLOCK) {
        m_state = State::HeldByOther;
    }
}

RunLock::~RunLock()
{
    // The file stays: removing it would let two processes lock two files of one name.
    if (m_fd >= 0) {
        ::close(m_fd);
    }
}

} // namespace zolva
