#include "screens/model/LargeFileRows.h"

#include "screens/model/ShownText.h"

#include <algorithm>
#include <utility>

namespace zolva {

LargeFileRows::LargeFileRows(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), m_model(model)
{
    connect(&model.live(), &LiveData::analyzeChanged, this, &LargeFileRows::reload);
    connect(&model.removal().analyzed(), &AnalyzeRemoval::trashedChanged, this,
            &LargeFileRows::followTrash);
    reload();
}

const LargeFile* LargeFileRows::fileAt(int row) const
{
    const bool isThere = row >= 0 && static_cast<std::size_t>(row) < m_files.size();
    return isThere ? &m_files[static_cast<std::size_t>(row)] : nullptr;
}

int LargeFileRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_files.size());
}

QVariant LargeFileRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto place = static_cast<std::size_t>(index.row());
    const LargeFile& file = m_files[place];
    const bool isInTrash = m_inTrash[place];
    switch (role) {
    case NameRole:
        return shownLine(file.name);
    case PathRole:
        return shownLine(file.path);
    case SizeTextRole:
        return shownSize(file.size);
    case InTrashRole:
        return isInTrash;
    case SpokenNameRole:
        return spokenName(file, isInTrash);
    case SpokenHintRole:
        return isInTrash ? QStringLiteral("You can put it back from the Trash") : QString();
    default:
        return {};
    }
}

QHash<int, QByteArray> LargeFileRows::roleNames() const
{
    return {{NameRole, "name"},
            {PathRole, "path"},
            {SizeTextRole, "sizeText"},
            {InTrashRole, "inTrash"},
            {SpokenNameRole, "spokenName"},
            {SpokenHintRole, "spokenHint"}};
}

void LargeFileRows::reload()
{
    const AnalyzeResult* const held = m_model.live().analysis().value();
    const bool wasEmpty = m_files.empty();
    beginResetModel();
    m_files.clear();
    if (held != nullptr) {
        const std::size_t count = std::min(limit, held->largeFiles.size());
        std::copy_n(held->largeFiles.begin(), count, std::back_inserter(m_files));
    }
    m_inTrash = trashedNow();
    endResetModel();
    if (m_files.empty() != wasEmpty) {
        Q_EMIT isEmptyChanged();
    }
}

void LargeFileRows::followTrash()
{
    const std::vector<bool> before = std::exchange(m_inTrash, trashedNow());
    for (std::size_t place = 0; place < m_files.size(); ++place) {
        if (before[place] != m_inTrash[place]) {
            const QModelIndex row = index(static_cast<int>(place));
            Q_EMIT dataChanged(row, row, {InTrashRole, SpokenNameRole, SpokenHintRole});
        }
    }
}

std::vector<bool> LargeFileRows::trashedNow() const
{
    const std::set<std::string>& gone = m_model.removal().analyzed().trashed();
    std::vector<bool> all;
    for (const LargeFile& file : m_files) {
        all.push_back(gone.contains(file.path));
    }
    return all;
}

QString LargeFileRows::spokenName(const LargeFile& file, bool isInTrash)
{
    return isInTrash ? shownLine(file.name) + QStringLiteral(" is in the Trash")
                     : QStringLiteral("Move ") + shownLine(file.name) +
                           QStringLiteral(" to the Trash, ") + shownSize(file.size);
}

} // namespace zolva
