#include "removal/runs/RunMessages.h"

#include "files/DisplayPath.h"
#include "files/SizeText.h"

#include <QTextBoundaryFinder>

#include <string_view>

namespace zolva {

namespace {

constexpr qsizetype longestShown = 58;
constexpr qsizetype shownHead = 24;
constexpr qsizetype shownTail = 31;

QString shown(std::string_view bytes)
{
    return QString::fromStdString(displayLine(bytes));
}

/// Where each character, as people count them, begins, and the end.
std::vector<qsizetype> characterBorders(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    std::vector<qsizetype> borders{0};
    for (qsizetype next = finder.toNextBoundary(); next >= 0; next = finder.toNextBoundary()) {
        borders.push_back(next);
    }
    return borders;
}

SummaryToast movedToast(const RunFigures& run, bool keepInTrash)
{
    const QString size = QString::fromStdString(sizeText(run.freed));
    if (keepInTrash) {
        return {BannerKind::Success, QStringLiteral("Moved ") + size + " to the Trash",
                SummaryAction::OpenTrash};
    }
    if (run.purged == run.moved) {
        return {BannerKind::Success, QStringLiteral("Deleted ") + size + " permanently"};
    }
    return {BannerKind::Success, QStringLiteral("Cleaned ") + size + ", " +
                                     counted(run.moved - run.purged, "item") +
                                     " left in the Trash"};
}

/// The one text, or so many as a sentence.
QString detail(const std::vector<std::string>& texts, const QString& sentence)
{
    return texts.size() == 1 ? shown(texts.front())
                             : QString::number(texts.size()) + ' ' + sentence;
}

} // namespace

QString counted(std::int64_t count, const QString& noun)
{
    const QString figure = QString::number(count) + ' ' + noun;
    return count == 1 ? figure : figure + 's';
}

QString shortenedPath(const std::string& path)
{
    QString text = shown(path);
    // No character is shorter than one unit.
    if (text.size() <= longestShown) {
        return text;
    }
    const std::vector<qsizetype> borders = characterBorders(text);
    const auto length = static_cast<qsizetype>(borders.size()) - 1;
    if (length <= longestShown) {
        return text;
    }
    return text.first(borders[static_cast<std::size_t>(shownHead)]) + QStringLiteral("…") +
           text.sliced(borders[static_cast<std::size_t>(length - shownTail)]);
}

std::vector<SummaryToast> runSummary(const RunFigures& run, bool keepInTrash)
{
    std::vector<SummaryToast> toasts;
    if (run.attempts > 0 && run.moved == 0 && run.failures.empty()) {
        toasts.push_back(
            {BannerKind::Info, QStringLiteral("Nothing to remove, those items were already gone")});
        return toasts;
    }
    if (run.moved > 0) {
        toasts.push_back(movedToast(run, keepInTrash));
    }
    if (!run.failures.empty()) {
        toasts.push_back({BannerKind::Warning,
                          QStringLiteral("Skipped ") +
                              counted(static_cast<std::int64_t>(run.failures.size()), "item") +
                              ": " + detail(run.failures, "paths couldn't be removed")});
    }
    if (!run.problems.empty()) {
        toasts.push_back(
            {BannerKind::Warning, QStringLiteral("Left in the Trash: ") +
                                      detail(run.problems, "items couldn't be emptied")});
    }
    return toasts;
}

QString stoppedText(std::int64_t moved, std::int64_t left)
{
    return QStringLiteral("Stopped. ") + counted(moved, "item") + " already removed, " +
           QString::number(left) + " left alone.";
}

QString otherProcessText()
{
    return QStringLiteral("Zolva is already removing files in another process.");
}

} // namespace zolva
