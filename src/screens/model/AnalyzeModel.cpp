#include "screens/model/AnalyzeModel.h"

#include "async/Unawaited.h"
#include "files/DisplayPath.h"
#include "files/HomeFolder.h"

#include "screens/model/Crumbs.h"
#include "screens/model/ShownText.h"

#include <utility>

namespace zolva {

AnalyzeModel::AnalyzeModel(AppModel& model, QObject* parent)
    : QObject(parent), m_model(model), m_rows(model), m_largeFiles(model),
      m_sort(model, "analyze", {SortKey::SizeDesc, SortKey::SizeAsc, SortKey::NameAsc})
{
    // Another order gives that row another place, too.
    connect(&m_rows, &AnalyzeRows::modelReset, this, &AnalyzeModel::findStart);
    connect(&model.live(), &LiveData::analyzeChanged, this, &AnalyzeModel::follow);
    connect(&model.removal().space(), &FreeSpaceMeter::freeSpaceChanged, this,
            &AnalyzeModel::changed);
}

AnalyzeModel::Page AnalyzeModel::page() const
{
    return pageOf(m_model.live().analysis().state());
}

AnalyzeModel::Page AnalyzeModel::pageOf(LoadState analysis)
{
    switch (analysis) {
    case LoadState::Loading:
        return Waiting;
    case LoadState::Loaded:
        return Loaded;
    case LoadState::Failed:
        return Failed;
    case LoadState::Idle:
        break;
    }
    return Welcome;
}

QString AnalyzeModel::waitText() const
{
    const std::string& path = m_model.live().analyzePath();
    return QStringLiteral("Scanning ") +
           (path.empty() ? QStringLiteral("your Mac") : shownLine(tildePath(path))) +
           QStringLiteral("… this can take a moment.");
}

QString AnalyzeModel::failText() const
{
    const std::string* const error = m_model.live().analysis().error();
    return error == nullptr ? QString() : shownText(*error);
}

QStringList AnalyzeModel::crumbs() const
{
    QStringList texts;
    for (const Crumb& crumb : crumbsTo(m_model.live().analyzePath(), homeFolder())) {
        texts.push_back(shownLine(crumb.text));
    }
    return texts;
}

QString AnalyzeModel::totals() const
{
    if (m_model.live().analyzePath().empty()) {
        return shownSize(m_model.removal().space().freeSpace()) + QStringLiteral(" free");
    }
    const AnalyzeResult* const held = m_model.live().analysis().value();
    return held == nullptr ? QString()
                           : shownSize(held->totalSize) + QStringLiteral(" · ") +
                                 QString::number(held->totalFiles) + QStringLiteral(" files");
}

bool AnalyzeModel::isEmpty() const
{
    return page() == Loaded && m_rows.rowCount() == 0;
}

void AnalyzeModel::scan()
{
    analyze({});
}

void AnalyzeModel::goTo(int crumb)
{
    std::vector<Crumb> crumbs = crumbsTo(m_model.live().analyzePath(), homeFolder());
    // The last one is where we are.
    if (crumb >= 0 && static_cast<std::size_t>(crumb) + 1 < crumbs.size()) {
        analyze(std::move(crumbs[static_cast<std::size_t>(crumb)].path));
    }
}

void AnalyzeModel::goUp()
{
    goTo(static_cast<int>(crumbsTo(m_model.live().analyzePath(), homeFolder()).size()) - 2);
}

void AnalyzeModel::open(int row)
{
    const AnalyzeEntry* const entry = m_rows.entryAt(row);
    if (entry != nullptr && entry->isDir) {
        analyze(entry->path);
    }
}

void AnalyzeModel::reveal(int row)
{
    if (const AnalyzeEntry* const entry = m_rows.entryAt(row)) {
        m_model.reveal(entry->path);
    }
}

void AnalyzeModel::moveFile(int row)
{
    if (const LargeFile* const file = m_largeFiles.fileAt(row)) {
        m_model.removal().trashAnalyzeItem(file->name, file->path, file->size);
    }
}

void AnalyzeModel::revealFile(int row)
{
    if (const LargeFile* const file = m_largeFiles.fileAt(row)) {
        m_model.reveal(file->path);
    }
}

void AnalyzeModel::analyze(std::string path)
{
    Q_EMIT leaving();
    m_cameFrom = m_model.live().analyzePath();
    unawaited(m_model.live().analyze(std::move(path)));
}

void AnalyzeModel::findStart()
{
    const int row = m_rows.rowAbove(m_cameFrom);
    if (std::exchange(m_startRow, row) != row) {
        Q_EMIT changed();
    }
}

void AnalyzeModel::follow()
{
    Q_EMIT changed();
    Q_EMIT pageChanged();
}

} // namespace zolva
