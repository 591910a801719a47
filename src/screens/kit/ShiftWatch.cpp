#include "screens/kit/ShiftWatch.h"

#include <QInputEvent>

namespace zolva {

void ShiftWatch::setTarget(QQuickItem* target)
{
    if (m_target == target)
        return;
    if (m_target)
        m_target->removeEventFilter(this);
    m_target = target;
    if (m_target)
        m_target->installEventFilter(this);
    Q_EMIT targetChanged();
}

bool ShiftWatch::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::TouchBegin:
        setHeld(static_cast<QInputEvent*>(event)->modifiers().testFlag(Qt::ShiftModifier));
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void ShiftWatch::setHeld(bool held)
{
    if (m_isHeld == held)
        return;
    m_isHeld = held;
    Q_EMIT heldChanged();
}

} // namespace zolva
