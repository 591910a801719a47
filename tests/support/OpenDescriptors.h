#pragma once

#include <cstddef>
#include <string>

namespace zolva::test {

/// The descriptors that this process has open.
[[nodiscard]] std::size_t openDescriptors();
/// Those of them for the folder and what is in it.
[[nodiscard]] std::size_t openDescriptorsIn(const std::string& folder);

} // namespace zolva::test
