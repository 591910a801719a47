#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zolva {

/// What the program prints instead of showing a window, if that is asked for. The arguments are
/// those after its name.
[[nodiscard]] std::optional<std::string> askedAnswer(const std::vector<std::string>& arguments);

/// What is wrong with the arguments that the toolkit did not take.
[[nodiscard]] std::optional<std::string> complaintAbout(const std::vector<std::string>& arguments);

} // namespace zolva
