#pragma once

#include "core/AppModel.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <string>
#include <vector>

namespace zolva {

/// The entries of the analysis in the order of the screen. There may be a hundred thousand, so they
/// are read where the analysis holds them, and another order begins anew. Main thread; the model
/// outlives it.
class AnalyzeRows final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the AnalyzeModel")

public:
    enum Role
    {
        NameRole = Qt::UserRole + 1, ///< "name"
        FolderRole,                  ///< "isFolder"
        ShareRole,                   ///< "share" of the whole, 0 to 1
        ShareTextRole,               ///< "shareText", in percent
        SizeTextRole,                ///< "sizeText"
        ValueRole,                   ///< "spokenValue"
    };

    explicit AnalyzeRows(AppModel& model, QObject* parent = nullptr);

    /// Null where there is no such row.
    [[nodiscard]] const AnalyzeEntry* entryAt(int row) const;
    /// The row of the smallest entry that the path is or lies below; the first one where none is.
    [[nodiscard]] int rowAbove(const std::string& path) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void reload();
    void reorder();
    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] std::size_t placeOf(std::size_t row) const;
    [[nodiscard]] double share(const AnalyzeEntry& entry) const;
    [[nodiscard]] QString shareText(const AnalyzeEntry& entry) const;

    AppModel& m_model;
    const AnalyzeResult* m_result = nullptr; ///< the one held; null while there is none
    SortKey m_key;                           ///< the order of the rows
};

} // namespace zolva
