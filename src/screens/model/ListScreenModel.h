#pragma once

#include "core/AppModel.h"

#include "screens/model/ListRows.h"
#include "screens/model/SortMenu.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zolva {

/// What the screens have in common that scan, list what they found and remove what is ticked of it:
/// their words and deeds as far as they are alike. Main thread; the model outlives it.
class ListScreenModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(Page page READ page NOTIFY pageChanged)
    Q_PROPERTY(zolva::ListRows* rows READ rows CONSTANT)
    Q_PROPERTY(zolva::SortMenu* sort READ sort CONSTANT)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QString note READ note NOTIFY changed)
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(QString selectWord READ selectWord NOTIFY changed)
    Q_PROPERTY(QString buttonTitle READ buttonTitle NOTIFY changed)
    Q_PROPERTY(bool canRemove READ canRemove NOTIFY changed)

public:
    enum Page
    {
        Welcome,
        Scanning,
        List
    };
    Q_ENUM(Page)

    /// A scan that failed is offered again.
    [[nodiscard]] static Page pageOf(LoadState state);
    [[nodiscard]] Page page() const { return pageOf(state()); }
    [[nodiscard]] ListRows* rows() const { return m_rows.get(); }
    [[nodiscard]] SortMenu* sort() { return &m_sort; }
    [[nodiscard]] virtual QString subtitle() const = 0;
    [[nodiscard]] bool isEmpty() const;              ///< loaded, and no row
    [[nodiscard]] virtual QString note() const = 0;  ///< of the action bar
    [[nodiscard]] virtual QString countText() const; ///< beside the note; empty for none
    [[nodiscard]] QString selectWord() const;        ///< "Select all" or "Deselect all"
    [[nodiscard]] QString buttonTitle() const;
    [[nodiscard]] bool canRemove() const { return m_selectedBytes != 0; }
    /// What the button would remove.
    [[nodiscard]] std::int64_t selectedBytes() const { return m_selectedBytes; }

    Q_INVOKABLE virtual void scan() = 0; ///< from the welcome page
    Q_INVOKABLE virtual void rescan() = 0;
    /// A click on the row of that `rowId`; one that cannot be ticked stays as it is.
    Q_INVOKABLE void pick(const QString& id, bool shift);
    Q_INVOKABLE void toggleAll();
    Q_INVOKABLE void remove(); ///< asks first

Q_SIGNALS:
    void pageChanged();
    void changed();

protected:
    using Keys = AppLists::Keys;

    struct Kind
    {
        const char* screen; ///< whose order it is
        const char* sheet;  ///< asks before it removes
        const char* verb;   ///< of the button
        std::vector<SortKey> orders;
    };

    ListScreenModel(AppModel& model, std::unique_ptr<ListRows> rows, Kind kind, QObject* parent);

    [[nodiscard]] virtual LoadState state() const = 0;
    virtual void pickRow(const std::string& key, const Keys& order, bool shift) = 0;
    virtual void setAll(const Keys& keys, bool ticked) = 0;

    [[nodiscard]] AppModel& model() const { return m_model; }
    /// To be connected to what the state of the scan follows from.
    void followState();

private:
    void recount();

    AppModel& m_model;
    Kind m_kind;
    std::unique_ptr<ListRows> m_rows;
    SortMenu m_sort;
    std::int64_t m_selectedBytes = 0; ///< added up once per change
};

} // namespace zolva
