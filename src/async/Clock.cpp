#include "async/Clock.h"

#include <QObject>
#include <QTimer>

#include <algorithm>
#include <coroutine>

namespace zolva {

struct SystemClock::Sleeper
{
    /// Awaiters are copied on their way, so this one only refers to the sleeper.
    struct Wake
    {
        Sleeper* sleeper;

        [[nodiscard]] bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> handle) const { sleeper->fallAsleep(handle); }
        void await_resume() const noexcept {}
    };

    Sleeper(SystemClock& itsClock, std::chrono::milliseconds itsSpan)
        : clock(itsClock), span(itsSpan)
    {}
    ~Sleeper() { getUp(); }
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;

    void fallAsleep(std::coroutine_handle<> sleeping)
    {
        if (clock.m_ending) {
            return;
        }
        handle = sleeping;
        clock.m_sleepers.push_back(this);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { wake(); });
        timer.setSingleShot(true);
        // A coarse timer may fire 5 % early.
        timer.setTimerType(Qt::PreciseTimer);
        timer.start(std::max(span, std::chrono::milliseconds(0)));
    }

    /// The last thing that it does.
    void wake()
    {
        const std::coroutine_handle<> sleeping = handle;
        getUp();
        sleeping.resume();
    }

    void getUp()
    {
        if (handle) {
            std::erase(clock.m_sleepers, this);
            handle = nullptr;
        }
    }

    SystemClock& clock;
    std::chrono::milliseconds span;
    QTimer timer;
    std::coroutine_handle<> handle; ///< none while awake
};

SystemClock::~SystemClock()
{
    m_ending = true;
    while (!m_sleepers.empty()) {
        m_sleepers.back()->wake();
    }
}

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
    Sleeper sleeper(*this, span);
    co_await Sleeper::Wake{&sleeper};
}

} // namespace zolva
