#pragma once

#include "removal/disk/HomeTrash.h"
#include "removal/disk/KnownItem.h"
#include "removal/disk/PurgeFromTrash.h"
#include "removal/disk/TrashOnePath.h"

#include <tl/expected.hpp>

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zolva {

/// All that the runs do to the disk, so that tests can stand in for it. Every call blocks and
/// reports its failures as values. Any thread; a run makes one call at a time. Paths are bytes, as
/// the rows have them: a leading tilde is expanded.
class RemovalDisk
{
public:
    RemovalDisk() = default;
    virtual ~RemovalDisk() = default;
    RemovalDisk(const RemovalDisk&) = delete;
    RemovalDisk& operator=(const RemovalDisk&) = delete;

    /// Guarded, measured and logged.
    [[nodiscard]] virtual TrashAttempt trashOnePath(const std::string& path) = 0;

    /// Deletes for good what landed in the Trash, and nothing outside it. Logged.
    [[nodiscard]] virtual Purge purgeFromTrash(const std::vector<KnownItem>& landed) = 0;

    /// Whether the move with administrator rights is known to have worked.
    [[nodiscard]] virtual bool adminMoveToTrash(const std::string& path) = 0;

    struct Move
    {
        std::optional<std::string> error;       ///< the system's words; nothing where it was moved
        std::optional<std::string> landed;      ///< the path in the Trash
        std::optional<FileIdentity> identity{}; ///< what landed
    };
    /// The bare move: no guard, no measure, no log.
    [[nodiscard]] virtual Move moveToTrash(const std::string& path) = 0;

    /// Out of the Trash to a place where nothing stands; the system's words where that failed.
    [[nodiscard]] virtual std::optional<std::string> putBack(const KnownItem& landed,
                                                             const std::string& destination) = 0;

    /// Whether anything stands there; a link is a thing, wherever it points.
    [[nodiscard]] virtual bool exists(const std::string& path) = 0;

    /// Whether what landed in the Trash is still there.
    [[nodiscard]] virtual bool isInTrash(const KnownItem& landed) { return exists(landed.at); }

    /// The folder that the meter reads and the emptying empties.
    [[nodiscard]] virtual std::string trashFolder() = 0;
    /// The same, made first where the system has it only after the first move.
    [[nodiscard]] virtual std::string preparedTrashFolder() = 0;
    /// How many entries it has, hidden ones too; nothing if it cannot be read.
    [[nodiscard]] virtual std::optional<std::int64_t> trashCount() = 0;
    /// Their names.
    [[nodiscard]] virtual std::optional<std::vector<KnownItem>> listTrash() = 0;
    /// Bytes on disk of all entries. Returns early, with any figure, once `stop` is set.
    [[nodiscard]] virtual std::int64_t measureTrash(const std::atomic<bool>& stop) = 0;
    /// Deletes one entry for good, whatever it is; the system's words where that failed. Logged.
    [[nodiscard]] virtual tl::expected<Deletion, std::string>
    deleteFromTrash(const KnownItem& entry) = 0;
    /// Deletes what a deletion that ended early has left out of sight.
    virtual void deleteLeftovers() {}
};

} // namespace zolva
