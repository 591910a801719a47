#pragma once

#include <QObject>
#include <QQuickWindow>

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <vector>

namespace zolva {

/// Makes frames of a window one after the other, each with a change, and measures what it takes to
/// make one: the change and what follows from it on the main thread, then the drawing up to the
/// swap. The waits of the toolkit between two frames are no part of that. Main thread.
class FrameMeter : public QObject
{
public:
    FrameMeter(QQuickWindow& window, std::function<void(int)> change);

    /// One line: the median of so many frames, the 99th of a hundred and the longest; and what of
    /// the processor one used, which grows less where other programs run beside.
    void run(int frames);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Moment = std::chrono::steady_clock::time_point;

    void beginFrame();
    void endPreparing(); ///< from here on the thread that draws goes on with it
    void beginDrawing();
    void endDrawing();
    void print() const;

    QQuickWindow& m_window;
    std::function<void(int)> m_change;
    Moment m_began;
    int m_changes = 0;
    std::atomic<double> m_preparing = 0; ///< milliseconds, of the frame that is drawn next
    double m_drawingPreparing = 0;       ///< the same of the frame that is being drawn
    Moment m_drawingBegan;
    double m_drawerUsed = 0; ///< what the thread that draws had used of the processor
    std::mutex m_mutex;      ///< of what the thread that draws leaves behind:
    std::vector<double> m_frames;
    double m_preparingUse = 0;
    double m_drawingUse = 0;
    double m_allUse = 0;
};

} // namespace zolva
