#include "screens/frame/FocusReach.h"

#include <QGuiApplication>
#include <QQuickWindow>

namespace zolva {

void FocusReach::setInside(QQuickItem* inside)
{
    if (m_inside == inside) {
        return;
    }
    if (m_inside) {
        disconnect(m_inside, nullptr, this, nullptr);
    }
    m_inside = inside;
    if (m_inside) {
        connect(m_inside, &QQuickItem::windowChanged, this, &FocusReach::watchWindow);
    }
    watchWindow(m_inside ? m_inside->window() : nullptr);
    Q_EMIT insideChanged();
}

void FocusReach::watchWindow(QQuickWindow* window)
{
    disconnect(m_ofWindow);
    if (window != nullptr) {
        m_ofWindow =
            connect(window, &QQuickWindow::activeFocusItemChanged, this, &FocusReach::follow);
    }
}

void FocusReach::follow()
{
    if (!m_inside || m_inside->window() == nullptr ||
        QGuiApplication::mouseButtons() != Qt::NoButton) {
        return;
    }
    const QQuickItem* const item = m_inside->window()->activeFocusItem();
    if (item == nullptr || !m_inside->isAncestorOf(item)) {
        return;
    }
    const QRectF place = item->mapRectToItem(m_inside, item->boundingRect());
    Q_EMIT reached(place.top(), place.bottom());
}

bool FocusReach::step(bool forward) const
{
    if (!m_inside || m_inside->window() == nullptr) {
        return false;
    }
    QQuickItem* const item = m_inside->window()->activeFocusItem();
    if (item == nullptr || !m_inside->isAncestorOf(item)) {
        return false;
    }
    QQuickItem* const next = item->nextItemInFocusChain(forward);
    if (next == nullptr || next == item || !m_inside->isAncestorOf(next)) {
        return false;
    }
    next->forceActiveFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace zolva
