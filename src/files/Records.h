#pragma once

#include "files/Uuid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The rows that the scanners hand to whoever shows or removes them. Plain values. Paths are bytes
/// in `tildePath` form unless told otherwise; sizes are allocated bytes; ages are whole days.
namespace zolva {

/// One removable path of a category.
struct CatPath
{
    Uuid id = freshUuid();
    std::string p;
    std::int64_t b = 0;
    bool prot = false; ///< listed and counted, never selected
    bool sudo = false; ///< the scan always writes false
};

/// One row of what can be cleaned; `id` is `name`. At least one path, largest first.
struct Category
{
    std::string id;
    std::string name;
    std::string desc;
    std::int64_t items = 0; ///< paths at scan time
    bool sudo = false;      ///< the scan always writes false
    std::vector<CatPath> paths;
};

/// The sum over the paths, by which categories are ordered.
[[nodiscard]] std::int64_t totalBytes(const Category& category);

/// One build artifact. `p` is the folder that holds it.
struct Project
{
    Uuid id = freshUuid();
    std::string p;
    std::string artifact;
    std::int64_t b = 0;
    std::int64_t age = 0;
};

/// `p`, "/", `artifact`: by which a project is chosen, rescans included.
[[nodiscard]] std::string projectKey(const Project& project);

/// One leftover installer. `p` has every occurrence of the home path replaced by "~".
struct InstallerItem
{
    Uuid id = freshUuid();
    std::string name;
    std::string src;
    std::int64_t b = 0;
    std::int64_t age = 0;
    std::string p;
};

/// One large file.
struct BigFile
{
    Uuid id = freshUuid();
    std::string name;
    std::string p;
    std::int64_t b = 0;
};

/// One leftover location of an application.
struct ResidueRow
{
    Uuid id = freshUuid();
    std::string loc;
    std::int64_t n = 1; ///< regular files below, at least 1
    std::int64_t b = 0;
    std::string p;
    bool shared = false;
    std::optional<std::string> sharedWith;
};

} // namespace zolva
