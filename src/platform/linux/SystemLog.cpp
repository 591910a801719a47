#include "platform/SystemLog.h"

#include "platform/linux/JournalFields.h"

// The place in our source says nothing to whoever reads the journal.
#define SD_JOURNAL_SUPPRESS_LOCATION
#include <sys/uio.h>
#include <syslog.h>
#include <systemd/sd-journal.h>

#include <string>
#include <vector>

namespace zolva {

namespace {

constexpr int priority(SystemLogLevel level)
{
    switch (level) {
    case SystemLogLevel::Debug:
        return LOG_DEBUG;
    case SystemLogLevel::Default:
        return LOG_NOTICE;
    case SystemLogLevel::Error:
        return LOG_ERR;
    case SystemLogLevel::Fault:
        return LOG_CRIT;
    }
    return LOG_NOTICE;
}

} // namespace

std::vector<std::string> journalFields(std::string_view category, SystemLogLevel level,
                                       std::string_view message)
{
    return {"MESSAGE=" + std::string(message), "PRIORITY=" + std::to_string(priority(level)),
            "SYSLOG_IDENTIFIER=zolva", "ZOLVA_CATEGORY=" + std::string(category)};
}

void writeSystemLog(std::string_view category, SystemLogLevel level, std::string_view message)
{
    std::vector<std::string> fields = journalFields(category, level, message);
    std::vector<iovec> parts;
    parts.reserve(fields.size());
    for (std::string& field : fields) {
        parts.push_back({field.data(), field.size()});
    }
    // There is nobody left to tell that the log cannot be written.
    static_cast<void>(::sd_journal_sendv(parts.data(), static_cast<int>(parts.size())));
}

} // namespace zolva
