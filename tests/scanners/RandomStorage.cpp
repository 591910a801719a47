#include "RandomStorage.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace zolva::test {

namespace {

// Not by the tree's own calls: those try every parent first, which is most of the time where
// hundreds of trees are grown.
void must(bool done, const std::string& what)
{
    if (!done) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

} // namespace

void RandomStorage::file(const std::string& relative, int blocks)
{
    const std::string full = m_tree.path(relative);
    const int fd = ::open(full.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    must(fd >= 0, full);
    errno = blocks == 0 ? 0 : ::posix_fallocate(fd, 0, off_t{4096} * blocks);
    must(errno == 0, full);
    must(::close(fd) == 0, full);
}

void RandomStorage::fill(std::vector<std::string> folders, int entries)
{
    for (int i = 0; i < entries; ++i) {
        const std::string path = anyOf(folders) + "/" + std::string(oneIn(4) ? "." : "") + "e" +
                                 std::to_string(m_made++) + (oneIn(6) ? "\xFF" : "");
        const std::string full = m_tree.path(path);
        switch (upTo(11)) {
        case 0:
            must(::symlink(m_tree.path(anyOf(folders)).c_str(), full.c_str()) == 0, full);
            break;
        case 1:
            must(::symlink("nowhere", full.c_str()) == 0, full);
            break;
        case 2:
            must(::mkfifo(full.c_str(), 0644) == 0, full);
            break;
        case 3:
        case 4:
            must(::mkdir(full.c_str(), 0755) == 0, full);
            folders.push_back(path);
            break;
        default:
            file(path, upTo(5));
        }
    }
}

} // namespace zolva::test
