#include "desktop/linux/BusInstance.h"

#include "desktop/DesktopId.h"
#include "desktop/LocalInstance.h"

#include <QDBusMessage>
#include <QDBusReply>

namespace zolva {

namespace {

constexpr int patience = 5000; // milliseconds
constexpr uint doNotQueue = 4;
constexpr uint someoneElse = 3;

const auto daemon = QStringLiteral("org.freedesktop.DBus");
const auto interface = QStringLiteral("org.freedesktop.Application");
const auto objectPath = QStringLiteral("/org/zolva/Zolva");
const auto tokenKey = QStringLiteral("activation-token");
const auto startupKey = QStringLiteral("desktop-startup-id");

QString tokenIn(const QVariantMap& data)
{
    const QString token = data.value(tokenKey).toString();
    return token.isEmpty() ? data.value(startupKey).toString() : token;
}

} // namespace

BusInstance::BusInstance(const QDBusConnection& bus, QObject* parent)
    : SingleInstance(parent), m_bus(bus)
{
    new ApplicationDoor(this);
}

BusInstance::~BusInstance()
{
    m_bus.unregisterObject(objectPath);
}

SingleInstance::Standing BusInstance::claim(const QString& token)
{
    // The object first: whoever sees the name may call at once.
    m_bus.registerObject(objectPath, this, QDBusConnection::ExportAdaptors);
    QDBusMessage request = QDBusMessage::createMethodCall(
        daemon, QStringLiteral("/org/freedesktop/DBus"), daemon, QStringLiteral("RequestName"));
    request << QString::fromLatin1(desktopId) << doNotQueue;
    const QDBusReply<uint> reply = m_bus.call(request, QDBus::Block, patience);
    if (!reply.isValid() || reply.value() != someoneElse) {
        return Standing::First;
    }
    m_bus.unregisterObject(objectPath);
    return tellFirst(token) ? Standing::FirstTold : Standing::FirstSilent;
}

bool BusInstance::tellFirst(const QString& token) const
{
    QVariantMap data;
    if (!token.isEmpty()) {
        data = {{tokenKey, token}, {startupKey, token}};
    }
    QDBusMessage call = QDBusMessage::createMethodCall(QString::fromLatin1(desktopId), objectPath,
                                                       interface, QStringLiteral("Activate"));
    call << data;
    return m_bus.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

ApplicationDoor::ApplicationDoor(BusInstance* instance)
    : QDBusAbstractAdaptor(instance), m_instance(instance)
{}

void ApplicationDoor::Activate(const QVariantMap& platformData)
{
    Q_EMIT m_instance->asked(tokenIn(platformData));
}

void ApplicationDoor::Open(const QStringList& /*uris*/, const QVariantMap& platformData)
{
    Activate(platformData);
}

void ApplicationDoor::ActivateAction(const QString& /*name*/, const QVariantList& /*parameter*/,
                                     const QVariantMap& platformData)
{
    Activate(platformData);
}

std::unique_ptr<SingleInstance> systemSingleInstance()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        return std::make_unique<BusInstance>(bus);
    }
    return std::make_unique<LocalInstance>(sessionFolder());
}

QString activationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

} // namespace zolva
