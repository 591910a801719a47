#include "screens/model/SettingsMessages.h"

#include "screens/model/ShownText.h"
#include "screens/model/ToolText.h"

#include <QUrl>

namespace zolva {

namespace {

constexpr auto projectPage = ZOLVA_TOOL_PAGE;

QString versionText(const ToolVersion& version)
{
    return version ? shownText(*version) : QStringLiteral("an unknown version");
}

} // namespace

QString keepInTrashNote(bool on)
{
    return on ? QStringLiteral("Clean, Purge, Installers and Uninstall put things in the Trash, "
                               "where you can put them back. The space comes back when you empty "
                               "it.")
              : QStringLiteral("Clean, Purge, Installers and Uninstall remove things for good. "
                               "Nothing goes to the Trash and nothing can be undone.");
}

QString keepInTrashSpoken(bool on)
{
    return on ? QStringLiteral("On, removals are recoverable")
              : QStringLiteral("Off, removals are permanent");
}

QString toolLine(const ToolVersion& version, MoLocation::Kind kind)
{
    return QStringLiteral("mo ") + versionText(version) + QStringLiteral(" · ") + toolSource(kind) +
           QStringLiteral(" (modified) · GPL-3.0");
}

QString toolAbout(const ToolVersion& version)
{
    return QStringLiteral("Zolva runs the mole command-line tool to read and clean your Mac. mole "
                          "is free software under the GNU General Public License v3. Zolva ships "
                          "mole ") +
           versionText(version) +
           QStringLiteral(" with one change: its launcher was patched to resolve paths from inside "
                          "the app bundle instead of Homebrew.");
}

QString toolSourceNote(const ToolVersion& version)
{
    return QStringLiteral("The complete corresponding source, mole ") + versionText(version) +
           QStringLiteral(" plus Zolva's patch, is available from the source link.");
}

std::string toolPage(const ToolVersion& version)
{
    if (!version) {
        return projectPage;
    }
    // Whatever it is, it is one name of a path.
    const QByteArray tag = QUrl::toPercentEncoding(QString::fromStdString(*version));
    return std::string(projectPage) + "/tree/V" + tag.toStdString();
}

} // namespace zolva
