#pragma once

#include <optional>
#include <string>

namespace zolva::test {

/// For TMPDIR, where many trees are grown: in memory where the system has a place for that, since a
/// disk that discards what is freed takes its time over every single file. Else as it is.
[[nodiscard]] std::optional<std::string> quickPlace();

} // namespace zolva::test
