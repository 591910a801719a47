#include "mole/ReadingsMemory.h"

#include "mole/Rates.h"
#include "mole/SystemFile.h"

#include <statgrab.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace zolva::mole {

namespace {

constexpr std::int64_t kilobyte = 1024;

/// The bytes of "1234 kB"; nothing for what does not fit.
std::optional<std::int64_t> bytesOf(std::string_view amount)
{
    const std::optional<std::int64_t> value = wholeNumber(nextWord(amount));
    if (!value || *value < 0 || *value > std::numeric_limits<std::int64_t>::max() / kilobyte) {
        return std::nullopt;
    }
    return *value * kilobyte;
}

/// The value of "avg10=" in the fields of a line.
std::optional<double> tenSecondShare(std::string_view fields)
{
    constexpr std::string_view key = "avg10=";
    for (std::string_view word = nextWord(fields); !word.empty(); word = nextWord(fields)) {
        if (!word.starts_with(key)) {
            continue;
        }
        word.remove_prefix(key.size());
        double value = 0;
        const char* end = word.data() + word.size();
        const auto [rest, error] = std::from_chars(word.data(), end, value);
        if (error == std::errc() && rest == end && value >= 0 && value <= 100) {
            return value;
        }
        return std::nullopt;
    }
    return std::nullopt;
}

std::int64_t clampedBytes(unsigned long long bytes)
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    return bytes > static_cast<unsigned long long>(most) ? most : static_cast<std::int64_t>(bytes);
}

} // namespace

MemoryDetails parseMemoryDetails(std::string_view text)
{
    MemoryDetails details;
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        const std::string_view name = nextWord(line);
        const std::optional<std::int64_t> bytes = bytesOf(line);
        if (!bytes) {
            continue;
        }
        if (name == "MemAvailable:") {
            details.available = *bytes;
        } else if (name == "Cached:" || name == "Buffers:" || name == "SReclaimable:") {
            const std::int64_t room = std::numeric_limits<std::int64_t>::max() - details.cached;
            details.cached += std::min(*bytes, room);
        }
    }
    return details;
}

std::optional<MemoryStalls> parseMemoryStalls(std::string_view text)
{
    std::optional<double> some;
    std::optional<double> full;
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        const std::string_view name = nextWord(line);
        if (name == "some") {
            some = tenSecondShare(line);
        } else if (name == "full") {
            full = tenSecondShare(line);
        }
    }
    if (!some) {
        return std::nullopt;
    }
    return MemoryStalls{*some, full.value_or(0)};
}

std::string pressureText(const std::optional<MemoryStalls>& stalls)
{
    if (!stalls) {
        return {};
    }
    if (stalls->full >= 10) {
        return "Pressure high";
    }
    return stalls->some >= 5 ? "Pressure raised" : "Pressure normal";
}

MemoryReading readMemory()
{
    MemoryReading reading;
    std::size_t entries = 0;
    const sg_mem_stats* memory = sg_get_mem_stats(&entries);
    const MemoryDetails details =
        parseMemoryDetails(fileText("/proc/meminfo").value_or(std::string()));
    if (memory && entries > 0) {
        reading.total = clampedBytes(memory->total);
        reading.available = details.available.value_or(clampedBytes(memory->free + memory->cache));
        reading.available = std::min(reading.available, reading.total);
        reading.used = reading.total - reading.available;
        reading.usedPercent =
            percent(static_cast<double>(reading.used), static_cast<double>(reading.total));
    }
    reading.cached = details.cached;
    const sg_swap_stats* swap = sg_get_swap_stats(&entries);
    if (swap && entries > 0) {
        reading.swapTotal = clampedBytes(swap->total);
        reading.swapUsed = clampedBytes(swap->used);
    }
    reading.stalls = parseMemoryStalls(fileText("/proc/pressure/memory").value_or(std::string()));
    return reading;
}

} // namespace zolva::mole
