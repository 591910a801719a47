#include "screens/model/QuitModel.h"

#include <utility>

namespace zolva {

QuitModel::QuitModel(AppModel& model, Clock& clock, QObject* parent)
    : QObject(parent), m_guard(&model.removal().runs(), clock)
{
    connect(&m_guard, &QuitGuard::readyToQuit, this, &QuitModel::quit);
}

QString QuitModel::message() const
{
    return QString::fromUtf8(quitwords::message);
}

QString QuitModel::detail() const
{
    return QString::fromUtf8(quitwords::detail);
}

QString QuitModel::keepGoingTitle() const
{
    return QString::fromUtf8(quitwords::keepGoing);
}

QString QuitModel::stopAndQuitTitle() const
{
    return QString::fromUtf8(quitwords::stopAndQuit);
}

void QuitModel::ask()
{
    if (m_isLeaving) {
        return;
    }
    if (m_guard.mustAsk()) {
        setAsking(true);
    } else {
        Q_EMIT quit();
    }
}

void QuitModel::keepGoing()
{
    setAsking(false);
}

void QuitModel::stopAndQuit()
{
    if (std::exchange(m_isLeaving, true)) {
        return;
    }
    setAsking(false);
    static_cast<void>(m_guard.stopAndQuit()); // always later
}

void QuitModel::setAsking(bool asking)
{
    if (std::exchange(m_isAsking, asking) != asking) {
        Q_EMIT isAskingChanged();
    }
}

} // namespace zolva
