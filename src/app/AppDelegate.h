#pragma once

#include "async/Clock.h"
#include "screens/model/ScreenModel.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QWindow>

#include <chrono>

namespace zolva {

/// How long the program waits with its window closed for a tray that has gone to come back, as it
/// does when the desktop's panel starts anew.
inline constexpr std::chrono::seconds trayPatience{10};

/// The two decisions that the window cannot make by itself: whether the program may end now, and
/// how it comes back when its window has been closed. Main thread; window and model are watched and
/// may go first.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    /// With an application, whose wish to quit it takes over. The clock outlives it.
    explicit AppDelegate(Clock& clock, QObject* parent = nullptr);

    /// From here on a run under way is asked about; until then every quit is allowed.
    void setModel(ScreenModel* model);
    void setWindow(QWindow* window);
    /// With an icon that stays, closing the window hides it; without one it is a wish to quit, and
    /// so is the loss of the icon for good while the window is closed.
    void setHasTray(bool has);

    /// Somebody wants to close the window: it hides, or that is a wish to quit.
    Q_SLOT void shouldClose();
    /// Somebody wants the program to end: `terminate` follows, or the window is there with the
    /// alert, or with the run whose end is waited for.
    void shouldTerminate();
    /// The session ends, and this program with it: false if that would cut a run short, and the
    /// window is there to say so.
    [[nodiscard]] bool mayEndSession();
    /// There is something to see or to answer: brings back a window that is closed or minimised,
    /// and brings it to the front.
    void shouldHandleReopen();
    /// Likewise, as somebody started the program again. The token is the desktop's leave to take
    /// the focus, and may be empty.
    void reopen(const QString& token);

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void terminate();

private:
    static QCoro::Task<> missTray(QPointer<AppDelegate> self);
    [[nodiscard]] bool isOutOfSight() const;

    Clock& m_clock;
    QPointer<ScreenModel> m_model;
    QPointer<QWindow> m_window;
    bool m_hasTray = false;
    int m_trayGen = 0; ///< of its coming and going
};

} // namespace zolva
