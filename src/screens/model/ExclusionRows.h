#pragma once

#include "core/Exclusions.h"

#include <QAbstractListModel>
#include <QQmlEngine>

#include <cstddef>
#include <string>
#include <vector>

namespace zolva {

/// The list "Never touch these" as rows, in its order. Main thread; the list outlives it.
class ExclusionRows final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the SettingsModel")

public:
    enum Role
    {
        PathRole = Qt::UserRole + 1, ///< "path"
    };

    explicit ExclusionRows(Exclusions& exclusions, QObject* parent = nullptr);

    /// Takes the entry of a row, and what equals it, out of the list.
    void remove(int row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void follow();
    /// Takes the rows out that the list no longer has at their place.
    void dropGone(const std::vector<std::string>& now);
    void addNew(const std::vector<std::string>& now);

    Exclusions& m_exclusions;
    std::vector<std::string> m_shown;
};

} // namespace zolva
