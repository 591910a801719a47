#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

/// The text of a .trashinfo file: where a thing came from and when it went. Pure.
namespace zolva {

struct TrashInfo
{
    std::string path; ///< bytes, decoded
    std::string date; ///< as written, "YYYY-MM-DDThh:mm:ss" of the local time; may be empty

    friend bool operator==(const TrashInfo&, const TrashInfo&) = default;
};

/// Every byte but letters, digits, "-._~" and "/" as "%XX".
[[nodiscard]] std::string percentEncoded(std::string_view bytes);

/// A "%" that two hexadecimal digits do not follow stands for itself.
[[nodiscard]] std::string percentDecoded(std::string_view text);

[[nodiscard]] std::string trashInfoText(std::string_view path, std::time_t when);

/// The first Path of the group "Trash Info"; nothing if there is none, or it is empty or holds NUL.
[[nodiscard]] std::optional<TrashInfo> parsedTrashInfo(std::string_view text);

/// The place that a path in the user's own Trash names: absolute and without "..", else nothing is
/// believed.
[[nodiscard]] bool isBelievableOrigin(std::string_view path);

} // namespace zolva
