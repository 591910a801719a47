#pragma once

#include "async/Clock.h"

#include <chrono>
#include <coroutine>
#include <cstddef>
#include <vector>

namespace zolva::test {

/// Time that moves only when the test says so. It begins at 2026-01-02 03:04:05 UTC. Its end wakes
/// whoever still sleeps, once, so that no frame is left behind: objects whose tasks sleep on it are
/// declared after it.
class ManualClock final : public Clock
{
public:
    ManualClock();
    ~ManualClock() override;

    [[nodiscard]] std::chrono::system_clock::time_point now() const override;
    [[nodiscard]] std::chrono::steady_clock::time_point steadyNow() const override;
    [[nodiscard]] QCoro::Task<> sleep(std::chrono::milliseconds span) override;

    /// Moves on, waking each sleeper at its own time, in order, also those that only then began;
    /// between equal times the one that slept first.
    void advance(std::chrono::milliseconds span);
    /// Sets the wall's time alone, as a person does; no sleeper minds.
    void setWall(std::chrono::system_clock::time_point now);
    [[nodiscard]] std::size_t sleepers() const { return m_sleepers.size(); }

private:
    struct Sleeper
    {
        std::chrono::milliseconds due;
        std::coroutine_handle<> handle;
    };
    struct Sleep
    {
        ManualClock& clock;
        std::chrono::milliseconds due;

        [[nodiscard]] bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> handle) const;
        void await_resume() const noexcept {}
    };

    std::chrono::milliseconds m_passed{0};
    std::chrono::system_clock::time_point m_wall;
    std::vector<Sleeper> m_sleepers; ///< in the order they fell asleep
};

} // namespace zolva::test
