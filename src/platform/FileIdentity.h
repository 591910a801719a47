#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <optional>
#include <string>

/// Which thing on disk a name stands for, so that it can be known again. Any thread.
namespace zolva {

struct FileIdentity
{
    dev_t device = 0;
    ino_t inode = 0;
    mode_t type = 0; ///< the S_IFMT bits

    [[nodiscard]] bool isFolder() const { return S_ISDIR(type); }
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// Of the entry itself, a link not followed; nothing, with errno, if it cannot be asked.
[[nodiscard]] std::optional<FileIdentity> identityAt(int folder, const std::string& name);

/// Of an open descriptor.
[[nodiscard]] std::optional<FileIdentity> identityOf(int fd);

} // namespace zolva
