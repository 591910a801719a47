#include "screens/model/ConfirmMessages.h"

#include "removal/runs/RunMessages.h"
#include "removal/runs/RunSelection.h"

#include "screens/model/ShownText.h"

#include <algorithm>

namespace zolva {

namespace {

/// What becomes of it.
QString fate(bool keepInTrash)
{
    return keepInTrash ? QStringLiteral("They go to the Trash, so you can put them back.")
                       : QStringLiteral("This cannot be undone.");
}

QString removalTitle(const QString& what, bool keepInTrash)
{
    return keepInTrash ? QStringLiteral("Move ") + what + QStringLiteral(" to the Trash?")
                       : QStringLiteral("Delete ") + what + QStringLiteral(" permanently?");
}

ConfirmRow rowFor(const std::string& path, const QString& size)
{
    return {shortenedPath(path), size, shownLine(path)};
}

ConfirmRow rowOf(const CatPath& path)
{
    return rowFor(path.p, shownSize(path.b));
}

ConfirmRow rowOf(const Project& project)
{
    return rowFor(projectKey(project), shownSize(project.b));
}

ConfirmRow rowOf(const InstallerItem& item)
{
    return rowFor(item.p, shownSize(item.b));
}

ConfirmRow rowOf(const UninstallApp& app)
{
    return rowFor(app.path, {});
}

template <typename Thing>
void list(ConfirmWords& words, const std::vector<Thing>& things)
{
    const auto count = static_cast<std::int64_t>(things.size());
    const auto shown = std::min<std::int64_t>(count, ConfirmWords::rowLimit);
    for (std::int64_t row = 0; row < shown; ++row) {
        words.rows.push_back(rowOf(things[static_cast<std::size_t>(row)]));
    }
    if (count > shown) {
        words.more =
            QStringLiteral("and ") + QString::number(count - shown) + QStringLiteral(" more");
    }
}

} // namespace

ConfirmWords eraseWords(const std::vector<CatPath>& paths, std::int64_t categories,
                        bool keepInTrash)
{
    ConfirmWords words;
    words.title = removalTitle(shownSize(bytesOf(paths)), keepInTrash);
    words.body = QStringLiteral("Removing ") +
                 counted(static_cast<std::int64_t>(paths.size()), "path") +
                 QStringLiteral(" across ") + countedCategories(categories) + QStringLiteral(". ") +
                 fate(keepInTrash) +
                 QStringLiteral(" Your Mac rebuilds these caches on its own. Anything already in "
                                "your Trash is left alone.");
    words.button = QStringLiteral("Clean");
    list(words, paths);
    return words;
}

ConfirmWords purgeWords(const std::vector<Project>& projects, bool keepInTrash)
{
    ConfirmWords words;
    words.title = removalTitle(shownSize(bytesOf(projects)) + QStringLiteral(" of build artifacts"),
                               keepInTrash);
    words.body =
        QStringLiteral("Removing ") +
        counted(static_cast<std::int64_t>(projects.size()), "build folder") + QStringLiteral(". ") +
        fate(keepInTrash) +
        QStringLiteral(" Your next build recreates them. Anything already in your Trash is left "
                       "alone.");
    words.symbol = QStringLiteral("folder.badge.minus");
    words.button = QStringLiteral("Purge");
    list(words, projects);
    return words;
}

ConfirmWords installerWords(const std::vector<InstallerItem>& installers, bool keepInTrash)
{
    ConfirmWords words;
    words.title = removalTitle(counted(static_cast<std::int64_t>(installers.size()), "installer"),
                               keepInTrash);
    words.body = fate(keepInTrash) +
                 (keepInTrash ? QStringLiteral(" The space comes back when you empty it.")
                              : QStringLiteral(" The space comes back straight away.")) +
                 QStringLiteral(" You can download them again from their source.");
    words.symbol = QStringLiteral("shippingbox.fill");
    words.button = keepInTrash ? QStringLiteral("Move to Trash") : QStringLiteral("Delete");
    list(words, installers);
    return words;
}

ConfirmWords uninstallWords(const std::vector<UninstallApp>& apps, bool keepInTrash)
{
    const QString count = QString::number(apps.size());
    const bool isOne = apps.size() == 1;
    ConfirmWords words;
    words.title = isOne ? QStringLiteral("Uninstall this app?")
                        : QStringLiteral("Uninstall ") + count + QStringLiteral(" apps?");
    words.body =
        QStringLiteral("Each app's bundle and its leftover files are removed. ") +
        fate(keepInTrash) +
        (keepInTrash ? QString() : QStringLiteral(" You would need to install the app again.")) +
        QStringLiteral(" Leftovers shared with another installed app are left alone.");
    words.symbol = QStringLiteral("trash.fill");
    words.button = isOne ? QStringLiteral("Uninstall") : QStringLiteral("Uninstall ") + count;
    list(words, apps);
    return words;
}

ConfirmWords emptyTrashWords(std::int64_t count, std::int64_t bytes)
{
    ConfirmWords words;
    words.title = QStringLiteral("Empty the Trash?");
    words.body = counted(count, "item") + QStringLiteral(" (") + shownSize(bytes) +
                 QStringLiteral(") will be permanently deleted. This cannot be undone.");
    words.symbol = QStringLiteral("trash.fill");
    words.button = QStringLiteral("Empty Trash");
    return words;
}

} // namespace zolva
