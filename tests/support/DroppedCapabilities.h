#pragma once

#include <functional>

namespace zolva::test {

/// Runs `body` in a child process for which permission bits bind even as root, before any thread of
/// its own, and takes over the failures of its expectations. The calling test fails if the
/// capabilities cannot be dropped or the child does not end by itself. Memory changed by `body` is
/// not seen afterwards.
void withoutOverridingPermissions(const std::function<void()>& body);

} // namespace zolva::test
