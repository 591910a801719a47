#include "desktop/linux/StatusNotifierItem.h"

#include "core/Resources.h"
#include "desktop/DesktopId.h"
#include "desktop/FocusLeave.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>

#include <filesystem>
#include <system_error>
#include <utility>

namespace zolva {

namespace {

const auto watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto busName = QStringLiteral("org.freedesktop.DBus");
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");
const auto itemPath = QStringLiteral("/StatusNotifierItem");
const auto menuPath = QStringLiteral("/MenuBar");
const auto hostProperty = QStringLiteral("IsStatusNotifierHostRegistered");
const auto program = QStringLiteral("Zolva");

/// The name of the picture that takes the colour of what it stands on.
QString symbolicName()
{
    return QString::fromLatin1(desktopId) + QStringLiteral("-symbolic");
}

QDBusMessage watcherCall(const QString& interface, const QString& method)
{
    QDBusMessage call = QDBusMessage::createMethodCall(watcherName, watcherPath, interface, method);
    call.setAutoStartService(false); // a desktop that wants one has one
    return call;
}

/// Where the pictures are that come with the program.
std::string ownIcons()
{
    for (const std::string& folder : resourceFolders()) {
        std::string icons = folder + "/icons";
        std::error_code ignored;
        if (std::filesystem::is_directory(icons, ignored)) {
            return icons;
        }
    }
    return {};
}

} // namespace

StatusNotifierItem::StatusNotifierItem(const QDBusConnection& bus, const std::string& iconFolder,
                                       QObject* parent)
    : TrayItem(parent), m_bus(bus),
      m_watcher(watcherName, m_bus, QDBusServiceWatcher::WatchForOwnerChange),
      m_iconFolder(QFile::decodeName(QByteArray::fromStdString(iconFolder)))
{
    registerTrayTypes();
    new StatusNotifierDoor(this);
    connect(&m_menu, &TrayMenu::chosen, this, [this](int entry) {
        const FocusLeave leave(std::exchange(m_token, {}));
        Q_EMIT chosen(entry);
    });
}

StatusNotifierItem::~StatusNotifierItem()
{
    if (!m_name.isEmpty()) {
        m_bus.unregisterService(m_name);
    }
    m_bus.unregisterObject(itemPath);
    m_bus.unregisterObject(menuPath);
}

void StatusNotifierItem::start()
{
    if (!m_bus.isConnected()) {
        return;
    }
    m_bus.registerObject(itemPath, this, QDBusConnection::ExportAdaptors);
    m_bus.registerObject(menuPath, &m_menu, QDBusConnection::ExportAdaptors);
    for (const auto* const signal :
         {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        m_bus.connect(watcherName, watcherPath, watcherName, QString::fromLatin1(signal), this,
                      SLOT(askForHost()));
    }
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*name*/, const QString& /*before*/, const QString& now) {
                takeOwner(now);
            });
    // The answer comes after the news of every change before it.
    QDBusMessage call = QDBusMessage::createMethodCall(
        busName, QStringLiteral("/org/freedesktop/DBus"), busName, QStringLiteral("GetNameOwner"));
    call << watcherName;
    auto* const waiting = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this, [this, waiting] {
        waiting->deleteLater();
        const QDBusPendingReply<QString> reply = *waiting;
        takeOwner(reply.isValid() ? reply.value() : QString());
    });
}

void StatusNotifierItem::takeOwner(const QString& owner)
{
    if (std::exchange(m_owner, owner) == owner) {
        return;
    }
    takeState(false, false);
    if (!owner.isEmpty()) {
        registerItem();
    }
}

void StatusNotifierItem::registerItem()
{
    if (m_name.isEmpty()) {
        const QString name = QStringLiteral("org.kde.StatusNotifierItem-%1-1")
                                 .arg(QCoreApplication::applicationPid());
        m_name = m_bus.registerService(name) ? name : m_bus.baseService();
    }
    QDBusMessage call = watcherCall(watcherName, QStringLiteral("RegisterStatusNotifierItem"));
    call << m_name;
    auto* const waiting = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this, [this, waiting] {
        waiting->deleteLater();
        if (!waiting->isError()) {
            takeState(true, m_hasHost);
            askForHost();
        }
    });
}

