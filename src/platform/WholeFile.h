#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <system_error>

/// Small files, read as a whole, and those of our own replaced as a whole. Any thread.
namespace zolva {

struct WholeFile
{
    std::error_code error; ///< why it could not be read; nothing else is set then
    std::string bytes;
};

/// The content of a regular file, links followed. Anything else than a regular file is
/// `invalid_argument`, one longer than the limit `file_too_large`; it never waits for a writer.
[[nodiscard]] WholeFile readWholeFile(const std::string& path, std::size_t limit);

/// Puts the bytes in the place of the file, if there is one: on the disk (synced) beside it first,
/// then renamed. Whoever reads sees the old content or the new one; after an error, the old one.
[[nodiscard]] std::error_code replaceWholeFile(const std::string& path, std::string_view bytes,
                                               mode_t mode);

} // namespace zolva
