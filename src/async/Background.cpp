#include "async/Background.h"

#include "diagnostics/AlternateStack.h"
#include "platform/ThreadPriority.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QRunnable>
#include <QThreadPool>

#include <algorithm>
#include <atomic>

namespace zolva {

namespace detail {

namespace {

/// Scans wait for the disk more than they compute, and a short read must not queue behind long
/// ones.
constexpr int fewestThreads = 8;
/// A bulk run and some uninstalls, one of which may wait for a password.
constexpr int removalThreads = 4;

QThreadPool& readPool()
{
    static QThreadPool& threads = []() -> QThreadPool& {
        QThreadPool& shared = *QThreadPool::globalInstance();
        shared.setMaxThreadCount(std::max(fewestThreads, shared.maxThreadCount()));
        return shared;
    }();
    return threads;
}

/// Of the application, which waits for the work of both when it ends.
QThreadPool& removalPool()
{
    static QPointer<QThreadPool> threads;
    if (!threads) {
        threads = new QThreadPool(QCoreApplication::instance());
        threads->setMaxThreadCount(removalThreads);
    }
    return *threads;
}

} // namespace

/// Qt's queues order the two threads by means that the thread sanitizer cannot see; the two flags
/// say the same where it looks.
class PoolWork::State final : public QObject, public QRunnable
{
public:
    State(Pool pool, std::function<void()> work) : m_pool(pool), m_work(std::move(work))
    {
        setAutoDelete(false);
    }

    void start(std::coroutine_handle<> caller)
    {
        m_caller = caller;
        m_handedOver.store(true, std::memory_order_release);
        (m_pool == Pool::Removals ? removalPool() : readPool()).start(this);
    }

    // Nothing may be thrown past here: the last-chance hook runs where the exception rose.
    void run() noexcept override
    {
        if (m_handedOver.load(std::memory_order_acquire)) {
            useAlternateSignalStack();
            if (m_pool == Pool::Reads) {
                // Before the window, which shows what they find, comes to stutter.
                giveWay();
            }
            m_work();
        }
        m_done.store(true, std::memory_order_release);
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User || !m_done.load(std::memory_order_acquire)) {
            return QObject::event(event);
        }
        m_caller.resume(); // which ends this object
        return true;
    }

private:
    Pool m_pool;
    std::function<void()> m_work;
    std::coroutine_handle<> m_caller;
    std::atomic<bool> m_handedOver = false;
    std::atomic<bool> m_done = false;
};

PoolWork::PoolWork(Pool pool, std::function<void()> work)
    : m_state(std::make_unique<State>(pool, std::move(work)))
{}

PoolWork::~PoolWork() = default;

void PoolWork::Done::await_suspend(std::coroutine_handle<> caller) const
{
    state->start(caller);
}

} // namespace detail

void letStepsEnd(std::chrono::milliseconds longest)
{
    QThreadPool& steps = detail::removalPool();
    steps.clear();
    steps.waitForDone(static_cast<int>(longest.count()));
}

} // namespace zolva
