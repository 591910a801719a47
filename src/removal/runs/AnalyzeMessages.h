#pragma once

#include <QString>

#include <cstdint>
#include <string>

/// The words about single files that the user sends to the Trash, and back. Pure; names and paths
/// may hold any bytes, and nothing in them begins another line or turns the direction of one.
namespace zolva {

inline constexpr auto undoAction = "Undo";

[[nodiscard]] QString cannotMoveText(const std::string& refusal);
[[nodiscard]] QString neverTouchText(const std::string& name);
[[nodiscard]] QString isGoneText(const std::string& name);
[[nodiscard]] QString moveFailedText(const std::string& name, const std::string& error);
[[nodiscard]] QString movedToTrashText(std::int64_t bytes);

[[nodiscard]] QString cannotPutBackText();
[[nodiscard]] QString leftTheTrashText(const std::string& name);
[[nodiscard]] QString placeTakenText(const std::string& path, const std::string& name);
[[nodiscard]] QString putBackFailedText(const std::string& name, const std::string& error);

} // namespace zolva
