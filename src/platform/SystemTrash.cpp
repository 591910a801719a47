#include "platform/SystemTrash.h"

#include "platform/DeleteTree.h"
#include "platform/Expunge.h"
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
#include <mutex>
#include <shared_mutex>
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

/// About what stands, whatever the system said: never ENOENT, which would mean that it is gone.
TrashFailure notGone(int error, const std::string& about)
{
    TrashFailure failure = trashFailure(error, about);
    failure.code = error == ENOENT ? EIO : error;
    return failure;
}

/// The report speaks of the name that the thing had out of sight.
TrashFailure firstOf(const DeleteReport& report, const std::string& name)
{
    const DeleteProblem& first = report.problems.front();
    const std::size_t below = first.path.find('/');
    TrashFailure failure =
        notGone(first.error,
                name + (below == std::string::npos ? std::string() : first.path.substr(below)));
    if (report.failed > 1) {
        failure.text += ", and " + std::to_string(report.failed - 1) + " more";
    }
    return failure;
}

std::optional<std::vector<std::string>> namesWithin(int folder)
{
    // A descriptor of its own, so that no other listing has moved its place.
    FileDescriptor again(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CloseStream> stream(again.isOpen() ? ::fdopendir(again.get())
                                                                  : nullptr);
    if (!stream) {
        return std::nullopt;
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
    return errno == 0 ? std::optional(std::move(names)) : std::nullopt;
}

/// An empty folder that its owner may not write to cannot be moved away, but needs no looking into.
bool removedEmpty(int folder, const std::string& name, const FileIdentity& identity)
{
    return identity.isFolder() && ::unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0;
}

/// Shared by those who delete. Whoever sweeps has it alone: what another thread has out of sight
/// may yet go back.
std::shared_mutex& outOfSight()
{
    static std::shared_mutex use;
    return use;
}

/// Takes the entry out of sight and deletes it there; what stays of it goes back.
tl::expected<void, TrashFailure> deleteOutOfSight(const PinnedTrash& trash, int folder,
                                                  const std::string& name,
                                                  const FileIdentity& identity)
{
    const std::shared_lock use(outOfSight());
    const FileDescriptor expunged = openExpunged(trash);
    if (!expunged.isOpen()) {
        return tl::unexpected(notGone(errno, name));
    }
    const auto own = expunge(folder, name, identity, expunged.get());
    if (!own) {
        if (own.error() == EACCES && removedEmpty(folder, name, identity)) {
            return {};
        }
        const bool isGone = own.error() == ENOENT && identityAt(folder, name) != identity;
        return tl::unexpected(isGone ? trashFailure(ENOENT, name) : notGone(own.error(), name));
    }
    const DeleteReport report = deleteTree(expunged.get(), *own);
    std::optional<TrashFailure> failure;
    if (!report.isGone()) {
        failure = firstOf(report, name);
    } else if (identityAt(expunged.get(), *own)) {
        // Some file systems say that a name is gone which they show again a moment later.
        failure = TrashFailure{EBUSY, name + ": It is still there"};
    }
    if (!failure) {
        return {};
    }
    if (moveNoReplace(expunged.get(), *own, folder, name) != 0) {
        failure->text += "; the rest goes when the Trash is emptied";
    }
    return tl::unexpected(std::move(*failure));
}

} // namespace

TrashFailure trashFailure(int error, const std::string& about)
{
    const std::string words = std::generic_category().message(error);
    return {error, about.empty() ? words : about + ": " + words};
}

tl::expected<std::vector<std::string>, TrashFailure> trashNames(const PinnedTrash& trash)
{
    auto names = namesWithin(trash.files.get());
    if (!names) {
        return failure(errno, trash.path);
    }
    std::sort(names->begin(), names->end());
    return std::move(*names);
}

tl::expected<void, TrashFailure> deleteFromTrash(const PinnedTrash& trash,
                                                 const std::string& relative,
                                                 const std::optional<FileIdentity>& expected)
{
    const FileDescriptor folder = folderWithin(trash, relative);
    if (!folder.isOpen()) {
        return failure(errno, relative);
    }
    const std::string name = relative.substr(relative.rfind('/') + 1);
    if (name.empty() || name == "." || name == ".." || relative.find('\0') != std::string::npos) {
        return failure(EINVAL, relative);
    }
    const auto identity = identityAt(folder.get(), name);
    if (!identity) {
        return failure(errno, relative);
    }
    if (expected && identity != expected) {
        return failure(ENOENT, relative);
    }
    auto deleted = deleteOutOfSight(trash, folder.get(), name, *identity);
    if (deleted && relative == name) {
        forgetTrashOrigin(trash, name);
    }
    return deleted;
}

void deleteLeftovers(const PinnedTrash& trash)
{
    const std::unique_lock use(outOfSight(), std::try_to_lock);
    if (!use.owns_lock()) {
        return;
    }
    const FileDescriptor expunged = openExpunged(trash);
    if (!expunged.isOpen()) {
        return;
    }
    for (const std::string& name :
         namesWithin(expunged.get()).value_or(std::vector<std::string>())) {
        // What stays is tried again the next time.
        static_cast<void>(deleteTree(expunged.get(), name));
    }
}

tl::expected<void, TrashFailure> putBackFromTrash(const std::string& landed,
                                                  const std::string& original, MissingParent parent,
                                                  const std::optional<FileIdentity>& expected)
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
    if (expected && item != expected) {
        return failure(ENOENT, landed);
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
    const int moveError = moveNoReplace(trash.get(), from.name, folder.get(), to.name);
    const auto arrived = identityAt(folder.get(), to.name);
    // Some systems say that a thing was not moved which they have moved.
    if (moveError != 0 && (arrived != item || identityAt(trash.get(), from.name))) {
        return failure(moveError);
    }
    if (arrived && arrived != item) {
        // Exchanged at the last moment: what came instead of it goes back.
        const int error = moveNoReplace(folder.get(), to.name, trash.get(), from.name);
        return failure(error == 0 ? ENOENT : EBUSY, landed);
    }
    // Its place is what counts; that it is newest after a power cut is worth a try.
    static_cast<void>(::fsync(folder.get()));
    static_cast<void>(::fsync(trash.get()));
    forgetTrashOrigin(trash.get(), from.name);
    return {};
}

} // namespace zolva
