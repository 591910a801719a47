#include "platform/SystemTrash.h"

#include "platform/DeleteTree.h"
#include "platform/FileIdentity.h"
#include "platform/MoveNoReplace.h"
#include "platform/OpenFolder.h"
#include "platform/OpenWithin.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

namespace zolva {

namespace {

struct CloseStream
{
    void operator()(DIR* stream) const { ::closedir(stream); }
};

tl::unexpected<TrashFailure> failure(int error, const std::string& about = {})
{
    return tl::unexpected(trashFailure(error, about));
}

/// The folder of the Trash in which the last name of the relative path stands.
FileDescriptor folderWithin(const PinnedTrash& trash, const std::string& relative)
{
    FileDescriptor folder(::fcntl(trash.files.get(), F_DUPFD_CLOEXEC, 0));
    std::size_t begin = 0;
    while (folder.isOpen()) {
        const std::size_t slash = relative.find('/', begin);
        if (slash == std::string::npos) {
            return folder;
        }
        const std::string name = relative.substr(begin, slash - begin);
        if (name.empty() || name == "." || name == "..") {
            errno = EINVAL;
            return FileDescriptor();
        }
        folder = openWithin(folder.get(), name);
        begin = slash + 1;
    }
    return folder;
}

bool makeFolders(const std::string& path)
{
    for (std::size_t slash = path.find('/', 1); true; slash = path.find('/', slash + 1)) {
        const std::string folder = path.substr(0, slash);
        if (::mkdir(folder.c_str(), 0755) != 0 && errno != EEXIST && errno != EISDIR) {
            const int error = errno;
            // Of what is there but may not be written to, some systems say something else.
            if (presenceAt(folder) != Presence::Present) {
                errno = error;
                return false;
            }
        }
        if (slash == std::string::npos) {
            return true;
        }
    }
}

TrashFailure firstOf(const DeleteReport& report)
{
    TrashFailure failure =
        trashFailure(report.problems.front().error, report.problems.front().path);
    if (report.failed > 1) {
        failure.text += ", and " + std::to_string(report.failed - 1) + " more";
    }
    return failure;
}

} // namespace

TrashFailure trashFailure(int error, const std::string& about)
{
    const std::string words = std::generic_category().message(error);
    return {error, about.empty() ? words : about + ": " + words};
}

tl::expected<std::vector<std::string>, TrashFailure> trashNames(const PinnedTrash& trash)
{
    // A descriptor of its own, so that no other listing has moved its place.
    FileDescriptor again(::openat(trash.files.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CloseStream> stream(again.isOpen() ? ::fdopendir(again.get())
                                                                  : nullptr);
    if (!stream) {
        return failure(errno, trash.path);
    }
    static_cast<void>(again.release());
    std::vector<std::string> names;
    while (true) {
        errno = 0;
        const dirent* entry = ::readdir(stream.get()); // NOLINT(concurrency-mt-unsafe)
        if (entry == nullptr) {
            break;
        }
        std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(std::move(name));
        }
    }
    if (errno != 0) {
        return failure(errno, trash.path);
    }
    std::sort(names.begin(), names.end());
    return names;
}

tl::expected<void, TrashFailure> deleteFromTrash(const PinnedTrash& trash,
                                                 const std::string& relative)
{
    const FileDescriptor folder = folderWithin(trash, relative);
    if (!folder.isOpen()) {
        return failure(errno, relative);
    }
    const std::string name = relative.substr(relative.rfind('/') + 1);
    if (name.empty() || name == "." || name == ".." || relative.find('\0') != std::string::npos) {
        return failure(EINVAL, relative);
    }
    if (!identityAt(folder.get(), name)) {
        return failure(errno, relative);
    }
    const DeleteReport report = deleteTree(folder.get(), name);
    if (!report.isGone()) {
        return tl::unexpected(firstOf(report));
    }
    // Some file systems say that a name is gone which they show again a moment later.
    if (identityAt(folder.get(), name)) {
        return tl::unexpected(TrashFailure{EBUSY, relative + ": It is still there"});
    }
    if (relative == name) {
        forgetTrashOrigin(trash, name);
    }
    return {};
}

tl::expected<void, TrashFailure> putBackFromTrash(const std::string& landed,
                                                  const std::string& original, MissingParent parent)
{
    const EntryPath from = entryPath(landed);
    const EntryPath to = entryPath(original);
    if (from.name.empty() || to.name.empty()) {
        return failure(EINVAL);
    }
    const FileDescriptor trash = openFolder(from.folder);
    const auto item = trash.isOpen() ? identityAt(trash.get(), from.name) : std::nullopt;
    if (!item) {
        return failure(errno, landed);
    }
    FileDescriptor folder = openFolder(to.folder);
    if (!folder.isOpen() && errno == ENOENT && parent == MissingParent::IsMadeAnew) {
        if (!makeFolders(to.folder)) {
            return failure(errno, to.folder);
        }
        folder = openFolder(to.folder);
    }
    if (!folder.isOpen()) {
        return failure(errno, to.folder);
    }
    if (const int error = moveNoReplace(trash.get(), from.name, folder.get(), to.name)) {
        return failure(error);
    }
    // Its place is what counts; that it is newest after a power cut is worth a try.
    static_cast<void>(::fsync(folder.get()));
    static_cast<void>(::fsync(trash.get()));
    forgetTrashOrigin(landed);
    return {};
}

} // namespace zolva
