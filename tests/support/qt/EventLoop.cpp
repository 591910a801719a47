#include "support/qt/EventLoop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <stdexcept>

namespace zolva::test {

void pumpUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    // Conditions may turn true by another thread without any event here.
    QTimer tick;
    tick.start(std::chrono::milliseconds(5));
    QEventLoop loop;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) {
            throw std::runtime_error("the awaited condition did not come true in time");
        }
        loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void pumpOnce()
{
    QCoreApplication::sendPostedEvents();
    QEventLoop().processEvents(QEventLoop::AllEvents);
}

} // namespace zolva::test
