#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The file that outlives an uncaught exception or a fatal signal: "crashes.log" in the folder of
/// the logs, appended to. The process's own death is left as it is: same signal, same status.
namespace zolva {

/// Opens the file, and hooks in for uncaught exceptions and for SIGSEGV, SIGBUS, SIGILL, SIGFPE,
/// SIGABRT and SIGTRAP. A file that cannot be opened costs the records and nothing else. Gives the
/// calling thread its stack for signals; every other thread asks for its own. Main thread, once;
/// called again it goes on in the other folder.
void installCrashCapture(const std::string& folder);

/// How many lines of the stack a record keeps.
inline constexpr std::size_t keptStackLines = 25;

/// What the record of an uncaught exception says. Pure.
[[nodiscard]] std::string uncaughtMessage(std::string_view name,
                                          const std::optional<std::string>& reason,
                                          const std::vector<std::string>& stack);

/// The record of a message, with the line ends around it. Pure.
[[nodiscard]] std::string crashRecord(std::chrono::system_clock::time_point time,
                                      std::string_view message);

/// The decimal digits of a number of 0 or more, made without any library; a view into the buffer.
[[nodiscard]] std::string_view decimalDigits(int number, std::array<char, 12>& buffer) noexcept;

} // namespace zolva
