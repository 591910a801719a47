#pragma once

#include "core/StatusTiles.h"

#include <QAbstractListModel>
#include <QQmlEngine>

namespace zolva {

/// The tiles of the Status screen as rows, always four. Only what differs is told. Main thread.
class StatusTileRows : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the StatusModel")

public:
    enum Role
    {
        LabelRole = Qt::UserRole + 1, ///< "label"
        ValueRole,                    ///< "figure"
        UnitRole,                     ///< "unit"
        SubRole,                      ///< "sub"
        SpokenRole,                   ///< "spoken": what a screen reader says to the label
    };

    using QAbstractListModel::QAbstractListModel;

    void show(const StatusTiles& tiles);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    StatusTiles m_tiles;
};

} // namespace zolva
