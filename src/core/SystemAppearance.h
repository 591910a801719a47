#pragma once

#include <QObject>

#include <optional>

namespace zolva {

/// Whether the desktop asks for dark windows, and the news that this may have changed. Main thread.
class SystemAppearance : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// As it stands now; nothing where the desktop does not tell.
    [[nodiscard]] virtual std::optional<bool> isDark() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace zolva
