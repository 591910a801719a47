#pragma once

#include "screens/model/ListRows.h"

#include <QQmlEngine>
#include <QString>

#include <string>

namespace zolva {

/// The build folders as the Purge screen shows them, in its order. Main thread; the model outlives
/// it.
class PurgeRows final : public ListRows
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the PurgeModel")

public:
    enum OwnRole
    {
        SpokenNameRole = FirstOwnRole, ///< "spokenName"
        RecentRole,                    ///< "recent": touched in the last week
    };

    /// In days; what is younger is recent.
    static constexpr std::int64_t recentAge = 7;

    explicit PurgeRows(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

protected:
    [[nodiscard]] Rows build() const override;
    [[nodiscard]] bool isPicked(const std::string& key) const override;
    [[nodiscard]] QVariant read(const ListRow& row, int role) const override;

private:
    struct Row;

    [[nodiscard]] static bool isRecent(const Project& project);
    [[nodiscard]] static QString desc(const Project& project);
};

} // namespace zolva
