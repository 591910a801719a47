#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

namespace zolva {

/// Keeps the keyboard on something that can be pressed. A page that comes, a button that goes dead
/// and one that is hidden leave the focus where no key does anything: it goes on to the nearest
/// thing of the same region. What is outside of the regions is left alone. Main thread.
class FocusKeeper : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// What holds all regions. While it is disabled nothing is moved.
    Q_PROPERTY(QQuickItem* ground READ ground WRITE setGround NOTIFY groundChanged)
    /// The focus never goes from one to another; the first is where it goes if it was in none.
    Q_PROPERTY(QList<QQuickItem*> regions MEMBER m_regions NOTIFY regionsChanged)
    /// How to give the focus so that its ring shows for those who use the keys.
    Q_PROPERTY(Qt::FocusReason reason READ reason NOTIFY reasonChanged)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem* ground() const { return m_ground; }
    void setGround(QQuickItem* ground);
    [[nodiscard]] Qt::FocusReason reason() const { return m_reason; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void groundChanged();
    void regionsChanged();
    void reasonChanged();
    /// The focus is on nothing at all, as after the end of what had it.
    void lost();

private:
    void watchWindow(QQuickWindow* window);
    void watchItem();
    void checkSoon();
    void check();
    void setReason(Qt::FocusReason reason);
    [[nodiscard]] QQuickItem* nearest(QQuickItem* start) const;

    QPointer<QQuickItem> m_ground;
    QList<QQuickItem*> m_regions;
    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_watched; ///< has the focus
    QPointer<QQuickItem> m_last;    ///< the last that could be pressed
    Qt::FocusReason m_reason = Qt::OtherFocusReason;
    bool m_isDue = false;
};

} // namespace zolva
