#pragma once

#include "mole/Sampler.h"

#include <chrono>
#include <string>

namespace zolva::mole {

/// The sample as one JSON object (RFC 8259) on one line, without the line feed. Sizes are bytes,
/// rates of disks and network megabytes (10^6 bytes) a second. Bytes that are not UTF-8 become
/// U+FFFD. What this tool does not read (graphics cards, other sensors, Bluetooth) is
/// null; it watches no processes and says so. Pure.
[[nodiscard]] std::string statusDocument(const Sample& sample);

/// The moment as "2026-01-02T03:04:05.678Z". Pure.
[[nodiscard]] std::string momentText(std::chrono::system_clock::time_point moment);

} // namespace zolva::mole
