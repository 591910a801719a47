#include "desktop/linux/SettingsPortal.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QDBusVariant>

namespace zolva {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settings = QStringLiteral("org.freedesktop.portal.Settings");
const auto bus = QStringLiteral("org.freedesktop.DBus");

QDBusMessage readCall(const PortalSetting& setting)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(portal, portalPath, settings, QStringLiteral("Read"));
    call << setting.space << setting.key;
    return call;
}

/// The value itself: an answer comes wrapped once, and from `Read` twice.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        const QVariant inner = value.value<QDBusVariant>().variant();
        value = inner;
    }
    return value;
}

QVariant answerOf(const QDBusMessage& reply)
{
    const QVariantList values = reply.arguments();
    return reply.type() == QDBusMessage::ReplyMessage && values.size() == 1
               ? unwrapped(values.front())
               : QVariant();
}

bool isRunning(const QDBusConnection& connection, milliseconds limit)
{
    QDBusMessage call = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"),
                                                       bus, QStringLiteral("NameHasOwner"));
    call << portal;
    const QDBusReply<bool> owned =
        connection.call(call, QDBus::Block, static_cast<int>(limit.count()));
    return owned.isValid() && owned.value();
}

} // namespace

SettingsPortal::SettingsPortal(const QDBusConnection& connection, QObject* parent)
    : QObject(parent), m_bus(connection),
      m_watcher(portal, m_bus, QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &SettingsPortal::appeared);
    // Slots are matched by the names of their types, and this one has none before its first use.
    qRegisterMetaType<QDBusVariant>();
    m_bus.connect(portal, portalPath, settings, QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
}

QVariant SettingsPortal::readNow(const PortalSetting& setting, milliseconds limit) const
{
    const auto end = steady_clock::now() + limit;
    if (!m_bus.isConnected() || !isRunning(m_bus, limit)) {
        return {};
    }
    const auto left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now());
    return left.count() > 0 ? answerOf(m_bus.call(readCall(setting), QDBus::Block,
                                                  static_cast<int>(left.count())))
                            : QVariant();
}

void SettingsPortal::ask(const PortalSetting& setting)
{
    if (!m_bus.isConnected()) {
        return;
    }
    auto* const waiting = new QDBusPendingCallWatcher(m_bus.asyncCall(readCall(setting)), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this, [this, waiting, setting] {
        waiting->deleteLater();
        const QVariant value = answerOf(waiting->reply());
        if (value.isValid()) {
            Q_EMIT told(setting, value);
        }
    });
}

void SettingsPortal::settingChanged(const QString& space, const QString& key,
                                    const QDBusVariant& value)
{
    Q_EMIT told({space, key}, unwrapped(value.variant()));
}

} // namespace zolva
