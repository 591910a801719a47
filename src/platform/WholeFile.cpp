#include "platform/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace zolva {

namespace {

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

class Descriptor
{
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() { static_cast<void>(close()); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const { return m_fd; }
    int close() { return m_fd < 0 ? 0 : ::close(std::exchange(m_fd, -1)); }

private:
    int m_fd;
};

std::error_code readAll(int fd, std::size_t limit, std::string& bytes)
{
    std::array<char, 16384> buffer{};
    while (true) {
        const ssize_t got = ::read(fd, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            return got < 0 ? lastError() : std::error_code();
        }
        bytes.append(buffer.data(), static_cast<std::size_t>(got));
        if (bytes.size() > limit) {
            return std::make_error_code(std::errc::file_too_large);
        }
    }
}

std::error_code writeAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            return lastError();
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code writeSynced(int fd, std::string_view bytes, mode_t mode)
{
    Descriptor file(fd);
    if (::fchmod(file.get(), mode) != 0) {
        return lastError();
    }
    if (const std::error_code error = writeAll(file.get(), bytes)) {
        return error;
    }
    if (::fsync(file.get()) != 0 || file.close() != 0) {
        return lastError();
    }
    return {};
}

void syncFolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // The new content is whole either way; only its being newest may be lost with the power.
    static_cast<void>(opened.get() >= 0 && ::fsync(opened.get()) == 0);
}

} // namespace

WholeFile readWholeFile(const std::string& path, std::size_t limit)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (file.get() < 0) {
        return {lastError(), {}};
    }
    struct stat status
    {};
    if (::fstat(file.get(), &status) != 0) {
        return {lastError(), {}};
    }
    if (!S_ISREG(status.st_mode)) {
        return {std::make_error_code(std::errc::invalid_argument), {}};
    }
    std::string bytes;
    if (const std::error_code error = readAll(file.get(), limit, bytes)) {
        return {error, {}};
    }
    return {{}, std::move(bytes)};
}

std::error_code replaceWholeFile(const std::string& path, std::string_view bytes, mode_t mode)
{
    std::string beside = path + ".XXXXXX";
    const int fd = ::mkostemp(beside.data(), O_CLOEXEC);
    if (fd < 0) {
        return lastError();
    }
    std::error_code error = writeSynced(fd, bytes, mode);
    if (!error && std::rename(beside.c_str(), path.c_str()) != 0) {
        error = lastError();
    }
    if (error) {
        ::unlink(beside.c_str());
        return error;
    }
    syncFolderOf(path);
    return {};
}

} // namespace zolva
