#pragma once

#include <string_view>

namespace zolva {

enum class SystemLogLevel
{
    Debug,
    Default,
    Error,
    Fault
};

/// One message to the system's own log, under this program's name and the category. Where no such
/// log runs, nothing happens. Any thread.
void writeSystemLog(std::string_view category, SystemLogLevel level, std::string_view message);

} // namespace zolva
