#include "diagnostics/Log.h"

#include "platform/SystemLog.h"
#include "platform/Utf8Text.h"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <mutex>
#include <utility>

namespace zolva {

namespace {

struct Sinks
{
    std::mutex guard;
    std::uint64_t lastId = 0;
    std::vector<std::pair<std::uint64_t, LogSink>> list;
};

Sinks& sinks()
{
    // Never destroyed: other threads may log to the very end.
    static Sinks& all = *new Sinks;
    return all;
}

std::uint64_t addSink(LogSink sink)
{
    Sinks& all = sinks();
    const std::lock_guard lock(all.guard);
    all.list.emplace_back(++all.lastId, std::move(sink));
    return all.lastId;
}

/// The format with each conversion ("%", a part in braces if there is one, letters up to the d or
/// the s) replaced by the next argument.
std::string filled(std::string_view format, std::initializer_list<std::string_view> arguments)
{
    std::string text;
    const auto* next = arguments.begin();
    while (!format.empty()) {
        const std::size_t percent = format.find('%');
        text += format.substr(0, percent);
        if (percent == std::string_view::npos) {
            break;
        }
        format.remove_prefix(percent + 1);
        if (format.starts_with('{')) {
            format.remove_prefix(format.find('}') + 1);
        }
        format.remove_prefix(format.find_first_of("ds") + 1);
        text += *next++;
    }
    return text;
}

void write(const LogFormat& format, std::initializer_list<std::string_view> arguments = {})
{
    Sinks& all = sinks();
    const std::lock_guard lock(all.guard);
    if (all.list.empty()) {
        return;
    }
    const LogRecord record{format.category, format.level, filled(format.text, arguments)};
    for (const auto& [id, sink] : all.list) {
        sink(record);
    }
}

SystemLogLevel systemLevel(LogLevel level)
{
    switch (level) {
    case LogLevel::Debug:
        return SystemLogLevel::Debug;
    case LogLevel::Default:
        return SystemLogLevel::Default;
    case LogLevel::Error:
        return SystemLogLevel::Error;
    case LogLevel::Fault:
        return SystemLogLevel::Fault;
    }
    return SystemLogLevel::Default;
}

std::string_view levelWord(LogLevel level)
{
    switch (level) {
    case LogLevel::Debug:
        return "debug: ";
    case LogLevel::Default:
        return "";
    case LogLevel::Error:
        return "error: ";
    case LogLevel::Fault:
        return "fault: ";
    }
    return "";
}

} // namespace

std::string_view logCategoryName(LogCategory category)
{
    switch (category) {
    case LogCategory::App:
        return "app";
    case LogCategory::Remove:
        return "remove";
    case LogCategory::Scan:
        return "scan";
    }
    return "";
}

void logToSystem()
{
    addSink([](const LogRecord& record) {
        writeSystemLog(logCategoryName(record.category), systemLevel(record.level), record.message);
    });
}

void logToTerminal()
{
    if (::isatty(STDERR_FILENO) == 0) {
        return;
    }
    addSink([](const LogRecord& record) {
        const std::string line = terminalLine(record) + "\n";
        static_cast<void>(::write(STDERR_FILENO, line.data(), line.size()) < 0);
    });
}

std::string terminalLine(const LogRecord& record)
{
    std::string line = "zolva " + std::string(logCategoryName(record.category)) + ": " +
                       std::string(levelWord(record.level));
    // A file's name must neither command the terminal nor pass for another.
    for (std::string_view rest = record.message; !rest.empty();) {
        const std::size_t length = characterLength(rest);
        const bool shown = length > 0 && !steersTerminal(rest.substr(0, length));
        line += shown ? rest.substr(0, length) : "?";
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return line;
}

ScopedLogSink::ScopedLogSink(LogSink sink) : m_id(addSink(std::move(sink))) {}

ScopedLogSink::~ScopedLogSink()
{
    Sinks& all = sinks();
    const std::lock_guard lock(all.guard);
    std::erase_if(all.list, [this](const auto& entry) { return entry.first == m_id; });
}

namespace log {

void accessIntroDismissed(bool openedSettings)
{
    write(logformat::accessIntro, {openedSettings ? "true" : "false"});
}

void updaterEnabled(std::string_view feed)
{
    write(logformat::updaterEnabled, {feed});
}

void updaterInert()
{
    write(logformat::updaterInert);
}

void updateAvailable(std::int64_t build)
{
    write(logformat::updateAvailable, {std::to_string(build)});
}

void updateCurrent()
{
    write(logformat::updateCurrent);
}

void updateSkipped()
{
    write(logformat::updateSkipped);
}

void updateFailed(std::string_view reason)
{
    write(logformat::updateFailed, {reason});
}

void preferencesSetAside(std::string_view path)
{
    write(logformat::preferencesSetAside, {path});
}

void preferencesUnreadable(std::string_view reason)
{
    write(logformat::preferencesUnreadable, {reason});
}

void preferencesUnwritten(std::string_view reason)
{
    write(logformat::preferencesUnwritten, {reason});
}

void unfinishedRun(std::string_view journal)
{
    write(logformat::unfinishedRun, {journal});
}

void runStarting(std::string_view label, std::int64_t paths, std::int64_t bytes)
{
    write(logformat::runStarting, {label, std::to_string(paths), std::to_string(bytes)});
}

void runFinished(std::string_view label, std::int64_t moved, std::int64_t purged,
                 std::int64_t problems)
{
    write(logformat::runFinished,
          {label, std::to_string(moved), std::to_string(purged), std::to_string(problems)});
}

void runStopped(std::string_view label, std::int64_t removed, std::int64_t leftAlone)
{
    write(logformat::runStopped, {label, std::to_string(removed), std::to_string(leftAlone)});
}

void trashed(std::string_view path, std::int64_t bytes)
{
    write(logformat::trashed, {path, std::to_string(bytes)});
}

void purged(std::string_view path)
{
    write(logformat::purged, {path});
}

void alreadyGone(std::string_view path)
{
    write(logformat::alreadyGone, {path});
}

void refused(std::string_view path, std::string_view reason)
{
    write(logformat::refused, {path, reason});
}

void failed(std::string_view path, std::string_view reason)
{
    write(logformat::failed, {path, reason});
}

void purgeRefused(std::string_view path, std::string_view reason)
{
    write(logformat::purgeRefused, {path, reason});
}

void trashNotFound()
{
    write(logformat::trashNotFound);
}

void blockedByPrivacy(const std::vector<std::string>& names)
{
    std::string all;
    for (const std::string& name : names) {
        all += (all.empty() ? "" : ", ") + name;
    }
    write(logformat::blockedByPrivacy, {all});
}

} // namespace log

} // namespace zolva
