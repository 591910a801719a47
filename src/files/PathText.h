#pragma once

#include "platform/Utf8Text.h" // trimmedText, which paths and entries are given to

#include <string>
#include <string_view>

/// Rules on the text of paths. Paths are bytes; nothing here looks at the disk, but that
/// `expandTilde` reads the home folder and, for "~user", the account's entry. Any thread.
namespace zolva {

/// "~" and "~/…" by `homeFolder()`, "~user" and "~user/…" by that account's home; anything else,
/// an unknown account too, comes back unchanged. Doubled and trailing slashes are tidied in what
/// was expanded.
[[nodiscard]] std::string expandTilde(std::string_view path);

/// Without ".", "..", doubled and trailing slashes; of an absolute path. ".." at the root is
/// dropped. No link is resolved. A relative path is taken as if it stood at the root.
[[nodiscard]] std::string standardizedPath(std::string_view path);

/// With one "/" for each run of them, and none at the end; the root stays "/".
[[nodiscard]] std::string withTidySlashes(std::string_view path);

/// The part after the last "/", trailing slashes aside; "/" for the root.
[[nodiscard]] std::string lastComponent(std::string_view path);

/// The path without its last component; "/" for a child of the root and the root itself; empty for
/// a lone name.
[[nodiscard]] std::string parentPath(std::string_view path);

/// `folder`, one "/", `name`; the name alone where there is no folder text.
[[nodiscard]] std::string joinedPath(std::string_view folder, std::string_view name);

/// Whether `path` equals `folder` or lies below it, by text alone; trailing slashes of the folder
/// aside. Nothing lies below an empty text.
[[nodiscard]] bool isSameOrBelow(std::string_view path, std::string_view folder);

/// The text after the last "." of the last component, lower-cased (ASCII); empty where there is
/// none or the name begins with its only ".".
[[nodiscard]] std::string loweredExtension(std::string_view path);

} // namespace zolva
