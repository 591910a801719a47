#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The measures and rules of the scanners once more, as plainly as they can be written, one thing
/// after the other. They share no code with the program.
namespace zolva::test::naive {

/// Names in the order of the system, without "." and ".."; nothing if it cannot be listed.
std::optional<std::vector<std::string>> namesIn(const std::string& folder);

/// lstat says that it is a folder, or a regular file.
bool isOwnFolder(const std::string& path);
bool isOwnFile(const std::string& path);

/// stat says that it is a folder.
bool leadsToFolder(const std::string& path);

/// Allocated bytes of a file or a link, or of the regular files of a tree; 0 for a dangling link.
std::int64_t bytesOf(const std::string& path);

/// Whole days since it was modified itself, before the given nanosecond of the epoch.
std::int64_t ageOf(const std::string& path, std::int64_t now);

/// Home in front as "~".
std::string tilde(const std::string& path, const std::string& home);

/// Whether the path, its dots gone, is not below this home. Enough for homes in temporary folders.
bool isRefused(const std::string& path, const std::string& home);

/// Names, parents and extensions of paths without trailing slashes.
std::string nameOf(const std::string& path);
std::string parentOf(const std::string& path);

} // namespace zolva::test::naive
