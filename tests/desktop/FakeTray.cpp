#include "desktop/FakeTray.h"

#include "support/qt/EventLoop.h"

#include <QDBusPendingCall>
#include <QDBusVariant>

#include <stdexcept>
#include <utility>

namespace zolva::test {

namespace {

const auto name = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto path = QStringLiteral("/StatusNotifierWatcher");

} // namespace

FakeTray::FakeTray(QDBusConnection bus) : m_bus(std::move(bus))
{
    m_bus.registerVirtualObject(path, this);
}

FakeTray::~FakeTray()
{
    m_bus.unregisterObject(path);
}

void FakeTray::appear()
{
    if (!m_bus.registerService(name)) {
        throw std::runtime_error("the watcher's name is taken");
    }
}

void FakeTray::vanish()
{
    m_items.clear();
    m_bus.unregisterService(name);
}

void FakeTray::setHost(bool has)
{
    m_hasHost = has;
    const char* const news =
        has ? "StatusNotifierHostRegistered" : "StatusNotifierHostUnregistered";
    m_bus.send(QDBusMessage::createSignal(path, name, QString::fromLatin1(news)));
}

QVariant FakeTray::property(const QString& interface, const QString& object,
                            const QString& which) const
{
    const QDBusMessage reply = call(QStringLiteral("org.freedesktop.DBus.Properties"), object,
                                    QStringLiteral("Get"), {interface, which});
    return reply.type() == QDBusMessage::ReplyMessage
               ? reply.arguments().front().value<QDBusVariant>().variant()
               : QVariant(reply.errorName());
}

QDBusMessage FakeTray::call(const QString& interface, const QString& object, const QString& method,
                            const QVariantList& arguments) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_items.value(0), object, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall pending = m_bus.asyncCall(message);
    pumpUntil([&pending] { return pending.isFinished(); });
    return pending.reply();
}

QString FakeTray::introspect(const QString& /*path*/) const
{
    return {};
}

bool FakeTray::handleMessage(const QDBusMessage& message, const QDBusConnection& bus)
{
    if (message.member() == QStringLiteral("RegisterStatusNotifierItem")) {
        if (m_refuses) {
            bus.send(message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
        } else {
            m_items.append(message.arguments().front().toString());
            bus.send(message.createReply());
        }
        return true;
    }
    const QVariantList asked = {name, QStringLiteral("IsStatusNotifierHostRegistered")};
    if (message.member() == QStringLiteral("Get") && message.arguments() == asked) {
        bus.send(message.createReply(QVariant::fromValue(QDBusVariant(m_hasHost))));
        return true;
    }
    return false;
}

HeardSignals::HeardSignals(QDBusConnection bus, const QString& path, const QString& interface,
                           const QString& signal)
{
    bus.connect({}, path, interface, signal, this, SLOT(hear()));
}

} // namespace zolva::test
