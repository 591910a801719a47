#pragma once

#include <functional>

namespace zolva::test {

/// Runs `body` in a child process, before any thread of its own, and takes over the failures of its
/// expectations. The calling test fails as well if the child does not end by itself. Memory changed
/// by `body` is not seen afterwards.
void inChild(const std::function<void()>& body);

} // namespace zolva::test
