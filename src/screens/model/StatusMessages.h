#pragma once

#include "core/StatusRecords.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

/// What the Status screen says beside its tiles, and when it warns. Pure.
namespace zolva {

/// Nothing before the first reading.
[[nodiscard]] QString statusFooter(const std::optional<StatusResult>& status);

/// The chart in words: both series as they stand now and at their highest, in percent.
[[nodiscard]] QString spokenChart(const std::vector<double>& cpu, const std::vector<double>& mem);

/// Whether the last samples of the processor's use, twenty or as many as there are, but five at
/// least, lie above the threshold on average. In percent.
[[nodiscard]] bool isCpuSustained(const std::vector<double>& cpu, std::int64_t threshold);

[[nodiscard]] QString sustainedWarning(std::int64_t threshold);

} // namespace zolva
