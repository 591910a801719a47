#pragma once

#include "async/Clock.h"
#include "core/AppModel.h"
#include "desktop/ReducedMotion.h"
#include "screens/model/ScreenModel.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>

#include <functional>
#include <memory>

namespace zolva {

/// Turns the event loop until it holds, looking every millisecond.
void turnUntil(const std::function<bool()>& holds);
void turnFor(int ms);
/// The window that stands on the display; ends the program without one.
[[nodiscard]] QQuickWindow& shownWindow();
/// Until its next frame is on the display.
void turnUntilDrawn(QQuickWindow& window);
/// Seconds of the processor that this process has used.
[[nodiscard]] double secondsOfWork();
/// Kilobytes of memory that are this process's share.
[[nodiscard]] long sharedOut();

/// The whole window over a model whose reads have been replaced where `change` says so. Main
/// thread.
class WindowStage
{
public:
    explicit WindowStage(const std::function<void(AppDependencies&)>& change);
    ~WindowStage();

    [[nodiscard]] ScreenModel& model() { return *m_model; }
    [[nodiscard]] QQuickWindow& window() { return *m_window; }
    [[nodiscard]] QQmlEngine& engine() { return m_engine; }
    [[nodiscard]] Clock& clock() { return m_clock; }
    /// The list with so many rows at least; null where there is none.
    [[nodiscard]] QQuickItem* longList(int rows) const;

private:
    SystemClock m_clock;
    std::unique_ptr<PrefsStore> m_prefs;
    std::unique_ptr<AppModel> m_app;
    std::unique_ptr<ScreenModel> m_model;
    QQmlApplicationEngine m_engine;
    std::unique_ptr<ReducedMotion> m_wish;
    QQuickWindow* m_window = nullptr;
};

} // namespace zolva
