#pragma once

#include "core/AppModel.h"

#include "screens/model/AppDetail.h"
#include "screens/model/AppRows.h"
#include "screens/model/SortMenu.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// The Uninstall screen's words and deeds. Main thread; the model outlives it.
class UninstallModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(Page page READ page NOTIFY pageChanged)
    Q_PROPERTY(QString failure READ failure NOTIFY pageChanged)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(zolva::AppRows* rows READ rows CONSTANT)
    Q_PROPERTY(zolva::AppDetail* detail READ detail CONSTANT)
    Q_PROPERTY(zolva::SortMenu* sort READ sort CONSTANT)
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(QString tickedText READ tickedText NOTIFY changed)
    Q_PROPERTY(QString selectWord READ selectWord NOTIFY changed)
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)
    Q_PROPERTY(QString buttonTitle READ buttonTitle NOTIFY changed)
    Q_PROPERTY(bool canUninstall READ canUninstall NOTIFY changed)

public:
    enum Page
    {
        Welcome,
        Scanning,
        Failed,
        List
    };
    Q_ENUM(Page)

    explicit UninstallModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] Page page() const;
    [[nodiscard]] QString failure() const; ///< why there is no list; empty where it did not fail
    [[nodiscard]] QString query() const;
    void setQuery(const QString& text);
    [[nodiscard]] AppRows* rows() { return &m_rows; }
    [[nodiscard]] AppDetail* detail() { return &m_detail; }
    [[nodiscard]] SortMenu* sort() { return &m_sort; }
    [[nodiscard]] QString countText() const;  ///< "N applications", of the rows shown
    [[nodiscard]] QString tickedText() const; ///< "X selected", shown or not; empty for none
    [[nodiscard]] QString selectWord() const; ///< "Select all" or "Deselect all"
    [[nodiscard]] QString note() const;
    [[nodiscard]] QString buttonTitle() const;
    [[nodiscard]] bool canUninstall() const;

    Q_INVOKABLE void scan(); ///< from the welcome page
    Q_INVOKABLE void rescan();
    Q_INVOKABLE void show(const QString& id); ///< an application of a row, with its leftovers
    Q_INVOKABLE void pick(const QString& id, bool shift);
    Q_INVOKABLE void toggleAll(); ///< the rows shown
    Q_INVOKABLE void uninstall(); ///< asks first

Q_SIGNALS:
    void pageChanged();
    void queryChanged();
    void changed();
    void noteChanged();

private:
    AppModel& m_model;
    AppRows m_rows;
    AppDetail m_detail;
    SortMenu m_sort;
};

} // namespace zolva
