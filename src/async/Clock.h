#pragma once

#include <QCoroTask>

#include <chrono>
#include <vector>

namespace zolva {

/// Where everything on the main thread takes the time from and waits for it. It outlives whoever
/// sleeps on it. A sleep cannot be cancelled: who wakes looks whether it is still wanted.
class Clock
{
public:
    virtual ~Clock() = default;
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    /// The wall's time, for records and files.
    [[nodiscard]] virtual std::chrono::system_clock::time_point now() const = 0;
    /// Never set back, for measuring spans.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point steadyNow() const = 0;
    /// Ends on the calling thread, from its event loop, when the span is over; never earlier and
    /// never before the call returned.
    [[nodiscard]] virtual QCoro::Task<> sleep(std::chrono::milliseconds span) = 0;
};

/// The machine's own time. Sleeps need a running event loop. Its end wakes whoever still sleeps,
/// once, so that no frame is left behind.
class SystemClock final : public Clock
{
public:
    SystemClock() = default;
    ~SystemClock() override;

    [[nodiscard]] std::chrono::system_clock::time_point now() const override;
    [[nodiscard]] std::chrono::steady_clock::time_point steadyNow() const override;
    [[nodiscard]] QCoro::Task<> sleep(std::chrono::milliseconds span) override;

private:
    struct Sleeper;

    std::vector<Sleeper*> m_sleepers; ///< each lives in the frame of its sleep
    bool m_ending = false;
};

} // namespace zolva
