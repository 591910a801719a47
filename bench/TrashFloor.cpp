#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

/// The calls without which nothing is safely in the Trash, and no others: the record first and on
/// the disk, the move that overwrites nothing, and the three folders on the disk.
bool moveBare(const std::string& folder, const std::string& trash, const std::string& name)
{
    const int from = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const int files = ::open((trash + "/files").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const int info = ::open((trash + "/info").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::string record =
        "[Trash Info]\nPath=" + folder + "/" + name + "\nDeletionDate=2026-01-02T03:04:05\n";
    const int written = ::openat(info, (name + ".trashinfo").c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    const bool isRecorded =
        ::write(written, record.data(), record.size()) == static_cast<ssize_t>(record.size()) &&
        ::fsync(written) == 0;
    ::close(written);
    struct stat status
    {};
    const bool isMoved =
        isRecorded && ::renameat2(from, name.c_str(), files, name.c_str(), RENAME_NOREPLACE) == 0 &&
        ::fstatat(files, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    const bool isKept = ::fsync(files) == 0 && ::fsync(info) == 0 && ::fsync(from) == 0;
    ::close(info);
    ::close(files);
    ::close(from);
    return isMoved && isKept;
}

} // namespace

/// Moves everything in a folder into a Trash with `files` and `info`, by bare system calls.
int main(int count, char** arguments)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: trash-floor FOLDER TRASH\n");
        return 2;
    }
    std::vector<std::string> names;
    DIR* const folder = ::opendir(arguments[1]);
    while (const dirent* const entry = folder ? ::readdir(folder) : nullptr) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(name);
        }
    }
    ::closedir(folder);
    std::sort(names.begin(), names.end());
    const auto begin = std::chrono::steady_clock::now();
    for (const std::string& name : names) {
        if (!moveBare(arguments[1], arguments[2], name)) {
            std::perror(name.c_str());
            return 1;
        }
    }
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
    std::printf("%.3f\n", spent.count());
    return 0;
}
