#include "desktop/linux/DesktopDoors.h"

#include "async/Background.h"
#include "async/Unawaited.h"
#include "desktop/linux/DesktopHandlers.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QPointer>
#include <QProcess>
#include <QStringList>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace zolva {

namespace {

constexpr int patience = 5000; // milliseconds, of which nobody waits any

const auto fileManager = QStringLiteral("org.freedesktop.FileManager1");
const auto showFolders = QStringLiteral("ShowFolders");
const auto showItems = QStringLiteral("ShowItems");
const auto trashUri = QStringLiteral("trash:///");

/// The bytes as they are, whether or not they are text.
QString uriOf(const std::string& path)
{
    return QStringLiteral("file://") +
           QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/"));
}

bool start(QStringList command)
{
    if (command.isEmpty()) {
        return false;
    }
    const QString program = command.takeFirst();
    return QProcess::startDetached(program, command);
}

bool openUri(const QString& uri, const QByteArray& mimeType)
{
    QStringList command = hasHandler(mimeType) ? uriOpener() : QStringList();
    return !command.isEmpty() && start(command << uri);
}

bool isFolder(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

} // namespace

DesktopDoors::DesktopDoors(const QDBusConnection& bus, Places places, QObject* parent)
    : QObject(parent), m_bus(bus), m_places(std::move(places))
{}

void DesktopDoors::openTrash()
{
    show(showFolders, trashUri, [this] {
        if (!openUri(trashUri, "x-scheme-handler/trash")) {
            openFolder(m_places.trashFolder, placewords::trash);
        }
    });
}

void DesktopDoors::openLogFolder()
{
    openFolder(m_places.logFolder, placewords::logFolder);
}

void DesktopDoors::openAccessSettings()
{
    if (!start(settingsProgram())) {
        m_places.tell(QString::fromUtf8(placewords::accessSettings));
    }
}

void DesktopDoors::openPage(const std::string& url)
{
    if (!openUri(QString::fromStdString(url), "x-scheme-handler/https")) {
        m_places.tell(cannotOpenPage(url));
    }
}

void DesktopDoors::reveal(const std::string& path)
{
    unawaited([](QPointer<DesktopDoors> self, std::string asked) -> QCoro::Task<> {
        const RevealedPlace place = co_await background(revealedPlace, asked);
        if (self) {
            self->showItem(asked, place);
        }
    }(this, path));
}

void DesktopDoors::showItem(const std::string& asked, const RevealedPlace& place)
{
    show(showItems, uriOf(place.item), [this, asked, folder = uriOf(place.folder)] {
        if (!openUri(folder, "inode/directory")) {
            m_places.tell(cannotOpen(placewords::reveal, asked));
        }
    });
}

void DesktopDoors::openToolLicense()
{
    const std::string& path = m_places.toolLicense;
    if (!path.empty() && !openUri(uriOf(path), "text/plain")) {
        m_places.tell(cannotOpen(placewords::toolLicense, path));
    }
}

void DesktopDoors::show(const QString& method, const QString& uri, const Otherwise& otherwise)
{
    if (!m_bus.isConnected()) {
        otherwise();
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        fileManager, QStringLiteral("/org/freedesktop/FileManager1"), fileManager, method);
    call << QStringList{uri} << QString();
    auto* const waiting = new QDBusPendingCallWatcher(m_bus.asyncCall(call, patience), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this, [waiting, otherwise] {
        waiting->deleteLater();
        if (waiting->isError()) {
            otherwise();
        }
    });
}

void DesktopDoors::openFolder(const std::string& path, const char* words)
{
    const QString uri = uriOf(path);
    const Otherwise otherwise = [this, path, words, uri] {
        if (!openUri(uri, "inode/directory")) {
            m_places.tell(cannotOpen(words, path));
        }
    };
    if (isFolder(path)) {
        show(showFolders, uri, otherwise);
    } else {
        m_places.tell(cannotOpen(words, path));
    }
}

AppDoors systemDoors(Places places)
{
    const auto doors =
        std::make_shared<DesktopDoors>(QDBusConnection::sessionBus(), std::move(places));
    return {.accessSettings = [doors] { doors->openAccessSettings(); },
            .logFolder = [doors] { doors->openLogFolder(); },
            .trash = [doors] { doors->openTrash(); },
            .page = [doors](const std::string& url) { doors->openPage(url); },
            .reveal = [doors](const std::string& path) { doors->reveal(path); },
            .toolLicense = [doors] { doors->openToolLicense(); }};
}

} // namespace zolva
