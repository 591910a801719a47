#pragma once

#include "core/AppModel.h"

#include "screens/model/AnalyzeRows.h"
#include "screens/model/LargeFileRows.h"
#include "screens/model/SortMenu.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>

#include <string>

namespace zolva {

/// The Analyze screen's words and deeds. Rows and steps go by their place as it is shown. Main
/// thread; the model outlives it.
class AnalyzeModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(Page page READ page NOTIFY pageChanged)
    Q_PROPERTY(QString waitText READ waitText NOTIFY changed)
    Q_PROPERTY(QString failText READ failText NOTIFY changed)
    Q_PROPERTY(QStringList crumbs READ crumbs NOTIFY changed)
    Q_PROPERTY(QString totals READ totals NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(int startRow READ startRow NOTIFY changed)
    Q_PROPERTY(zolva::AnalyzeRows* rows READ rows CONSTANT)
    Q_PROPERTY(zolva::LargeFileRows* largeFiles READ largeFiles CONSTANT)
    Q_PROPERTY(zolva::SortMenu* sort READ sort CONSTANT)

public:
    enum Page
    {
        Welcome,
        Waiting,
        Failed,
        Loaded
    };
    Q_ENUM(Page)

    explicit AnalyzeModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] Page page() const;
    [[nodiscard]] static Page pageOf(LoadState analysis);
    [[nodiscard]] QString waitText() const;
    [[nodiscard]] QString failText() const; ///< empty unless it failed
    /// The way to the place that is shown; the last one is the place itself.
    [[nodiscard]] QStringList crumbs() const;
    [[nodiscard]] QString totals() const;
    [[nodiscard]] bool isEmpty() const; ///< loaded, and no entry
    /// Where the keyboard begins: after a way up the row that it came from.
    [[nodiscard]] int startRow() const { return m_startRow; }
    [[nodiscard]] AnalyzeRows* rows() { return &m_rows; }
    [[nodiscard]] LargeFileRows* largeFiles() { return &m_largeFiles; }
    [[nodiscard]] SortMenu* sort() { return &m_sort; }

    Q_INVOKABLE void scan(); ///< the whole disk
    Q_INVOKABLE void goTo(int crumb);
    Q_INVOKABLE void goUp(); ///< one step; not beyond the whole disk
    Q_INVOKABLE void open(int row);
    Q_INVOKABLE void reveal(int row);
    Q_INVOKABLE void moveFile(int row); ///< of the largest files, to the Trash, at once
    Q_INVOKABLE void revealFile(int row);

Q_SIGNALS:
    void leaving(); ///< for another place
    void pageChanged();
    void changed();

private:
    void analyze(std::string path);
    void findStart();
    void follow();

    AppModel& m_model;
    AnalyzeRows m_rows;
    LargeFileRows m_largeFiles;
    SortMenu m_sort;
    std::string m_cameFrom; ///< the place that was left last
    int m_startRow = 0;
};

} // namespace zolva
