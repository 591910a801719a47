#pragma once

#include "core/AppModel.h"

#include "screens/model/MenuCommands.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <array>
#include <cstdint>

namespace zolva {

/// The item in the menu bar and the panel behind it: the disk, what can be reclaimed as rows, also
/// where that is nothing, and the commands. Main thread; the model outlives it.
class MenuPanelModel final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(QString volumeName READ volumeName NOTIFY diskChanged)
    Q_PROPERTY(QString fullText READ fullText NOTIFY diskChanged)
    Q_PROPERTY(QString freeText READ freeText NOTIFY diskChanged)
    Q_PROPERTY(QString ofTotalText READ ofTotalText NOTIFY diskChanged)
    Q_PROPERTY(QString spokenDisk READ spokenDisk NOTIFY diskChanged)
    Q_PROPERTY(bool scanning READ scanning NOTIFY reclaimChanged)
    Q_PROPERTY(QString totalText READ totalText NOTIFY reclaimChanged)
    Q_PROPERTY(QString keptText READ keptText NOTIFY reclaimChanged)
    Q_PROPERTY(zolva::MenuCommands* commands READ commands CONSTANT)

public:
    enum Role
    {
        LabelRole = Qt::UserRole + 1, ///< "label"
        SymbolRole,                   ///< "symbol"
        CountRole,                    ///< "count", or why there is none
        SizeRole,                     ///< "size", as text; empty where it is not known
        SpokenRole,                   ///< "spoken", the whole row
        HintRole,                     ///< "hint"
    };

    explicit MenuPanelModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] const QString& volumeName() const { return m_volumeName; }
    [[nodiscard]] QString fullText() const;
    [[nodiscard]] QString freeText() const;
    [[nodiscard]] QString ofTotalText() const;
    [[nodiscard]] QString spokenDisk() const; ///< the three of them as one

    [[nodiscard]] bool scanning() const; ///< there are no categories yet
    [[nodiscard]] QString totalText() const;
    [[nodiscard]] QString keptText() const; ///< empty where nothing is held back

    /// What stands beside the item's picture; empty where nothing can be reclaimed.
    [[nodiscard]] QString itemLabel() const;
    [[nodiscard]] QString itemToolTip() const; ///< behind the program's name

    [[nodiscard]] MenuCommands* commands() { return &m_commands; }

    Q_INVOKABLE void opened(); ///< the panel: looks at what is not known yet
    Q_INVOKABLE void rescan();
    Q_INVOKABLE void chooseRow(int row);
    Q_INVOKABLE void runCommand(int row);
    void openMain(); ///< on the screen that it shows
    void openMain(const QString& screen);
    void quit();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void diskChanged();
    void reclaimChanged();
    void mainWanted(); ///< the window is to come to the front
    void quitWanted();

private:
    struct Row
    {
        ReclaimRow reclaim;
        bool isUnreadable = false;
    };

    void readVolumeName();
    void recount();
    [[nodiscard]] std::int64_t keptBytes() const;
    [[nodiscard]] QString countOf(const Row& row) const;
    [[nodiscard]] QString sizeOf(const Row& row) const;
    [[nodiscard]] QString spokenOf(const Row& row) const;

    AppModel& m_model;
    MenuCommands m_commands{this};
    QString m_volumeName;
    std::array<Row, 4> m_rows; ///< added up once per change, like the two below
    std::int64_t m_total = 0;
    std::int64_t m_kept = 0;
};

} // namespace zolva
