#pragma once

#include "screens/model/ListRows.h"

#include <QQmlEngine>
#include <QString>

#include <string>

namespace zolva {

/// The installers as their screen shows them, in its order. Main thread; the model outlives it.
class InstallerRows final : public ListRows
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the InstallerModel")

public:
    explicit InstallerRows(AppModel& model, QObject* parent = nullptr);

    /// Of the row with that key; null where there is none. Until the rows change.
    [[nodiscard]] const InstallerItem* item(const std::string& key) const;

protected:
    [[nodiscard]] Rows build() const override;
    [[nodiscard]] bool isPicked(const std::string& key) const override;
    [[nodiscard]] QVariant read(const ListRow& row, int role) const override;

private:
    struct Row;
};

} // namespace zolva
