#pragma once

#include <cerrno>

namespace zolva {

/// Makes the system call again as long as a signal interrupted it. A file system in user space
/// gives up a call when any signal that is handled comes in, and what it would have told would be
/// missing from a sum.
template <typename Call>
auto uninterrupted(const Call& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace zolva
