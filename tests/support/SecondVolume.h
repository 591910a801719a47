#pragma once

#include <functional>
#include <string>

namespace zolva::test {

/// Runs `body` in a child process that has a folder on another file system than the temporary one,
/// and takes over the failures of its expectations. `top` is the top of that volume, `folder` a new
/// folder below it. It is a mount that only the child sees, where the system lets us make one; else
/// a folder in /dev/shm. Memory changed by `body` is not seen afterwards.
void withSecondVolume(
    const std::function<void(const std::string& top, const std::string& folder)>& body);

/// Runs `body` in a child process where `target`, a folder, is a second mount of `source`. False,
/// with nothing run, where the system does not let us mount.
[[nodiscard]] bool withBindMount(const std::string& source, const std::string& target,
                                 const std::function<void()>& body);

/// From here on this process sees mounts of its own, if the system lets it; before any thread.
[[nodiscard]] bool takeOwnMounts();

} // namespace zolva::test
