#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QQuickItem>

namespace zolva {

/// Tells assistive technology of something that has just come up by itself. Main thread.
class Announcement : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// What the item is called is read out, wherever the focus is.
    Q_INVOKABLE void alert(QQuickItem* item) const;
};

} // namespace zolva
