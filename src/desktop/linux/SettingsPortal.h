#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>

#include <chrono>

namespace zolva {

struct PortalSetting
{
    QString space;
    QString key;

    friend bool operator==(const PortalSetting&, const PortalSetting&) = default;
};

/// The settings of the desktop, as its portal tells them over the session bus. Where there is no
/// bus or no portal nothing is ever told. Main thread.
class SettingsPortal final : public QObject
{
    Q_OBJECT

public:
    explicit SettingsPortal(const QDBusConnection& bus, QObject* parent = nullptr);

    /// Waits, but only for a portal that runs already; invalid where it has no answer in time.
    [[nodiscard]] QVariant readNow(const PortalSetting& setting,
                                   std::chrono::milliseconds limit) const;
    /// The answer is `told`, if there is one. Starts the portal where that can be.
    void ask(const PortalSetting& setting);

Q_SIGNALS:
    /// An answer, or the news of a change.
    void told(const zolva::PortalSetting& setting, const QVariant& value);
    /// It began to run, and may be asked again.
    void appeared();

private Q_SLOTS:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
};

} // namespace zolva
