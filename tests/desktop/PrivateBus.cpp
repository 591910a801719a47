#include "desktop/PrivateBus.h"

#include <atomic>
#include <stdexcept>

namespace zolva::test {

namespace {

QString newName()
{
    static std::atomic<int> count = 0;
    return QStringLiteral("test-%1").arg(++count);
}

} // namespace

PrivateBus::PrivateBus()
{
    const std::string config = m_tree.text(
        "bus.conf", "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration "
                    "1.0//EN\" \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                    "<busconfig><type>session</type><listen>unix:path=" +
                        m_tree.path("bus") +
                        "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
                        "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>\n");
    m_daemon.setProgram(QStringLiteral("dbus-daemon"));
    m_daemon.setArguments({QStringLiteral("--config-file=") + QString::fromStdString(config),
                           QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    m_daemon.start();
    if (!m_daemon.waitForReadyRead(10'000)) {
        throw std::runtime_error("no bus: " + m_daemon.readAllStandardError().toStdString());
    }
    m_address = m_daemon.readLine().trimmed().toStdString();
}

PrivateBus::~PrivateBus()
{
    for (const QString& name : m_names) {
        QDBusConnection::disconnectFromBus(name);
    }
    m_daemon.terminate();
    if (!m_daemon.waitForFinished(10'000)) {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
}

QDBusConnection PrivateBus::connection()
{
    m_names.append(newName());
    const QDBusConnection made =
        QDBusConnection::connectToBus(QString::fromStdString(m_address), m_names.back());
    if (!made.isConnected()) {
        throw std::runtime_error("the bus takes nobody");
    }
    return made;
}

QDBusConnection noBus()
{
    return QDBusConnection::connectToBus(QStringLiteral("unix:path=/nonexistent/bus"), newName());
}

} // namespace zolva::test
