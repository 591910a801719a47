#include "platform/AdminMove.h"

#include "platform/FileIdentity.h"
#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"
#include "platform/linux/TrashFolders.h"
#include "platform/linux/TrashInfo.h"
#include "platform/linux/TrashNames.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>

namespace zolva {

namespace {

struct FreeText
{
    void operator()(char* text) const { std::free(text); } // NOLINT(*-no-malloc)
};

std::string withoutLinks(const std::string& path)
{
    const std::unique_ptr<char, FreeText> real(::realpath(path.c_str(), nullptr));
    return real ? real.get() : "";
}

/// With another's rights no link on the way is followed, but for those of the home folder itself:
/// the folder as the system knows it, or nothing.
std::string plainFolder(const std::string& home, const std::string& folder)
{
    std::string expected = folder;
    if (home != "/" && (folder == home || folder.starts_with(home + "/"))) {
        expected = withoutLinks(home) + folder.substr(home.size());
    }
    return withoutLinks(folder) == expected ? expected : std::string();
}

} // namespace

std::vector<std::string> adminMoveCommand(const std::string& source, const std::string& destination)
{
    return {"/usr/bin/pkexec", "--disable-internal-agent", "/usr/bin/mv", "-n", "-T", "--", source,
            destination};
}

std::string adminMoveName(const std::string& name, int attempt)
{
    return trashName(name, attempt, 255);
}

bool isTrashNameTaken(const std::string& home, const std::string& name)
{
    return somethingAt(homeTrashFolder(home) + "/" + name) ||
           somethingAt(homeTrashPath(home) + "/info/" + name + std::string(trashInfoSuffix));
}

bool adminMove(const std::string& home, const std::string& source, const std::string& name,
               const ToolRunner& run)
{
    const EntryPath entry = entryPath(source);
    const std::string folder = plainFolder(home, entry.folder);
    const FileDescriptor from = folder.empty() ? FileDescriptor() : openFolder(folder);
    const auto item = from.isOpen() ? identityAt(from.get(), entry.name) : std::nullopt;
    const auto trash = openHomeTrash(home, MissingTrash::IsMade);
    if (!item || !trash) {
        return false;
    }
    const auto place = identityOf(trash->files.get());
    const std::string files = withoutLinks(trash->path + "/files");
    // The tool would copy from one file system to another.
    if (!place || place->device != item->device || files.empty() || isTrashNameTaken(home, name)) {
        return false;
    }
    if (recordTrashOrigin(*trash, name, source) != 0) {
        return false;
    }
    const int status = run(adminMoveCommand(folder + "/" + entry.name, files + "/" + name));
    const auto arrived = identityAt(trash->files.get(), name);
    if (arrived != item) {
        if (!arrived && errno == ENOENT) {
            ::unlinkat(trash->info.get(), (name + std::string(trashInfoSuffix)).c_str(), 0);
        }
        return false;
    }
    return status == 0 && !identityAt(from.get(), entry.name);
}

} // namespace zolva
