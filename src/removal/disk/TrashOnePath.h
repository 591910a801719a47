#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace zolva {

struct Moved
{
    std::int64_t bytes = 0; ///< on disk, before the move
};
struct Refused
{
    std::string text;
};
struct Failed
{
    std::string text;
};
struct AlreadyAbsent
{};

/// What became of one path.
using TrashOutcome = std::variant<Moved, Refused, Failed, AlreadyAbsent>;

struct TrashAttempt
{
    TrashOutcome outcome;
    std::optional<std::string> landed; ///< the path in the Trash; only of what was moved
};

} // namespace zolva
