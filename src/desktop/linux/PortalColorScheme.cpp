#include "desktop/linux/PortalColorScheme.h"

#include "desktop/ColorScheme.h"

#include <QEvent>
#include <QGuiApplication>

#include <utility>

namespace zolva {

namespace {

const PortalSetting setting = {QStringLiteral("org.freedesktop.appearance"),
                               QStringLiteral("color-scheme")};
constexpr std::chrono::milliseconds patience{100};

/// What a number of the portal means; nothing where it is no wish, or no number.
std::optional<bool> wishOf(const QVariant& value)
{
    if (value.metaType() != QMetaType::fromType<uint>()) {
        return std::nullopt;
    }
    switch (value.toUInt()) {
    case 1:
        return true;
    case 2:
        return false;
    default:
        return std::nullopt;
    }
}

} // namespace

PortalColorScheme::PortalColorScheme(const QDBusConnection& bus, QObject* parent)
    : SystemAppearance(parent), m_portal(bus)
{
    connect(&m_portal, &SettingsPortal::told, this,
            [this](const PortalSetting& which, const QVariant& value) {
                if (which == setting) {
                    take(value);
                }
            });
    connect(&m_portal, &SettingsPortal::appeared, this, [this] { m_portal.ask(setting); });
    const QVariant now = m_portal.readNow(setting, patience);
    m_wish = wishOf(now);
    m_isDark = read();
    if (!now.isValid()) {
        m_portal.ask(setting);
    }
    QGuiApplication::instance()->installEventFilter(this);
}

bool PortalColorScheme::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange &&
        watched == QGuiApplication::instance()) {
        refresh();
    }
    return SystemAppearance::eventFilter(watched, event);
}

void PortalColorScheme::take(const QVariant& value)
{
    m_wish = wishOf(value);
    refresh();
}

void PortalColorScheme::refresh()
{
    const bool dark = read();
    if (std::exchange(m_isDark, dark) != dark) {
        Q_EMIT changed();
    }
}

bool PortalColorScheme::read() const
{
    return m_wish.value_or(isDarkPalette(QGuiApplication::palette()));
}

std::unique_ptr<SystemAppearance> systemColorScheme()
{
    return std::make_unique<PortalColorScheme>(QDBusConnection::sessionBus());
}

} // namespace zolva
