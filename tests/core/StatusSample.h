#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace zolva::test {

/// A status document with every key that the records know, and every list with one element.
[[nodiscard]] nlohmann::json statusDocument();

/// The same as one line, with `usage` as the processor's use and `usedPercent` as the memory's.
[[nodiscard]] std::string statusLine(double usage = 12.5, double usedPercent = 50.25);

} // namespace zolva::test
