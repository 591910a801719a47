#pragma once

#include "diagnostics/LogFormats.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// What happened, for after the fact: one function per message. Nothing is written anywhere before
/// a sink is there; a log that cannot be written is never told. Any thread.
namespace zolva {

struct LogRecord
{
    LogCategory category = LogCategory::App;
    LogLevel level = LogLevel::Default;
    std::string message;

    friend bool operator==(const LogRecord&, const LogRecord&) = default;
};

/// "app", "remove" or "scan".
[[nodiscard]] std::string_view logCategoryName(LogCategory category);

/// Called with one record at a time, from any thread. It must not log.
using LogSink = std::function<void(const LogRecord&)>;

/// From here to the process's end every message goes to the system's log too.
void logToSystem();
/// The same to standard error, a line each; does nothing where that is no terminal.
void logToTerminal();

/// The line of the terminal for a record, without its end. What steers a terminal, reorders its
/// line or is not UTF-8 is shown as "?".
[[nodiscard]] std::string terminalLine(const LogRecord& record);

/// A sink for as long as this lives.
class ScopedLogSink
{
public:
    explicit ScopedLogSink(LogSink sink);
    ~ScopedLogSink();
    ScopedLogSink(const ScopedLogSink&) = delete;
    ScopedLogSink& operator=(const ScopedLogSink&) = delete;

private:
    std::uint64_t m_id;
};

namespace log {

void accessIntroDismissed(bool openedSettings);
void updaterEnabled(std::string_view feed);
void updaterInert();
void updateAvailable(std::int64_t build);
void updateCurrent();
void updateSkipped();
void updateFailed(std::string_view reason);
void preferencesSetAside(std::string_view path);
void preferencesUnreadable(std::string_view reason);
void preferencesUnwritten(std::string_view reason);

void unfinishedRun(std::string_view journal);
void runStarting(std::string_view label, std::int64_t paths, std::int64_t bytes);
void runFinished(std::string_view label, std::int64_t moved, std::int64_t purged,
                 std::int64_t problems);
void runStopped(std::string_view label, std::int64_t removed, std::int64_t leftAlone);
void trashed(std::string_view path, std::int64_t bytes);
void purged(std::string_view path);
void alreadyGone(std::string_view path);
void refused(std::string_view path, std::string_view reason);
void failed(std::string_view path, std::string_view reason);
void purgeRefused(std::string_view path, std::string_view reason);
void trashNotFound();

void blockedByPrivacy(const std::vector<std::string>& names);

} // namespace log

} // namespace zolva
