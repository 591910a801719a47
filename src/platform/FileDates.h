#pragma once

#include <chrono>
#include <optional>
#include <string>

/// Dates of a thing on disk, links not followed; nothing where the system does not know. Any
/// thread.
namespace zolva {

using FileDate = std::chrono::system_clock::time_point;

/// When its content was last modified.
[[nodiscard]] std::optional<FileDate> contentModificationDate(const std::string& path);

/// When it was added to its folder; Linux keeps no such date.
[[nodiscard]] std::optional<FileDate> addedToFolderDate(const std::string& path);

/// When it was created.
[[nodiscard]] std::optional<FileDate> creationDate(const std::string& path);

} // namespace zolva
