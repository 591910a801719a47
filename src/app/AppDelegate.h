#pragma once

#include "screens/model/ScreenModel.h"

#include <QObject>
#include <QPointer>
#include <QWindow>

namespace zolva {

/// The two decisions that the window cannot make by itself: whether the program may end now, and
/// how it comes back when its window has been closed. Main thread; window and model are watched and
/// may go first.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    /// With an application, whose wish to quit it takes over.
    explicit AppDelegate(QObject* parent = nullptr);

    /// From here on a run under way is asked about; until then every quit is allowed.
    void setModel(ScreenModel* model);
    void setWindow(QWindow* window);
    /// With an icon that stays, closing the window hides it; without one it is a wish to quit.
    void setHasTray(bool has) { m_hasTray = has; }

    /// Somebody wants to close the window: it hides, or that is a wish to quit.
    Q_SLOT void shouldClose();
    /// Somebody wants the program to end: `terminate` follows, or the alert is up.
    void shouldTerminate();
    /// The session ends, and this program with it: false if that would cut a run short, and the
    /// alert is up.
    [[nodiscard]] bool mayEndSession();
    /// Somebody started the program again, or there is something to answer: brings back a window
    /// that is closed or minimised, and brings it to the front.
    void shouldHandleReopen();

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void terminate();

private:
    QPointer<ScreenModel> m_model;
    QPointer<QWindow> m_window;
    bool m_hasTray = false;
};

} // namespace zolva
