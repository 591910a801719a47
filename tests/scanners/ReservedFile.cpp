#include "scanners/ReservedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace zolva::test {

std::string reservedFile(TempTree& tree, const std::string& relative, std::int64_t bytes)
{
    const std::string path = tree.text(relative, "");
    reserveFileAt(path, bytes);
    return path;
}

void reserveFileAt(const std::string& path, std::int64_t bytes)
{
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) {
        throw std::system_error(errno, std::generic_category(), path);
    }
    const int failure = bytes > 0 ? ::posix_fallocate(fd, 0, bytes) : 0;
    ::close(fd);
    if (failure != 0) {
        throw std::system_error(failure, std::generic_category(), path);
    }
}

void socketAt(const std::string& path)
{
    if (::mknod(path.c_str(), S_IFSOCK | 0644, 0) != 0) {
        throw std::system_error(errno, std::generic_category(), path);
    }
}

} // namespace zolva::test
