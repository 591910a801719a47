#pragma once

#include <functional>

/// A child process and all that it starts, as one thing that can be ended.
namespace zolva {

/// What a child runs between its birth and its program (async-signal-safe calls only): a process
/// group of its own, signals as at a login, and an end together with the thread that started it
/// where the system can do that. Make it on the thread that starts the child.
[[nodiscard]] std::function<void()> ownGroupInChild();

enum class GroupSignal
{
    Terminate,
    Kill
};

/// Sends the signal to every process of the child's group; a group that is gone is no error. The
/// child must not have been collected, or only just now: afterwards its number may be another's.
void signalGroup(long long child, GroupSignal signal);

} // namespace zolva
