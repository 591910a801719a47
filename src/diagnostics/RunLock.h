#pragma once

#include <string>

namespace zolva {

/// Says to every process of this user that a removal runs: a lock on a file beside the run journal,
/// held as long as this lives and given back by the system if the process dies. Main thread.
class RunLock
{
public:
    enum class State
    {
        Held,        ///< by this object
        HeldByOther, ///< a removal runs, here or in another process
        Unavailable, ///< the lock file cannot be made or locked; nothing is known
    };

    /// Tries once, without waiting.
    explicit RunLock(const std::string& folder);
    ~RunLock();
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;

    [[nodiscard]] State state() const { return m_state; }

private:
    int m_fd = -1;
    State m_state = State::Unavailable;
};

} // namespace zolva
