#pragma once

#include <QFont>
#include <QObject>
#include <QQmlEngine>

namespace zolva {

/// The fonts of everything that is written. Sizes are logical pixels, whole or with a half; so is
/// tracking, with any fraction. The digits of both faces are all of one width. Main thread.
class Face final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE QFont text(qreal size, int weight = QFont::Normal, qreal tracking = 0) const;
    Q_INVOKABLE QFont mono(qreal size, int weight = QFont::Normal) const;
};

} // namespace zolva
