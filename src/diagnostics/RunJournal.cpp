#include "diagnostics/RunJournal.h"

#include "diagnostics/Log.h"
#include "diagnostics/RunLock.h"
#include "platform/WholeFile.h"

#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace zolva {

namespace {

constexpr auto journalName = "/in-progress.txt";
constexpr mode_t journalMode = 0644;
/// Far more than a marker can be; a larger file is none of ours.
constexpr std::size_t journalLimit = std::size_t{64} * 1024;

/// Unicode's white space and line ends, in UTF-8.
constexpr std::array<std::string_view, 25> blanks = {
    "\t",           "\n",           "\v",           "\f",           "\r",           " ",
    "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82",
    "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88",
    "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F",
    "\xE3\x80\x80"};

std::string_view withoutBlanksAround(std::string_view text)
{
    const auto* const end = blanks.end();
    const auto first = [&] {
        return std::find_if(blanks.begin(), end,
                            [&](std::string_view blank) { return text.starts_with(blank); });
    };
    const auto last = [&] {
        return std::find_if(blanks.begin(), end,
                            [&](std::string_view blank) { return text.ends_with(blank); });
    };
    for (const auto* blank = first(); blank != end; blank = first()) {
        text.remove_prefix(blank->size());
    }
    for (const auto* blank = last(); blank != end; blank = last()) {
        text.remove_suffix(blank->size());
    }
    return text;
}

std::vector<std::string_view> fieldsOf(std::string_view line)
{
    std::vector<std::string_view> fields;
    while (!line.empty()) {
        const std::size_t tab = std::min(line.find('\t'), line.size());
        if (tab > 0) {
            fields.push_back(line.substr(0, tab));
        }
        line.remove_prefix(std::min(tab + 1, line.size()));
    }
    return fields;
}

} // namespace

std::string logFolder(std::string_view home)
{
    return std::string(home) + (home.ends_with('/') ? "" : "/") + "Library/Logs/Zolva";
}

std::string iso8601(std::chrono::system_clock::time_point time)
{
    const std::time_t seconds =
        std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
    std::tm parts{};
    std::array<char, 64> text{};
    if (::gmtime_r(&seconds, &parts) == nullptr ||
        std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts) == 0) {
        return {};
    }
    return text.data();
}

void journalBegin(const std::string& folder, std::string_view label, std::size_t paths,
                  std::chrono::system_clock::time_point now)
{
    const std::string line = iso8601(now) + "\t" + std::string(label) + "\t" +
                             std::to_string(paths) + " paths\tpid " + std::to_string(::getpid()) +
                             "\n";
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    static_cast<void>(replaceWholeFile(folder + journalName, line, journalMode));
}

void journalClear(const std::string& folder)
{
    ::unlink((folder + journalName).c_str());
}

std::optional<std::string> journalRead(const std::string& folder)
{
    const WholeFile file = readWholeFile(folder + journalName, journalLimit);
    const std::string_view content = withoutBlanksAround(file.bytes);
    if (file.error || content.empty()) {
        return std::nullopt;
    }
    return std::string(content);
}

std::optional<UnfinishedRun> takeUnfinishedRun(const std::string& folder)
{
    std::optional<std::string> journal = journalRead(folder);
    if (!journal) {
        return std::nullopt;
    }
    const RunLock lock(folder);
    if (lock.state() == RunLock::State::HeldByOther) {
        return std::nullopt;
    }
    // The run may have come to its end between the two looks.
    journal = journalRead(folder);
    if (!journal) {
        return std::nullopt;
    }
    journalClear(folder);
    log::unfinishedRun(*journal);
    const std::vector<std::string_view> fields = fieldsOf(*journal);
    const std::string label(fields.size() >= 2 ? fields[1] : "A removal");
    return UnfinishedRun{*std::move(journal), label};
}

std::string unfinishedRunText(const UnfinishedRun& run)
{
    return "A previous " + run.label +
           " run didn't finish. Some items may have been removed and others not.";
}

} // namespace zolva
