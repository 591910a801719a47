#pragma once

#include "core/StatusRecords.h"

#include <tl/expected.hpp>

#include <string>
#include <string_view>

namespace zolva {

/// Decodes one line of the status stream. It fails as a whole, with a text that names the path of
/// the first key that is missing, null or of another type than the record's; keys that no record
/// knows are passed over. Bytes that are no UTF-8 are read as U+FFFD. Pure; throws nothing.
[[nodiscard]] tl::expected<StatusResult, std::string> decodeStatus(std::string_view line);

} // namespace zolva
