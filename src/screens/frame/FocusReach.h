#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

namespace zolva {

/// Follows the keyboard through what is inside one item, so that a page can scroll to it. Main
/// thread.
class FocusReach : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* inside READ inside WRITE setInside NOTIFY insideChanged)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem* inside() const { return m_inside; }
    void setInside(QQuickItem* inside);

    /// Moves the focus to the next thing that takes it; it stays if that one is not inside, or if
    /// nothing inside has it.
    Q_INVOKABLE bool step(bool forward) const;

Q_SIGNALS:
    void insideChanged();
    /// Something inside has got the focus, and not by the pointer: a page that moves under a
    /// pressed button would lose the click. From where to where it reaches, in `inside`.
    void reached(qreal top, qreal bottom);

private:
    void watchWindow(QQuickWindow* window);
    void follow();

    QPointer<QQuickItem> m_inside;
    QMetaObject::Connection m_ofWindow;
};

} // namespace zolva
