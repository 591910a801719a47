#include "platform/SystemLog.h"

#import <Foundation/Foundation.h>
#include <os/log.h>

#include <string>

namespace zolva {

namespace {

constexpr os_log_type_t logType(SystemLogLevel level)
{
    switch (level) {
    case SystemLogLevel::Debug:
        return OS_LOG_TYPE_DEBUG;
    case SystemLogLevel::Default:
        return OS_LOG_TYPE_DEFAULT;
    case SystemLogLevel::Error:
        return OS_LOG_TYPE_ERROR;
    case SystemLogLevel::Fault:
        return OS_LOG_TYPE_FAULT;
    }
    return OS_LOG_TYPE_DEFAULT;
}

} // namespace

void writeSystemLog(std::string_view category, SystemLogLevel level, std::string_view message)
{
    NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
    const char* subsystem = identifier ? identifier.UTF8String : "zolva";
    // The system hands out one log for equal names and keeps it.
    os_log_t log = os_log_create(subsystem, std::string(category).c_str());
    os_log_with_type(log, logType(level), "%{public}s", std::string(message).c_str());
}

} // namespace zolva
