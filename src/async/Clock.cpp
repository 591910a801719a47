#include "async/Clock.h"

#include <QCoroTimer>
#include <QTimer>

#include <algorithm>

namespace zolva {

std::chrono::system_clock::time_point SystemClock::now() const
{
    return std::chrono::system_clock::now();
}

std::chrono::steady_clock::time_point SystemClock::steadyNow() const
{
    return std::chrono::steady_clock::now();
}

QCoro::Task<> SystemClock::sleep(std::chrono::milliseconds span)
{
    QTimer timer;
    timer.setSingleShot(true);
    // A coarse timer may fire 5 % early.
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(std::max(span, std::chrono::milliseconds(0)));
    co_await timer;
}

} // namespace zolva
