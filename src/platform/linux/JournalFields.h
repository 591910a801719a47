#pragma once

#include "platform/SystemLog.h"

#include <string>
#include <string_view>
#include <vector>

namespace zolva {

/// The "NAME=value" fields of one entry of the system journal. Pure.
[[nodiscard]] std::vector<std::string>
journalFields(std::string_view category, SystemLogLevel level, std::string_view message);

} // namespace zolva
