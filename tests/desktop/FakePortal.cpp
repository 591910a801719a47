#include "desktop/FakePortal.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <stdexcept>

namespace zolva::test {

namespace {

const auto name = QStringLiteral("org.freedesktop.portal.Desktop");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settings = QStringLiteral("org.freedesktop.portal.Settings");

} // namespace

FakePortal::FakePortal(QDBusConnection bus) : m_bus(std::move(bus))
{
    m_bus.registerVirtualObject(path, this);
    m_thread.start();
    moveToThread(&m_thread);
}

FakePortal::~FakePortal()
{
    m_thread.quit();
    m_thread.wait();
    m_bus.unregisterObject(path);
}

void FakePortal::set(const QString& key, const QVariant& value)
{
    const std::lock_guard lock(m_mutex);
    m_values[key] = value;
}

void FakePortal::setSilent(bool silent)
{
    const std::lock_guard lock(m_mutex);
    m_silent = silent;
}

int FakePortal::reads() const
{
    const std::lock_guard lock(m_mutex);
    return m_reads;
}

void FakePortal::appear()
{
    if (!m_bus.registerService(name)) {
        throw std::runtime_error("the portal's name is taken");
    }
}

void FakePortal::vanish()
{
    m_bus.unregisterService(name);
}

void FakePortal::tellChange(const QString& space, const QString& key, const QVariant& value)
{
    QDBusMessage signal =
        QDBusMessage::createSignal(path, settings, QStringLiteral("SettingChanged"));
    signal << space << key << QVariant::fromValue(QDBusVariant(value));
    m_bus.send(signal);
}

QString FakePortal::introspect(const QString& /*path*/) const
{
    return {};
}

bool FakePortal::handleMessage(const QDBusMessage& message, const QDBusConnection& bus)
{
    if (message.interface() != settings || message.member() != QStringLiteral("Read")) {
        return false;
    }
    const std::lock_guard lock(m_mutex);
    ++m_reads;
    const QString key = message.arguments().value(0).toString() + QLatin1Char(' ') +
                        message.arguments().value(1).toString();
    const auto found = m_values.find(key);
    if (m_silent) {
        message.setDelayedReply(true);
    } else if (found == m_values.end()) {
        bus.send(message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                                          QStringLiteral("not found")));
    } else {
        const QDBusVariant inner(found->second);
        bus.send(
            message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    }
    return true;
}

} // namespace zolva::test
