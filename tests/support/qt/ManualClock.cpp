#include "support/qt/ManualClock.h"

#include <algorithm>
#include <utility>

namespace zolva::test {

using std::chrono::milliseconds;

ManualClock::ManualClock()
    : m_wall(std::chrono::sys_days(std::chrono::year(2026) / 1 / 2) + std::chrono::hours(3) +
             std::chrono::minutes(4) + std::chrono::seconds(5))
{}

ManualClock::~ManualClock()
{
    for (const Sleeper& sleeper : std::exchange(m_sleepers, {})) {
        sleeper.handle.resume();
    }
}

std::chrono::system_clock::time_point ManualClock::now() const
{
    return m_wall;
}

std::chrono::steady_clock::time_point ManualClock::steadyNow() const
{
    return std::chrono::steady_clock::time_point(m_passed);
}

void ManualClock::Sleep::await_suspend(std::coroutine_handle<> handle) const
{
    clock.m_sleepers.push_back({due, handle});
}

QCoro::Task<> ManualClock::sleep(milliseconds span)
{
    Sleep sleep{*this, m_passed + std::max(span, milliseconds(0))};
    co_await sleep;
}

void ManualClock::advance(milliseconds span)
{
    const milliseconds end = m_passed + span;
    const auto moveTo = [this](milliseconds time) {
        m_wall += time - m_passed;
        m_passed = time;
    };
    while (true) {
        const auto next =
            std::min_element(m_sleepers.begin(), m_sleepers.end(),
                             [](const Sleeper& a, const Sleeper& b) { return a.due < b.due; });
        if (next == m_sleepers.end() || next->due > end) {
            break;
        }
        const Sleeper due = *next;
        m_sleepers.erase(next);
        moveTo(due.due);
        due.handle.resume();
    }
    moveTo(end);
}

void ManualClock::setWall(std::chrono::system_clock::time_point now)
{
    m_wall = now;
}

} // namespace zolva::test
