#pragma once

#include "screens/kit/Palette.h"

#include <QObject>
#include <QQmlEngine>

namespace zolva {

/// Hands out the colours in effect. The root view says which theme that is. Main thread.
class Theme final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool light READ isLight WRITE setLight NOTIFY lightChanged)
    Q_PROPERTY(zolva::Palette* palette READ palette NOTIFY lightChanged)

public:
    explicit Theme(QObject* parent = nullptr);

    [[nodiscard]] bool isLight() const { return m_isLight; }
    void setLight(bool light);
    [[nodiscard]] Palette* palette() { return m_isLight ? &m_light : &m_dark; }

Q_SIGNALS:
    void lightChanged();

private:
    Palette m_light;
    Palette m_dark;
    bool m_isLight = true;
};

} // namespace zolva
