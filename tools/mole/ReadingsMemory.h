#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Memory, swap, and how much programs wait for them. One thread.
namespace zolva::mole {

/// What the kernel tells and the statistics library does not, in bytes.
struct MemoryDetails
{
    std::optional<std::int64_t> available; ///< old kernels do not tell
    std::int64_t cached = 0;               ///< page cache, buffers and slabs that can be given back
};

/// From the text of /proc/meminfo; lines that are not understood are passed over. Pure.
[[nodiscard]] MemoryDetails parseMemoryDetails(std::string_view text);

/// Percent of the last ten seconds in which some programs, or all of them, waited for memory.
struct MemoryStalls
{
    double some = 0;
    double full = 0;

    friend bool operator==(const MemoryStalls&, const MemoryStalls&) = default;
};

/// From the text of /proc/pressure/memory; nothing where it is not such a text. Pure.
[[nodiscard]] std::optional<MemoryStalls> parseMemoryStalls(std::string_view text);

/// The stalls in words for people; empty where the kernel does not tell them. Pure.
///
/// "Pressure high": all programs waited for a tenth of the time or more. "Pressure raised": some
/// did for a twentieth or more. "Pressure normal": neither.
[[nodiscard]] std::string pressureText(const std::optional<MemoryStalls>& stalls);

/// Bytes. `used` is what could not be had by a new program: total less available.
struct MemoryReading
{
    std::int64_t used = 0;
    std::int64_t total = 0;
    std::int64_t available = 0;
    std::int64_t swapUsed = 0;
    std::int64_t swapTotal = 0;
    std::int64_t cached = 0;
    double usedPercent = 0;
    std::optional<MemoryStalls> stalls;
};

[[nodiscard]] MemoryReading readMemory();

} // namespace zolva::mole
