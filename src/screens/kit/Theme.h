#pragma once

#include <QObject>
#include <QQmlEngine>

namespace zolva {

class Theme final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool light MEMBER m_light NOTIFY lightChanged)

public:
    using QObject::QObject;

Q_SIGNALS:
    void lightChanged();

private:
    bool m_light = true;
};

} // namespace zolva