void StatusNotifierItem::askForHost()
{
    QDBusMessage call =
        watcherCall(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << watcherName << hostProperty;
    auto* const waiting = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this, [this, waiting] {
        waiting->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *waiting;
        takeState(m_isRegistered, reply.isValid() && reply.value().variant().toBool());
    });
}

void StatusNotifierItem::takeState(bool isRegistered, bool hasHost)
{
    const bool wasShown = isShown();
    m_isRegistered = isRegistered;
    m_hasHost = hasHost;
    if (isShown() != wasShown) {
        Q_EMIT shownChanged();
    }
}

void StatusNotifierItem::setTexts(const QString& label, const QString& toolTip)
{
    if (label != m_label || toolTip != m_toolTip) {
        m_label = label;
        m_toolTip = toolTip;
        Q_EMIT textsChanged();
    }
}

void StatusNotifierItem::setEntries(std::vector<TrayEntry> entries)
{
    m_menu.setEntries(std::move(entries));
}

void StatusNotifierItem::setOnDark(bool isDark)
{
    if (std::exchange(m_isOnDark, isDark) != isDark) {
        Q_EMIT iconChanged();
    }
}

void StatusNotifierItem::click(const QRect& place)
{
    const FocusLeave leave(std::exchange(m_token, {}));
    Q_EMIT activated(place);
}

StatusNotifierDoor::StatusNotifierDoor(StatusNotifierItem* item)
    : QDBusAbstractAdaptor(item), m_item(item)
{
    connect(item, &StatusNotifierItem::iconChanged, this, &StatusNotifierDoor::NewIcon);
    connect(item, &StatusNotifierItem::textsChanged, this, [this] {
        Q_EMIT NewTitle();
        Q_EMIT NewToolTip();
        Q_EMIT XAyatanaNewLabel(label(), labelGuide());
    });
}

QString StatusNotifierDoor::id()
{
    return QString::fromLatin1(desktopId);
}

QString StatusNotifierDoor::title() const
{
    return m_item->toolTip().isEmpty() ? program
                                       : program + QStringLiteral(", ") + m_item->toolTip();
}

QString StatusNotifierDoor::iconName() const
{
    return m_item->iconFolder().isEmpty() ? QString() : symbolicName();
}

QList<zolva::TrayPixmap> StatusNotifierDoor::iconPixmap() const
{
    return trayPixmaps(m_item->isOnDark() ? QColor(255, 255, 255) : QColor(0, 0, 0, 204));
}

zolva::TrayToolTip StatusNotifierDoor::toolTip() const
{
    return {{}, {}, program, m_item->toolTip()};
}

QDBusObjectPath StatusNotifierDoor::menu()
{
    return QDBusObjectPath(menuPath);
}

void StatusNotifierDoor::Activate(int x, int y)
{
    // Those that cannot tell say the origin.
    m_item->click(x == 0 && y == 0 ? QRect() : QRect(x, y, 1, 1));
}

void StatusNotifierDoor::SecondaryActivate(int x, int y)
{
    Activate(x, y);
}

// Called by a desktop that does not draw menus: the panel has their commands too.
void StatusNotifierDoor::ContextMenu(int x, int y)
{
    Activate(x, y);
}

void StatusNotifierDoor::Scroll(int /*delta*/, const QString& /*orientation*/) {}

void StatusNotifierDoor::ProvideXdgActivationToken(const QString& token)
{
    m_item->takeToken(token);
}

std::unique_ptr<TrayItem> systemTrayItem()
{
    return std::make_unique<StatusNotifierItem>(QDBusConnection::sessionBus(), ownIcons());
}

} // namespace zolva
