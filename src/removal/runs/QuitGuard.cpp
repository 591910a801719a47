#include "removal/runs/QuitGuard.h"

#include "async/Unawaited.h"

namespace zolva {

QuitGuard::QuitGuard(RunState* state, Clock& clock, QObject* parent)
    : QObject(parent), m_state(state), m_clock(clock)
{}

bool QuitGuard::mustAsk() const
{
    return m_state && m_state->bulk();
}

QuitAnswer QuitGuard::stopAndQuit()
{
    if (m_state) {
        m_state->requestCancel();
    }
    // The first look comes after the answer is given, also where no run is left.
    QMetaObject::invokeMethod(
        this, [this] { unawaited(waitForEnd(this)); }, Qt::QueuedConnection);
    return QuitAnswer::Later;
}

QCoro::Task<> QuitGuard::waitForEnd(QPointer<QuitGuard> self)
{
    while (self && self->mustAsk()) {
        co_await self->m_clock.sleep(quitPoll);
    }
    if (self) {
        Q_EMIT self->readyToQuit();
    }
}

} // namespace zolva
