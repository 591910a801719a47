#pragma once

#include "core/AppModel.h"
#include "removal/runs/QuitGuard.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// The end of the program: at once, or by the alert that a run is going. Main thread; model and
/// clock outlive it.
class QuitModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(bool isAsking READ isAsking NOTIFY isAskingChanged)
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(QString detail READ detail CONSTANT)
    Q_PROPERTY(QString keepGoingTitle READ keepGoingTitle CONSTANT)
    Q_PROPERTY(QString stopAndQuitTitle READ stopAndQuitTitle CONSTANT)

public:
    QuitModel(AppModel& model, Clock& clock, QObject* parent = nullptr);

    [[nodiscard]] bool isAsking() const { return m_isAsking; }
    /// It was told to stop and quit, and waits for the end of the run.
    [[nodiscard]] bool isLeaving() const { return m_isLeaving; }
    [[nodiscard]] QString message() const;
    [[nodiscard]] QString detail() const;
    [[nodiscard]] QString keepGoingTitle() const;
    [[nodiscard]] QString stopAndQuitTitle() const;

    /// Somebody wants to quit: `quit` follows at once, or the alert is up. Nothing more happens
    /// where the end is only waiting for the run.
    Q_INVOKABLE void ask();
    Q_INVOKABLE void keepGoing();
    Q_INVOKABLE void stopAndQuit(); ///< `quit` follows when the run has ended

Q_SIGNALS:
    void isAskingChanged();
    void quit();

private:
    void setAsking(bool asking);

    QuitGuard m_guard;
    bool m_isAsking = false;
    bool m_isLeaving = false;
};

} // namespace zolva
