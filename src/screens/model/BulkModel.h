#pragma once

#include "core/AppModel.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// How the run under way is shown. Main thread; the model outlives it.
class BulkModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(bool present READ present NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString current READ current NOTIFY changed)
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(qreal fraction READ fraction NOTIFY changed)
    Q_PROPERTY(QString spokenValue READ spokenValue NOTIFY changed)

public:
    explicit BulkModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool present() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString current() const;   ///< shortened; empty before the first path
    [[nodiscard]] QString countText() const; ///< "D of T"; empty where there is nothing to count
    [[nodiscard]] qreal fraction() const;    ///< 0 to 1; 1 where there is nothing to count
    [[nodiscard]] QString spokenValue() const;

    Q_INVOKABLE void requestCancel();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] BulkProgress progress() const;

    AppModel& m_model;
};

} // namespace zolva
