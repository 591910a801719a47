#pragma once

#include "core/AppModel.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <string>
#include <vector>

namespace zolva {

/// The largest files of the analysis, as far as they are shown. Main thread; the model outlives it.
class LargeFileRows final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the AnalyzeModel")
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)

public:
    enum Role
    {
        NameRole = Qt::UserRole + 1, ///< "name"
        PathRole,                    ///< "path"
        SizeTextRole,                ///< "sizeText"
        InTrashRole,                 ///< "inTrash": moved from here, and not put back
        SpokenNameRole,              ///< "spokenName"
        SpokenHintRole,              ///< "spokenHint"
    };

    static constexpr std::size_t limit = 6;

    explicit LargeFileRows(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isEmpty() const { return m_files.empty(); }
    /// Null where there is no such row.
    [[nodiscard]] const LargeFile* fileAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void isEmptyChanged();

private:
    void reload();
    void followTrash();
    [[nodiscard]] std::vector<bool> trashedNow() const;
    [[nodiscard]] static QString spokenName(const LargeFile& file, bool isInTrash);

    AppModel& m_model;
    std::vector<LargeFile> m_files;
    std::vector<bool> m_inTrash; ///< beside the files, as it was told last
};

} // namespace zolva
