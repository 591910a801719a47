#pragma once

#include "files/Records.h"
#include "files/TreeWalker.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What can be cleaned: caches, logs and other things that are rebuilt on demand. Reads the disk
/// only. Blocks; any thread, as long as nobody changes the environment meanwhile.
namespace zolva {

struct CatalogEntry
{
    std::string_view name;
    std::string_view desc;
    std::string_view path; ///< relative to the home folder
    bool recursive;        ///< each child of the folder is a row of its own
};

extern const std::array<CatalogEntry, 7> cleanCatalog;

/// Folders that are listed but never chosen, by their own name.
extern const std::array<std::string_view, 12> protectedCacheNames;

/// Bytes below which neither a path nor a category is shown.
inline constexpr std::int64_t minimumBytes = 1'000'000;

/// The whole catalog, largest first, equal totals in catalog order.
[[nodiscard]] std::vector<Category> scanCategories(std::int64_t floor = minimumBytes,
                                                   const WalkProgressTold& told = {});

/// One row; nothing where it falls short of the floor.
[[nodiscard]] std::optional<Category> scanCategory(std::string_view name, std::string_view desc,
                                                   const std::string& path, bool recursive,
                                                   std::int64_t floor);

} // namespace zolva
