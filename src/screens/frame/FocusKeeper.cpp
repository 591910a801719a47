#include "screens/frame/FocusKeeper.h"

#include <QQuickWindow>

#include <algorithm>

namespace zolva {

namespace {

bool canBePressed(const QQuickItem& item)
{
    return item.activeFocusOnTab() && item.isVisible() && item.isEnabled();
}

bool holds(const QQuickItem& outer, const QQuickItem& inner)
{
    return &outer == &inner || outer.isAncestorOf(&inner);
}

} // namespace

void FocusKeeper::setGround(QQuickItem* ground)
{
    if (m_ground == ground) {
        return;
    }
    if (m_ground) {
        disconnect(m_ground, nullptr, this, nullptr);
    }
    m_ground = ground;
    if (m_ground) {
        connect(m_ground, &QQuickItem::windowChanged, this, &FocusKeeper::watchWindow);
        connect(m_ground, &QQuickItem::enabledChanged, this, &FocusKeeper::checkSoon);
    }
    watchWindow(m_ground ? m_ground->window() : nullptr);
    Q_EMIT groundChanged();
}

void FocusKeeper::watchWindow(QQuickWindow* window)
{
    if (m_window) {
        disconnect(m_window, nullptr, this, nullptr);
        m_window->removeEventFilter(this);
    }
    m_window = window;
    if (m_window) {
        connect(m_window, &QQuickWindow::activeFocusItemChanged, this, &FocusKeeper::watchItem);
        m_window->installEventFilter(this);
    }
    watchItem();
}

void FocusKeeper::watchItem()
{
    if (m_watched && m_watched != m_ground) {
        disconnect(m_watched, nullptr, this, nullptr);
    }
    m_watched = m_window ? m_window->activeFocusItem() : nullptr;
    if (m_watched && m_watched != m_ground) {
        // The toolkit takes the focus from what is disabled, but not from what is hidden.
        connect(m_watched, &QQuickItem::visibleChanged, this, &FocusKeeper::checkSoon);
        connect(m_watched, &QQuickItem::enabledChanged, this, &FocusKeeper::checkSoon);
    }
    checkSoon();
}

// Not before all that changes together has changed.
void FocusKeeper::checkSoon()
{
    if (!m_isDue) {
        m_isDue = true;
        QMetaObject::invokeMethod(this, &FocusKeeper::check, Qt::QueuedConnection);
    }
}

void FocusKeeper::check()
{
    m_isDue = false;
    if (!m_window || !m_ground) {
        return;
    }
    QQuickItem* const active = m_window->activeFocusItem();
    if (active == nullptr || active->isAncestorOf(m_ground)) {
        Q_EMIT lost();
        return;
    }
    if (!m_ground->isEnabled() || !holds(*m_ground, *active)) {
        return;
    }
    if (canBePressed(*active)) {
        m_last = active;
        return;
    }
    QQuickItem* const next = nearest(m_last && holds(*active, *m_last) ? m_last.data() : active);
    if (next != nullptr) {
        next->forceActiveFocus(m_reason);
    }
}

QQuickItem* FocusKeeper::nearest(QQuickItem* start) const
{
    const auto region = std::find_if(m_regions.cbegin(), m_regions.cend(),
                                     [&](const QQuickItem* each) { return holds(*each, *start); });
    if (region == m_regions.cend()) {
        start = m_regions.isEmpty() ? nullptr : m_regions.constFirst();
    }
    if (start == nullptr) {
        return nullptr;
    }
    const QQuickItem* const outermost = region == m_regions.cend() ? start : *region;
    QQuickItem* const after = start->nextItemInFocusChain(true);
    QQuickItem* const before = start->nextItemInFocusChain(false);
    for (const QQuickItem* around = start; around != nullptr; around = around->parentItem()) {
        for (QQuickItem* const each : {after, before}) {
            if (each != nullptr && around->isAncestorOf(each) && canBePressed(*each)) {
                return each;
            }
        }
        if (around == outermost) {
            break;
        }
    }
    return nullptr;
}

void FocusKeeper::setReason(Qt::FocusReason reason)
{
    if (m_reason != reason) {
        m_reason = reason;
        Q_EMIT reasonChanged();
    }
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        setReason(Qt::TabFocusReason);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        setReason(Qt::OtherFocusReason);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zolva
