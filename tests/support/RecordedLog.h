#pragma once

#include "diagnostics/Log.h"

#include <mutex>
#include <string>
#include <vector>

namespace zolva::test {

/// Keeps what is logged as long as it lives.
class RecordedLog
{
public:
    [[nodiscard]] std::vector<LogRecord> records() const
    {
        const std::lock_guard lock(m_guard);
        return m_records;
    }

    /// The messages alone.
    [[nodiscard]] std::vector<std::string> messages() const
    {
        std::vector<std::string> all;
        for (const LogRecord& record : records()) {
            all.push_back(record.message);
        }
        return all;
    }

private:
    mutable std::mutex m_guard;
    std::vector<LogRecord> m_records;
    ScopedLogSink m_sink{[this](const LogRecord& record) {
        const std::lock_guard lock(m_guard);
        m_records.push_back(record);
    }};
};

} // namespace zolva::test
