#pragma once

#include "desktop/ReducedMotion.h"
#include "desktop/linux/SettingsPortal.h"

namespace zolva {

/// What the portal tells of it. Main thread.
class PortalReducedMotion final : public ReducedMotion
{
    Q_OBJECT

public:
    explicit PortalReducedMotion(const QDBusConnection& bus, QObject* parent = nullptr);

    [[nodiscard]] bool isReduced() const override { return m_wished || m_stilled; }

private:
    void ask();
    void take(const PortalSetting& which, const QVariant& value);

    SettingsPortal m_portal;
    bool m_wished = false;  ///< by the setting for all desktops
    bool m_stilled = false; ///< by the switch that some desktops have had for long
};

} // namespace zolva
