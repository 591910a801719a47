#pragma once

#include "core/AppModel.h"

#include "screens/model/StatusTileRows.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// The Status screen's words, figures and series, and its warning. What does not differ is not told
/// again. Main thread; the model outlives it.
class StatusModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(Page page READ page NOTIFY pageChanged)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)
    Q_PROPERTY(zolva::StatusTileRows* tiles READ tiles CONSTANT)
    Q_PROPERTY(QList<qreal> cpuSeries READ cpuSeries NOTIFY seriesChanged)
    Q_PROPERTY(QList<qreal> memSeries READ memSeries NOTIFY seriesChanged)
    Q_PROPERTY(QString chartSpoken READ chartSpoken NOTIFY seriesChanged)
    Q_PROPERTY(QString footer READ footer NOTIFY footerChanged)

public:
    enum Page
    {
        Failed,
        Waiting, ///< for the first reading
        Live
    };
    Q_ENUM(Page)

    explicit StatusModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] Page page() const { return m_page; }
    [[nodiscard]] QString error() const;
    [[nodiscard]] StatusTileRows* tiles() { return &m_tiles; }
    [[nodiscard]] QList<qreal> cpuSeries() const; ///< percent, oldest first
    [[nodiscard]] QList<qreal> memSeries() const;
    [[nodiscard]] QString chartSpoken() const;
    [[nodiscard]] QString footer() const { return m_footer; }

    /// The screen comes on display, or goes. While it is, the readings come in, and the warning of
    /// a processor that stays busy is given as soon as that becomes so.
    void appear();
    void leave();

    Q_INVOKABLE void retry(); ///< after an error

Q_SIGNALS:
    void pageChanged();
    void errorChanged();
    void seriesChanged();
    void footerChanged();

private:
    void followPage();
    void takeSample();
    void takeSpace();
    void watchCpu();
    [[nodiscard]] bool isSustained() const;

    AppModel& m_model;
    StatusTileRows m_tiles;
    Page m_page = Waiting;
    QString m_footer;
    int m_displays = 0; ///< how many show it
    bool m_wasSustained = false;
};

} // namespace zolva
