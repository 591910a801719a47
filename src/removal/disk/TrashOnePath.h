#pragma once

#include "platform/FileIdentity.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

/// One path to the Trash. Nothing in the program deletes a path where it stands.
namespace zolva {

struct TrashMoved
{
    std::int64_t bytes = 0; ///< allocated, measured before the move

    friend bool operator==(const TrashMoved&, const TrashMoved&) = default;
};

/// A guard would not have it touched.
struct TrashRefused
{
    std::string text;

    friend bool operator==(const TrashRefused&, const TrashRefused&) = default;
};

/// The system would not move it; its own words. It stands where it stood.
struct TrashFailed
{
    std::string text;

    friend bool operator==(const TrashFailed&, const TrashFailed&) = default;
};

/// There was nothing at the path.
struct TrashAlreadyAbsent
{
    friend bool operator==(const TrashAlreadyAbsent&, const TrashAlreadyAbsent&) = default;
};

using TrashOutcome = std::variant<TrashMoved, TrashRefused, TrashFailed, TrashAlreadyAbsent>;

struct TrashAttempt
{
    TrashOutcome outcome;
    /// Where the item is now; only with `TrashMoved`, and not even then always: what the system did
    /// not tell the place of can never be purged.
    std::optional<std::string> landed;
    /// What landed, to be known again.
    std::optional<FileIdentity> identity{};
};

/// Asks the guard once more, measures, moves, and writes to the log what became of it. `path` may
/// begin with a tilde. Never fails: every failure is an outcome. Blocks; any thread but the main
/// one.
[[nodiscard]] TrashAttempt trashOnePath(const std::string& path);

} // namespace zolva
