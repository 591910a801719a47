#pragma once

#include "async/Clock.h"
#include "removal/runs/RunState.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>

#include <chrono>

namespace zolva {

/// The alert that is shown where quitting would cut a run short; the buttons in their order.
namespace quitwords {
inline constexpr auto message = "Zolva is still removing files";
inline constexpr auto detail =
    "Quitting now would stop partway through, leaving some items removed and others not. Stop the "
    "run first, or wait for it to finish.";
inline constexpr auto keepGoing = "Keep Going";
inline constexpr auto stopAndQuit = "Stop and Quit";
} // namespace quitwords

enum class QuitAnswer
{
    Now,    ///< nothing is cut short
    Cancel, ///< the application stays
    Later   ///< `readyToQuit` follows
};

inline constexpr std::chrono::milliseconds quitPoll{120};

/// Whether the application may end now. It shows nothing itself: `mustAsk`, and then the choice
/// goes to one of the two answers. Main thread; the clock outlives it.
class QuitGuard : public QObject
{
    Q_OBJECT

public:
    /// `state` may be null, or go: then nothing runs.
    QuitGuard(RunState* state, Clock& clock, QObject* parent = nullptr);

    /// Whether a run is going; without one the answer is `Now`.
    [[nodiscard]] bool mustAsk() const;
    /// For "Keep Going" and everything that is not the other button.
    [[nodiscard]] static QuitAnswer keepGoing() { return QuitAnswer::Cancel; }
    /// Asks the run to stop and waits for its end, however long that takes; a run that has ended
    /// meanwhile is no hindrance.
    [[nodiscard]] QuitAnswer stopAndQuit();

Q_SIGNALS:
    /// Once for each `Later`, after that was returned.
    void readyToQuit();

private:
    static QCoro::Task<> waitForEnd(QPointer<QuitGuard> self);

    QPointer<RunState> m_state;
    Clock& m_clock;
};

} // namespace zolva
