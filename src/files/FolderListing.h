#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zolva {

enum class EntryKind
{
    File,
    Folder,
    Link,
    Other
};

/// One entry of a folder; links are links, whatever they point to.
struct FolderEntry
{
    std::string name;
    EntryKind kind = EntryKind::Other;
};

enum class HiddenEntries
{
    Keep,
    Skip
};

/// The entries of the folder in the order the system lists them, without "." and ".."; nothing if
/// it cannot be listed. A link to a folder is followed. Hidden means that the name begins with ".".
/// Any thread.
[[nodiscard]] std::optional<std::vector<FolderEntry>> listFolder(const std::string& folder,
                                                                 HiddenEntries hidden);

/// Whether something stands at the path, links followed.
[[nodiscard]] bool existsAt(const std::string& path);

/// Whether a folder stands at the path, links followed.
[[nodiscard]] bool isFolderAt(const std::string& path);

} // namespace zolva
