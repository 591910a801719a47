#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

// The least a walk can do on one thread: list every folder, measure every file, add up. What costs
// more than this is the walker's own.
namespace {

constexpr std::size_t bufferSize = std::size_t{32} * 1024;

struct Sums
{
    std::int64_t files = 0;
    std::int64_t bytes = 0;
};

void list(int folder, char* buffer, Sums& sums, std::vector<std::string>& folders)
{
    for (ssize_t got = 0; (got = ::getdents64(folder, buffer, bufferSize)) > 0;) {
        for (ssize_t at = 0; at < got;) {
            const auto* entry = static_cast<const dirent64*>(static_cast<const void*>(buffer + at));
            at += entry->d_reclen;
            const char* name = static_cast<const char*>(entry->d_name);
            struct stat status;
            if (entry->d_type == DT_REG &&
                ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0) {
                ++sums.files;
                sums.bytes += static_cast<std::int64_t>(status.st_blocks) * 512;
            } else if (entry->d_type == DT_DIR) {
                const std::string text = name;
                if (text != "." && text != "..") {
                    folders.push_back(text);
                }
            }
        }
    }
}

/// Recursive, and each folder opened relative to its parent: fit for a tree of benchmarks only.
void walk(int folder, char* buffer, Sums& sums)
{
    std::vector<std::string> folders;
    list(folder, buffer, sums, folders);
    for (const std::string& name : folders) {
        const int below = ::openat(folder, name.c_str(),
                                   O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NOATIME);
        if (below >= 0) {
            walk(below, buffer, sums);
            ::close(below);
        }
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: floor FOLDER\n");
        return 2;
    }
    const int root = ::open(arguments[1], O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (root < 0) {
        std::perror(arguments[1]);
        return 1;
    }
    std::vector<char> buffer(bufferSize);
    Sums sums;
    walk(root, buffer.data(), sums);
    ::close(root);
    std::printf("%lld files, %lld bytes\n", static_cast<long long>(sums.files),
                static_cast<long long>(sums.bytes));
    return 0;
}
