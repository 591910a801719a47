#include "screens/kit/Theme.h"

namespace zolva {

Theme::Theme(QObject* parent)
    : QObject(parent), m_light(Palette::Kind::Light), m_dark(Palette::Kind::Dark)
{
    QQmlEngine::setObjectOwnership(&m_light, QQmlEngine::CppOwnership);
    QQmlEngine::setObjectOwnership(&m_dark, QQmlEngine::CppOwnership);
}

void Theme::setLight(bool light)
{
    if (m_isLight == light)
        return;
    m_isLight = light;
    Q_EMIT lightChanged();
}

} // namespace zolva
