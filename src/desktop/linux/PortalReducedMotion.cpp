#include "desktop/linux/PortalReducedMotion.h"

namespace zolva {

namespace {

const PortalSetting wish = {QStringLiteral("org.freedesktop.appearance"),
                            QStringLiteral("reduced-motion")};
const PortalSetting animations = {QStringLiteral("org.gnome.desktop.interface"),
                                  QStringLiteral("enable-animations")};

} // namespace

PortalReducedMotion::PortalReducedMotion(const QDBusConnection& bus, QObject* parent)
    : ReducedMotion(parent), m_portal(bus)
{
    connect(&m_portal, &SettingsPortal::told, this, &PortalReducedMotion::take);
    connect(&m_portal, &SettingsPortal::appeared, this, &PortalReducedMotion::ask);
    ask();
}

void PortalReducedMotion::ask()
{
    m_portal.ask(wish);
    m_portal.ask(animations);
}

void PortalReducedMotion::take(const PortalSetting& which, const QVariant& value)
{
    const bool before = isReduced();
    if (which == wish) {
        m_wished = value.metaType() == QMetaType::fromType<uint>() && value.toUInt() == 1;
    } else if (which == animations) {
        m_stilled = value.metaType() == QMetaType::fromType<bool>() && !value.toBool();
    }
    if (isReduced() != before) {
        Q_EMIT changed();
    }
}

std::unique_ptr<ReducedMotion> systemReducedMotion()
{
    return std::make_unique<PortalReducedMotion>(QDBusConnection::sessionBus());
}

} // namespace zolva
