#pragma once

#include "core/AppModel.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// Which places cannot be looked into, and the words about it. Main thread; the model outlives it.
class AccessModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(bool introShown READ introShown NOTIFY introShownChanged)
    Q_PROPERTY(QString introText READ introText NOTIFY changed)
    Q_PROPERTY(QString introSpoken READ introSpoken NOTIFY changed)
    Q_PROPERTY(bool noticeShown READ noticeShown NOTIFY changed)
    Q_PROPERTY(QString noticeTitle READ noticeTitle NOTIFY changed)
    Q_PROPERTY(QString noticeSpoken READ noticeSpoken NOTIFY changed)

public:
    explicit AccessModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool introShown() const;
    [[nodiscard]] QString introText() const;
    [[nodiscard]] QString introSpoken() const;
    [[nodiscard]] bool noticeShown() const;
    [[nodiscard]] QString noticeTitle() const;
    [[nodiscard]] QString noticeSpoken() const;

    Q_INVOKABLE void dismissIntro(bool openSettings);
    Q_INVOKABLE void openSettings();

Q_SIGNALS:
    void introShownChanged();
    void changed();

private:
    AppModel& m_model;
};

} // namespace zolva
