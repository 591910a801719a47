#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

namespace zolva {

/// Whether Shift was down at the last press on an item, by pointer or key. Main thread.
class ShiftWatch : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(bool held READ isHeld NOTIFY heldChanged)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem* target() const { return m_target; }
    void setTarget(QQuickItem* target);
    [[nodiscard]] bool isHeld() const { return m_isHeld; }

    /// A press that comes without a keyboard, such as a screen reader's.
    Q_INVOKABLE void clear() { setHeld(false); }

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void targetChanged();
    void heldChanged();

private:
    void setHeld(bool held);

    QPointer<QQuickItem> m_target;
    bool m_isHeld = false;
};

} // namespace zolva
