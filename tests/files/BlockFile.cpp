#include "files/BlockFile.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <stdexcept>

namespace zolva::test {

std::string blockFile(TempTree& tree, const std::string& relative, std::int64_t blocks)
{
    std::string path = tree.file(relative);
    const int fd = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    const bool filled = fd >= 0 && (blocks == 0 || ::posix_fallocate(fd, 0, blocks * 4096) == 0);
    ::close(fd);
    if (!filled) {
        throw std::runtime_error(path);
    }
    return path;
}

ScopedDescriptorLimit::ScopedDescriptorLimit(unsigned limit)
{
    struct rlimit now
    {};
    ::getrlimit(RLIMIT_NOFILE, &now);
    m_old = now.rlim_cur;
    now.rlim_cur = limit;
    if (::setrlimit(RLIMIT_NOFILE, &now) != 0) {
        throw std::runtime_error("the limit of descriptors cannot be set");
    }
}

ScopedDescriptorLimit::~ScopedDescriptorLimit()
{
    struct rlimit now
    {};
    ::getrlimit(RLIMIT_NOFILE, &now);
    now.rlim_cur = m_old;
    ::setrlimit(RLIMIT_NOFILE, &now);
}

} // namespace zolva::test
