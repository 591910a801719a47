#include "desktop/linux/DesktopHandlers.h"

#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace zolva {

namespace {

/// A settings program, and the desktop it belongs to as XDG_CURRENT_DESKTOP names it.
struct SettingsProgram
{
    const char* desktop;
    const char* name;
    bool elsewhere; ///< it opens on other desktops too
};

constexpr std::array<SettingsProgram, 9> settingsPrograms = {{
    {"GNOME", "gnome-control-center", false},
    {"Unity", "unity-control-center", false},
    {"Budgie", "budgie-control-center", false},
    {"KDE", "systemsettings", true},
    {"KDE", "systemsettings5", true},
    {"XFCE", "xfce4-settings-manager", true},
    {"X-Cinnamon", "cinnamon-settings", true},
    {"MATE", "mate-control-center", true},
    {"LXQt", "lxqt-config", true},
}};

bool isInstalled(const QByteArray& desktopFile)
{
    QString name = QString::fromUtf8(desktopFile);
    const auto exists = [](const QString& file) {
        return !QStandardPaths::locate(QStandardPaths::ApplicationsLocation, file).isEmpty();
    };
    // A hyphen may stand for a folder.
    for (qsizetype from = 0; !name.isEmpty(); ++from) {
        if (exists(name)) {
            return true;
        }
        from = name.indexOf(QLatin1Char('-'), from);
        if (from < 0) {
            return false;
        }
        name[from] = QLatin1Char('/');
    }
    return false;
}

bool namesInstalled(const QByteArray& list)
{
    const QList<QByteArray> names = list.split(';');
    return std::any_of(names.begin(), names.end(), [](const QByteArray& name) {
        return name.trimmed().endsWith(".desktop") && isInstalled(name.trimmed());
    });
}

/// Whether a file of associations names an installed program for the kind of content.
bool associates(const QString& path, const QByteArray& mimeType)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    bool removed = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (line.startsWith('[')) {
            removed = line == "[Removed Associations]";
        } else if (!removed && line.startsWith(mimeType + '=') &&
                   namesInstalled(line.mid(mimeType.size() + 1))) {
            return true;
        }
    }
    return false;
}

QString executable(const char* name)
{
    return QStandardPaths::findExecutable(QString::fromLatin1(name));
}

} // namespace

bool hasHandler(const QByteArray& mimeType)
{
    const auto list = QStringLiteral("mimeapps.list");
    const QStringList files =
        QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, list) +
        QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation, list) +
        QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation,
                                  QStringLiteral("mimeinfo.cache"));
    return std::any_of(files.begin(), files.end(),
                       [&mimeType](const QString& file) { return associates(file, mimeType); });
}

QStringList settingsProgram()
{
    const QStringList desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    for (const bool own : {true, false}) {
        for (const SettingsProgram& program : settingsPrograms) {
            const bool wanted =
                own ? desktops.contains(QLatin1String(program.desktop)) : program.elsewhere;
            const QString path = wanted ? executable(program.name) : QString();
            if (!path.isEmpty()) {
                return {path};
            }
        }
    }
    return {};
}

QStringList uriOpener()
{
    if (const QString path = executable("xdg-open"); !path.isEmpty()) {
        return {path};
    }
    if (const QString path = executable("gio"); !path.isEmpty()) {
        return {path, QStringLiteral("open")};
    }
    return {};
}

} // namespace zolva
