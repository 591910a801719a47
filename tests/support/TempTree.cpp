#include "support/TempTree.h"

#include <fcntl.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <vector>

namespace zolva::test {

namespace {

void must(bool done, const std::string& what)
{
    if (!done) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

void makeParents(const std::string& path)
{
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        const std::string folder = path.substr(0, slash);
        must(::mkdir(folder.c_str(), 0755) == 0 || errno == EEXIST, folder);
    }
}

int openUp(const char* path, const struct stat*, int type, struct FTW*)
{
    if (type == FTW_DNR || type == FTW_D) {
        ::chmod(path, 0700);
    }
    return 0;
}

int removeOne(const char* path, const struct stat*, int, struct FTW*)
{
    std::remove(path);
    return 0;
}

} // namespace

TempTree::TempTree()
{
    const char* base = std::getenv("TMPDIR");
    std::string pattern = std::string(base && *base ? base : "/tmp") + "/zolva-test-XXXXXX";
    must(::mkdtemp(pattern.data()) != nullptr, pattern);
    m_root = pattern;
}

TempTree::~TempTree()
{
    ::nftw(m_root.c_str(), openUp, 32, FTW_PHYS);
    ::nftw(m_root.c_str(), removeOne, 32, FTW_PHYS | FTW_DEPTH);
}

std::string TempTree::path(const std::string& relative) const
{
    return relative.empty() ? m_root : m_root + "/" + relative;
}

std::string TempTree::folder(const std::string& relative)
{
    const std::string full = path(relative);
    makeParents(full + "/");
    return full;
}

std::string TempTree::file(const std::string& relative, std::int64_t bytes)
{
    const std::string full = path(relative);
    makeParents(full);
    const int fd = ::open(full.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    must(fd >= 0, full);
    const std::vector<char> block(static_cast<std::size_t>(std::min<std::int64_t>(bytes, 1 << 20)),
                                  'z');
    for (std::int64_t left = bytes; left > 0;) {
        const auto part = static_cast<std::size_t>(
            std::min<std::int64_t>(left, static_cast<std::int64_t>(block.size())));
        const ssize_t written = ::write(fd, block.data(), part);
        must(written > 0, full);
        left -= written;
    }
    // Delayed allocation counts no blocks before the data has a place.
    must(bytes == 0 || ::fsync(fd) == 0, full);
    must(::close(fd) == 0, full);
    return full;
}

std::string TempTree::text(const std::string& relative, const std::string& content)
{
    const std::string full = path(relative);
    makeParents(full);
    std::FILE* file = std::fopen(full.c_str(), "wbe");
    must(file != nullptr, full);
    const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    must(std::fclose(file) == 0 && written, full);
    return full;
}

std::string TempTree::link(const std::string& relative, const std::string& target)
{
    const std::string full = path(relative);
    makeParents(full);
    must(::symlink(target.c_str(), full.c_str()) == 0, full);
    return full;
}

std::string TempTree::hardLink(const std::string& relative, const std::string& existing)
{
    const std::string full = path(relative);
    makeParents(full);
    must(::link(path(existing).c_str(), full.c_str()) == 0, full);
    return full;
}

std::string TempTree::fifo(const std::string& relative)
{
    const std::string full = path(relative);
    makeParents(full);
    must(::mkfifo(full.c_str(), 0644) == 0, full);
    return full;
}

void TempTree::setModified(const std::string& relative, std::chrono::system_clock::time_point time)
{
    const auto whole = std::chrono::floor<std::chrono::seconds>(time);
    const timespec stamp{whole.time_since_epoch().count(),
                         std::chrono::nanoseconds(time - whole).count()};
    const timespec times[2] = {stamp, stamp};
    must(::utimensat(AT_FDCWD, path(relative).c_str(), times, AT_SYMLINK_NOFOLLOW) == 0,
         path(relative));
}

void TempTree::setMode(const std::string& relative, unsigned mode)
{
    must(::chmod(path(relative).c_str(), mode) == 0, path(relative));
}

std::int64_t blocksOf(const std::string& path)
{
    struct stat status
    {};
    must(::lstat(path.c_str(), &status) == 0, path);
    return static_cast<std::int64_t>(status.st_blocks) * 512;
}

} // namespace zolva::test
