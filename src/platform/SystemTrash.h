#pragma once

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"

#include <tl/expected.hpp>

#include <optional>
#include <string>
#include <vector>

/// The Trash as the system's file manager sees it; the only place that knows where it is. Paths are
/// bytes and absolute. `home` is the user's home folder. Everything blocks on the disk; any thread,
/// as long as nobody changes the environment meanwhile.
namespace zolva {

/// Why the system would not.
struct TrashFailure
{
    int code = 0; ///< errno, or 0
    std::string
        text; ///< the system's words; with the path in front, where it is not the item's own
};

struct MovedToTrash
{
    std::optional<std::string> landed;      ///< where it is now, if the system told
    std::optional<FileIdentity> identity{}; ///< what it is, with `landed`
};

/// Moves what stands at the path, a link as a link, to the Trash of its own file system. Nothing is
/// copied and nothing overwritten; a failure leaves it where it was. The Trash itself, what
/// contains it and what lies in it are not moved.
[[nodiscard]] tl::expected<MovedToTrash, TrashFailure> moveToTrash(const std::string& home,
                                                                   const std::string& path);

/// The folder that holds what was moved to the user's own Trash, whether or not it exists.
[[nodiscard]] std::string homeTrashFolder(const std::string& home);

/// Makes that folder, for the user alone, if there is none.
[[nodiscard]] tl::expected<void, TrashFailure> makeHomeTrash(const std::string& home);

/// The folder of the user's own Trash, held so that what was looked at is what is deleted.
struct PinnedTrash
{
    FileDescriptor files;
    FileDescriptor info; ///< the records of where things came from; none on some systems
    std::string path;    ///< as `homeTrashFolder`
};

/// Makes nothing: ENOENT where there is no Trash yet.
[[nodiscard]] tl::expected<PinnedTrash, TrashFailure> pinHomeTrash(const std::string& home);

/// The names in it, hidden ones too, sorted by their bytes.
[[nodiscard]] tl::expected<std::vector<std::string>, TrashFailure>
trashNames(const PinnedTrash& trash);

/// Deletes for good what lies at the relative path in the Trash, and the record of where it came
/// from; out of sight first, and what cannot be taken there stays whole. What stays is told with
/// its path, and lies where it lay. ENOENT if nothing, or not the thing `expected`, was there.
[[nodiscard]] tl::expected<void, TrashFailure>
deleteFromTrash(const PinnedTrash& trash, const std::string& relative,
                const std::optional<FileIdentity>& expected = std::nullopt);

/// Deletes what a deletion that ended early has left out of sight; nothing while another thread is
/// deleting.
void deleteLeftovers(const PinnedTrash& trash);

/// Where the item of that name came from, by its record.
[[nodiscard]] tl::expected<std::string, TrashFailure> trashOrigin(const PinnedTrash& trash,
                                                                  const std::string& name);

/// Takes away the record of where a thing came from, once it has left the Trash whose things lie in
/// the open folder. A record that stays names nothing any more; it is not told.
void forgetTrashOrigin(const PinnedTrash& trash, const std::string& name);
void forgetTrashOrigin(int files, const std::string& name);

enum class MissingParent
{
    IsAnError,
    IsMadeAnew
};

/// Moves what landed in the Trash to the path given, never in the place of anything (EEXIST) nor
/// onto another file system (EXDEV); ENOENT where it is not the thing `expected` any more. Whether
/// the path may be touched is the caller's question.
[[nodiscard]] tl::expected<void, TrashFailure>
putBackFromTrash(const std::string& landed, const std::string& original, MissingParent parent,
                 const std::optional<FileIdentity>& expected = std::nullopt);

/// A failure in the system's words, about the item itself or about another path.
[[nodiscard]] TrashFailure trashFailure(int error, const std::string& about = {});

} // namespace zolva
