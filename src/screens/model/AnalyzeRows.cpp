#include "screens/model/AnalyzeRows.h"

#include "files/FixedText.h"
#include "files/PathText.h"

#include "screens/model/ShownText.h"

#include <algorithm>
#include <utility>

namespace zolva {

namespace {

constexpr auto screenId = "analyze";

} // namespace

AnalyzeRows::AnalyzeRows(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), m_model(model), m_key(model.sortOf(screenId))
{
    connect(&model.live(), &LiveData::analyzeChanged, this, &AnalyzeRows::reload);
    connect(&model, &AppModel::sortChanged, this, &AnalyzeRows::reorder);
    reload();
}

const AnalyzeEntry* AnalyzeRows::entryAt(int row) const
{
    const bool isThere = row >= 0 && static_cast<std::size_t>(row) < count();
    return isThere ? &m_result->entries[placeOf(static_cast<std::size_t>(row))] : nullptr;
}

int AnalyzeRows::rowAbove(const std::string& path) const
{
    std::size_t found = 0;
    std::size_t length = 0;
    for (std::size_t row = 0; row < count(); ++row) {
        const std::string& above = m_result->entries[placeOf(row)].path;
        if (above.size() > length && isSameOrBelow(path, above)) {
            found = row;
            length = above.size();
        }
    }
    return static_cast<int>(found);
}

int AnalyzeRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(count());
}

QVariant AnalyzeRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const AnalyzeEntry& entry = *entryAt(index.row());
    switch (role) {
    case NameRole:
        return shownLine(entry.name);
    case FolderRole:
        return entry.isDir;
    case ShareRole:
        return std::clamp(share(entry), 0.0, 1.0);
    case ShareTextRole:
        return shareText(entry);
    case SizeTextRole:
        return shownSize(entry.size);
    case ValueRole:
        return shownSize(entry.size) + QStringLiteral(", ") + shareText(entry);
    default:
        return {};
    }
}

QHash<int, QByteArray> AnalyzeRows::roleNames() const
{
    return {{NameRole, "name"},           {FolderRole, "isFolder"},   {ShareRole, "share"},
            {ShareTextRole, "shareText"}, {SizeTextRole, "sizeText"}, {ValueRole, "spokenValue"}};
}

void AnalyzeRows::reload()
{
    const AnalyzeResult* const held = m_model.live().analysis().value();
    if (held == nullptr && m_result == nullptr) {
        return;
    }
    m_result = nullptr; // it may be gone
    beginResetModel();
    m_result = held;
    endResetModel();
}

void AnalyzeRows::reorder()
{
    const SortKey key = m_model.sortOf(screenId);
    if (key != m_key) {
        beginResetModel();
        m_key = key;
        endResetModel();
    }
}

std::size_t AnalyzeRows::count() const
{
    return m_result == nullptr ? 0 : m_result->entries.size();
}

std::size_t AnalyzeRows::placeOf(std::size_t row) const
{
    switch (m_key) {
    case SortKey::NameAsc:
        return m_model.live().analyzeByName()[row];
    case SortKey::SizeAsc:
        return count() - 1 - row;
    case SortKey::SizeDesc:
    case SortKey::AgeDesc: // an entry has no age
    case SortKey::AgeAsc:
        break;
    }
    return row;
}

double AnalyzeRows::share(const AnalyzeEntry& entry) const
{
    return m_result->totalSize < 1
               ? 0
               : static_cast<double>(entry.size) / static_cast<double>(m_result->totalSize);
}

QString AnalyzeRows::shareText(const AnalyzeEntry& entry) const
{
    return QString::fromStdString(fixedText(share(entry) * 100, 1)) + QLatin1Char('%');
}

} // namespace zolva
