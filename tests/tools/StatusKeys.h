#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace zolva::test {

/// What a reader that takes nothing but the documented keys and types finds wrong in a status
/// document, as "record.key", once for each place.
[[nodiscard]] std::vector<std::string> faultsOf(const nlohmann::json& document);

} // namespace zolva::test
