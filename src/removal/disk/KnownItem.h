#pragma once

#include "platform/FileIdentity.h"

#include <optional>
#include <string>
#include <utility>

namespace zolva {

/// Something in the Trash, by its path or its name there, to be known again: what another program
/// puts in its place meanwhile is not meant.
struct KnownItem
{
    std::string at;
    std::optional<FileIdentity> identity; ///< nothing where it was not told; then `at` alone counts

    KnownItem(std::string place, const std::optional<FileIdentity>& known = std::nullopt)
        : at(std::move(place)), identity(known)
    {}
    friend bool operator==(const KnownItem&, const KnownItem&) = default;
};

} // namespace zolva
