#include "FrameMeter.h"

#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace zolva {

namespace {

/// Milliseconds of the processor.
double used(clockid_t by)
{
    timespec time{};
    ::clock_gettime(by, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double since(std::chrono::steady_clock::time_point moment)
{
    const auto time = std::chrono::steady_clock::now() - moment;
    return std::chrono::duration<double, std::milli>(time).count();
}

} // namespace

FrameMeter::FrameMeter(QQuickWindow& window, std::function<void(int)> change)
    : m_window(window), m_change(std::move(change))
{}

void FrameMeter::run(int frames)
{
    const auto watch = [this](auto signal, void (FrameMeter::*slot)()) {
        connect(&m_window, signal, this, slot, Qt::DirectConnection);
    };
    watch(&QQuickWindow::afterAnimating, &FrameMeter::endPreparing);
    watch(&QQuickWindow::beforeSynchronizing, &FrameMeter::beginDrawing);
    watch(&QQuickWindow::frameSwapped, &FrameMeter::endDrawing);
    const double mainBefore = used(CLOCK_THREAD_CPUTIME_ID);
    const double allBefore = used(CLOCK_PROCESS_CPUTIME_ID);
    m_window.installEventFilter(this);
    m_window.update();
    QEventLoop loop;
    QTimer look;
    connect(&look, &QTimer::timeout, &loop, [&] {
        const std::scoped_lock lock(m_mutex);
        if (static_cast<int>(m_frames.size()) >= frames) {
            loop.quit();
        }
    });
    look.start(5);
    loop.exec();
    m_window.removeEventFilter(this);
    disconnect(&m_window, nullptr, this, nullptr);
    const std::scoped_lock lock(m_mutex);
    m_preparingUse = used(CLOCK_THREAD_CPUTIME_ID) - mainBefore;
    m_allUse = used(CLOCK_PROCESS_CPUTIME_ID) - allBefore;
    print();
}

bool FrameMeter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::UpdateRequest) {
        beginFrame();
    }
    return QObject::eventFilter(watched, event);
}

void FrameMeter::beginFrame()
{
    m_began = std::chrono::steady_clock::now();
    m_change(++m_changes);
    m_window.update();
}

void FrameMeter::endPreparing()
{
    m_preparing = since(m_began);
}

void FrameMeter::beginDrawing()
{
    m_drawingPreparing = m_preparing;
    m_drawingBegan = std::chrono::steady_clock::now();
    m_drawerUsed = used(CLOCK_THREAD_CPUTIME_ID);
}

void FrameMeter::endDrawing()
{
    const std::scoped_lock lock(m_mutex);
    m_frames.push_back(m_drawingPreparing + since(m_drawingBegan));
    m_drawingUse += used(CLOCK_THREAD_CPUTIME_ID) - m_drawerUsed;
}

void FrameMeter::print() const
{
    std::vector<double> sorted = m_frames;
    std::sort(sorted.begin(), sorted.end());
    const auto count = static_cast<double>(sorted.size());
    std::printf("p50 %.1f ms, p99 %.1f ms, slowest %.1f ms of %zu frames; one used %.2f ms of the "
                "processor, %.2f on the main thread, %.2f on the one that draws\n",
                sorted[sorted.size() / 2], sorted[sorted.size() * 99 / 100], sorted.back(),
                sorted.size(), m_allUse / count, m_preparingUse / count, m_drawingUse / count);
}

} // namespace zolva
