#pragma once

#include "async/Unawaited.h"
#include "core/WholeModel.h"
#include "files/PathText.h"

#include "support/qt/EventLoop.h"

#include <QAbstractItemModel>
#include <QAbstractItemModelTester>
#include <QObject>
#include <QString>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

/// What a list of rows has told, one text for each signal: "reset", "moved", "3", "3-5", "gone 3",
/// "new 3-5". It is under the model tester all the while.
class ToldRows
{
public:
    explicit ToldRows(QAbstractItemModel* rows)
        : m_tester(rows, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        QObject::connect(rows, &QAbstractItemModel::modelReset, &m_context,
                         [this] { told.emplace_back("reset"); });
        QObject::connect(rows, &QAbstractItemModel::layoutChanged, &m_context,
                         [this] { told.emplace_back("moved"); });
        QObject::connect(
            rows, &QAbstractItemModel::dataChanged, &m_context,
            [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& which) {
                told.push_back(piece(first.row(), last.row()));
                roles = which;
            });
        QObject::connect(rows, &QAbstractItemModel::rowsRemoved, &m_context,
                         [this](const QModelIndex&, int first, int last) {
                             told.push_back("gone " + piece(first, last));
                         });
        QObject::connect(rows, &QAbstractItemModel::rowsInserted, &m_context,
                         [this](const QModelIndex&, int first, int last) {
                             told.push_back("new " + piece(first, last));
                         });
    }

    std::vector<std::string> told;
    QList<int> roles; ///< of the last change

private:
    static std::string piece(int first, int last)
    {
        const std::string from = std::to_string(first);
        return first == last ? from : from + "-" + std::to_string(last);
    }

    QObject m_context;
    QAbstractItemModelTester m_tester;
};

/// The whole model with the scans that screens show.
class ScreenBench : public WholeModel
{
protected:
    static std::vector<CatPath> paths(std::size_t count, std::int64_t bytes = 1000)
    {
        std::vector<CatPath> all;
        for (std::size_t number = 1; number <= count; ++number) {
            all.push_back(path("/c/" + std::to_string(number), bytes));
        }
        return all;
    }

    void scanned(AppModel& m, std::vector<Category> found)
    {
        unawaited(m.scanClean(true));
        held.clean.answer(held.clean.count() - 1, std::move(found));
    }
    void purged(AppModel& m, std::vector<Project> found)
    {
        unawaited(m.scanPurge(true));
        held.purge.answer(held.purge.count() - 1, std::move(found));
    }
    void installed(AppModel& m, std::vector<InstallerItem> found)
    {
        m.scanInstallers();
        installers.answer(installers.count() - 1, std::move(found));
    }
    static AnalyzeEntry entry(const std::string& where, std::int64_t bytes, bool isDir = true)
    {
        return {lastComponent(where), where, bytes, isDir, std::nullopt};
    }
    static LargeFile file(const std::string& where, std::int64_t bytes)
    {
        return {lastComponent(where), where, bytes};
    }
    /// The newest analysis that was asked for ends.
    void found(AnalyzeResult result)
    {
        held.analyze.answer(held.analyze.count() - 1, Analysis{std::move(result)});
    }
    void analyzed(AppModel& m, AnalyzeResult result)
    {
        unawaited(m.live().analyze(result.path));
        found(std::move(result));
    }
    static UninstallApp appOf(const std::string& name, std::int64_t bytes)
    {
        UninstallApp one = app(name);
        one.bundleBytes = bytes;
        return one;
    }
    void listed(AppModel& m, const std::vector<UninstallApp>& found)
    {
        m.live().forgetApps();
        unawaited(m.live().loadApps());
        script.lists.answer(script.lists.count() - 1, AppList(found));
        held.enrich.answer(held.enrich.count() - 1, found);
    }
    /// What the application in focus has left behind.
    void leftBehind(std::vector<ResidueRow> found) const
    {
        held.residue.answer(held.residue.count() - 1, std::move(found));
    }
    void blind(AppModel& m, const std::vector<std::string>& labels)
    {
        m.scanInstallers();
        probes.answer(probes.count() - 1, blocked(labels));
    }
    void trashed(AppModel& m, int count, std::int64_t bytes)
    {
        for (int item = 0; item < count; ++item) {
            disk->putInTrash("item" + std::to_string(item), 0);
        }
        disk->setMeasure([bytes](const std::atomic<bool>&) { return bytes; });
        m.removal().trash().refreshTrashMeter();
        pumpUntil([&m] { return !m.removal().trash().isMeasuring(); });
    }
    static void exclude(AppModel& m, const std::string& where)
    {
        m.exclusions().setWlDraft(where);
        m.exclusions().addExclusion();
    }

    static QVariant at(const QAbstractItemModel& rows, int row, int role)
    {
        return rows.data(rows.index(row, 0), role);
    }
    static std::string textAt(const QAbstractItemModel& rows, int row, int role)
    {
        return at(rows, row, role).toString().toStdString();
    }
    static bool flagAt(const QAbstractItemModel& rows, int row, int role)
    {
        return at(rows, row, role).toBool();
    }
    static std::vector<std::string> column(const QAbstractItemModel& rows, int role)
    {
        std::vector<std::string> all;
        for (int row = 0; row < rows.rowCount(); ++row) {
            all.push_back(textAt(rows, row, role));
        }
        return all;
    }
};

} // namespace zolva::test
