#pragma once

#include "core/AppModel.h"

#include "screens/model/UpdateMessages.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// What is known of updates, in words, and what can be done about it. Main thread; the model
/// outlives it.
class UpdateModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString versionText READ versionText CONSTANT)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(bool hasAction READ hasAction NOTIFY changed)
    Q_PROPERTY(QString actionTitle READ actionTitle NOTIFY changed)
    /// The action is to get what is offered.
    Q_PROPERTY(bool actionIsOffer READ actionIsOffer NOTIFY changed)
    Q_PROPERTY(bool canAct READ canAct NOTIFY changed)
    /// False where the build leaves updates to others: no menu has an entry for them then.
    Q_PROPERTY(bool menuShown READ menuShown CONSTANT)
    Q_PROPERTY(QString menuTitle READ menuTitle CONSTANT)
    Q_PROPERTY(bool canCheck READ canCheck NOTIFY changed)

public:
    explicit UpdateModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString title() const;       ///< "Zolva 0.1.0"
    [[nodiscard]] QString versionText() const; ///< "0.1.0 (1)"
    [[nodiscard]] QString message() const { return m_words.message; }
    [[nodiscard]] bool hasAction() const { return !m_words.action.isEmpty(); }
    [[nodiscard]] QString actionTitle() const { return m_words.action; }
    [[nodiscard]] bool actionIsOffer() const { return m_words.isOffer; }
    [[nodiscard]] bool canAct() const { return m_words.canAct; }
    [[nodiscard]] bool menuShown() const;
    [[nodiscard]] QString menuTitle() const;
    [[nodiscard]] bool canCheck() const;

    Q_INVOKABLE void act(); ///< what `actionTitle` says
    Q_INVOKABLE void check();
    Q_INVOKABLE void open(); ///< what is offered, in the browser

Q_SIGNALS:
    void changed();

private:
    void refresh();

    AppModel& m_model;
    UpdateWords m_words;
};

} // namespace zolva
