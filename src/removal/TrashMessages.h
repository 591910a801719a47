#pragma once

#include <QString>

#include <cstdint>

/// The words about the Trash itself. Pure.
namespace zolva {

[[nodiscard]] QString newItemsText();
inline constexpr auto emptyTrashAction = "Empty Trash";

[[nodiscard]] QString trashUnreadableText();
[[nodiscard]] QString trashAlreadyEmptyText();
/// What emptying it came to.
[[nodiscard]] QString trashEmptiedText(std::int64_t emptied, std::int64_t failed);

} // namespace zolva
