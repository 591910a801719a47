#pragma once

#include "support/TempTree.h"

#include <cstdint>
#include <string>

namespace zolva::test {

/// A file that occupies at least `bytes`, reserved and not written: its blocks are counted at once,
/// where written data would have to be synced first. 0 makes an empty one. Returns the full path;
/// throws std::system_error if the disk will not have it.
std::string reservedFile(TempTree& tree, const std::string& relative, std::int64_t bytes);

/// The same at a full path whose parent exists.
void reserveFileAt(const std::string& path, std::int64_t bytes);

/// A socket that nobody listens at.
void socketAt(const std::string& path);

} // namespace zolva::test
