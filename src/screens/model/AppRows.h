#pragma once

#include "core/AppModel.h"

#include "screens/model/ListRows.h"

#include <QQmlEngine>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace zolva {

/// The installed applications as the Uninstall screen shows them: those that are searched for, in
/// its order. Main thread; the model outlives it.
class AppRows final : public ListRows
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the UninstallModel")

public:
    enum Role
    {
        InFocusRole = FirstOwnRole, ///< "inFocus": its leftovers are on show
    };

    explicit AppRows(AppModel& model, QObject* parent = nullptr);

    /// Of the row with that key; null where none is shown.
    [[nodiscard]] const UninstallApp* appOf(const std::string& key) const;
    /// Of all applications, those that are not shown too.
    [[nodiscard]] std::size_t allTicked() const { return m_allTicked; }
    /// The place of the application whose leftovers are on show; -1 where it is not among the rows.
    [[nodiscard]] Q_INVOKABLE int focusedRow() const;

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// Another application is in focus, or the rows are other ones or in another order.
    void focusCame();

protected:
    [[nodiscard]] Rows build() const override;
    [[nodiscard]] bool isPicked(const std::string& key) const override;
    [[nodiscard]] QVariant read(const ListRow& row, int role) const override;

private:
    struct Listed;
    struct Row;
    using AllListed = std::vector<std::shared_ptr<Listed>>;

    void takeApps();
    void countTicks();
    void tickRows();
    void followFocus();
    void list() const;

    // All of them, ordered once for each list and order: a search leaves that as it is.
    mutable AllListed m_listed;
    mutable SortKey m_listedBy = SortKey::SizeDesc;
    std::size_t m_allTicked = 0;
    std::string m_focus; ///< as it was told last; empty for none
};

} // namespace zolva
