#pragma once

#include "core/AppModel.h"

#include "screens/model/CleanRows.h"
#include "screens/model/SortMenu.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <cstdint>

namespace zolva {

/// The Clean screen's words and deeds. Main thread; the model outlives it.
class CleanModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(Page page READ page NOTIFY pageChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(zolva::CleanRows* rows READ rows CONSTANT)
    Q_PROPERTY(zolva::SortMenu* sort READ sort CONSTANT)
    Q_PROPERTY(QString selectedSize READ selectedSize NOTIFY changed)
    Q_PROPERTY(QString selectedCount READ selectedCount NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QString selectWord READ selectWord NOTIFY changed)
    Q_PROPERTY(QString note READ note NOTIFY changed)
    Q_PROPERTY(QString buttonTitle READ buttonTitle NOTIFY changed)
    Q_PROPERTY(bool canClean READ canClean NOTIFY changed)

public:
    enum Page
    {
        Welcome,
        Scanning,
        List
    };
    Q_ENUM(Page)

    explicit CleanModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] Page page() const;
    /// A scan that failed is offered again.
    [[nodiscard]] static Page pageOf(LoadState clean);
    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] CleanRows* rows() { return &m_rows; }
    [[nodiscard]] SortMenu* sort() { return &m_sort; }
    [[nodiscard]] QString selectedSize() const;
    [[nodiscard]] QString selectedCount() const; ///< "X of Y categories selected"
    [[nodiscard]] bool isEmpty() const;          ///< loaded, and no category
    [[nodiscard]] QString selectWord() const;    ///< "Select all" or "Deselect all"
    [[nodiscard]] QString note() const;
    [[nodiscard]] QString buttonTitle() const;
    [[nodiscard]] bool canClean() const;

    Q_INVOKABLE void scan(); ///< from the welcome page
    Q_INVOKABLE void rescan();
    Q_INVOKABLE void pick(const QString& id, bool shift);
    Q_INVOKABLE void toggleOpen(const QString& id);
    Q_INVOKABLE void toggleAll();
    Q_INVOKABLE void clean(); ///< asks first

Q_SIGNALS:
    void pageChanged();
    void changed();

private:
    void recount();
    void refreshNote();
    void refreshTicks();

    AppModel& m_model;
    CleanRows m_rows;
    SortMenu m_sort;
    // Added up once per change.
    QString m_note;
    std::int64_t m_selectedBytes = 0;
    std::int64_t m_selectedCategories = 0;
};

} // namespace zolva
