#pragma once

#include <unistd.h>

#include <utility>

namespace zolva {

/// Owns an open descriptor; -1 owns none.
class FileDescriptor
{
public:
    explicit FileDescriptor(int fd = -1) : m_fd(fd) {}
    ~FileDescriptor() { static_cast<void>(close()); }
    FileDescriptor(FileDescriptor&& other) noexcept : m_fd(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        if (this != &other) {
            static_cast<void>(close());
            m_fd = other.release();
        }
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] int get() const { return m_fd; }
    [[nodiscard]] bool isOpen() const { return m_fd >= 0; }
    [[nodiscard]] int release() { return std::exchange(m_fd, -1); }
    /// As close(2); 0 where nothing is open.
    int close() { return m_fd < 0 ? 0 : ::close(release()); }

private:
    int m_fd;
};

} // namespace zolva
