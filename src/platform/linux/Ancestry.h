#pragma once

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Where a folder stands among the folders and mounts above it. Climbs by descriptor, so that no
/// link or renaming misleads. Any thread.
namespace zolva {

/// A folder as the mount shows it: the same one elsewhere has other folders above it.
struct Place
{
    FileIdentity identity;
    std::uint64_t mount = 0; ///< 0 where the system does not tell

    friend bool operator==(const Place&, const Place&) = default;
};

/// Of an open folder; nothing, with errno, if it cannot be asked.
[[nodiscard]] std::optional<Place> placeOf(int folder);

/// The folder above; nothing open, with errno, if it cannot be had. It can be looked below, not
/// listed.
[[nodiscard]] FileDescriptor folderAbove(int folder);

/// Of the folder at an absolute path; nothing if a link or ".." is on the way, or it cannot be
/// told.
[[nodiscard]] std::optional<Place> placeWithoutLinks(const std::string& path);

struct Ancestry
{
    std::vector<Place> places;  ///< the folder and those above it, it first
    std::size_t onItsMount = 0; ///< how many of them, from the first
    /// The last of those, which can be looked below; null if it may not be reached.
    std::shared_ptr<const FileDescriptor> top;
    bool isWhole = false; ///< ends at the root

    [[nodiscard]] bool holds(const FileIdentity& one) const;
};

/// Up to the root or to what may not be searched; nothing, with errno, after any other error. What
/// lies above a place that has just been `known` is taken from there.
[[nodiscard]] std::optional<Ancestry> ancestryOf(int folder, const Ancestry* known = nullptr);

} // namespace zolva
