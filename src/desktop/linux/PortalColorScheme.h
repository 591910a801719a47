#pragma once

#include "core/SystemAppearance.h"

#include "desktop/linux/SettingsPortal.h"

#include <optional>

namespace zolva {

/// The colour scheme that the portal tells; where it has no wish or there is no portal, that of the
/// program's palette. Main thread, with a QGuiApplication.
class PortalColorScheme final : public SystemAppearance
{
    Q_OBJECT

public:
    explicit PortalColorScheme(const QDBusConnection& bus, QObject* parent = nullptr);

    [[nodiscard]] std::optional<bool> isDark() const override { return m_isDark; }

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void take(const QVariant& value);
    void refresh();
    [[nodiscard]] bool read() const;

    SettingsPortal m_portal;
    std::optional<bool> m_wish; ///< the portal's
    bool m_isDark = false;
};

} // namespace zolva
