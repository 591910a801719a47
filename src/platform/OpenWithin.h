#pragma once

#include "platform/FileDescriptor.h"

#include <string>

namespace zolva {

/// The folder `name` in the open folder, for reading: never through a link (ELOOP or ENOTDIR),
/// never onto another file system or mount (EXDEV). Nothing open, with errno, if not.
[[nodiscard]] FileDescriptor openWithin(int folder, const std::string& name);

} // namespace zolva
