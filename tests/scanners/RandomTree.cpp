#include "RandomTree.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace zolva::test {

void RandomTree::file(const std::string& relative, int blocks)
{
    const std::string full = m_tree.text(relative, "");
    if (blocks == 0) {
        return;
    }
    const int fd = ::open(full.c_str(), O_WRONLY | O_CLOEXEC);
    const int error = fd < 0 ? errno : ::posix_fallocate(fd, 0, off_t{4096} * blocks);
    if (fd >= 0) {
        ::close(fd);
    }
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), full);
    }
}

void RandomTree::fill(std::vector<std::string> folders, int entries)
{
    for (int i = 0; i < entries; ++i) {
        const std::string path = anyOf(folders) + "/" + std::string(oneIn(4) ? "." : "") + "e" +
                                 std::to_string(m_made++) + (oneIn(6) ? "\xFF" : "");
        switch (upTo(11)) {
        case 0:
            m_tree.link(path, m_tree.path(anyOf(folders)));
            break;
        case 1:
            m_tree.link(path, "nowhere");
            break;
        case 2:
            m_tree.fifo(path);
            break;
        case 3:
        case 4:
            m_tree.folder(path);
            folders.push_back(path);
            break;
        default:
            file(path, upTo(5));
        }
    }
}

} // namespace zolva::test
