#pragma once

#include "screens/model/StatusModel.h"

#include <QObject>
#include <QPointer>
#include <QQmlEngine>

namespace zolva {

/// One that shows the Status screen. Main thread.
class StatusWatch : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zolva::StatusModel* status READ status WRITE setStatus NOTIFY statusChanged)
    /// Somebody can see it.
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)

public:
    using QObject::QObject;
    ~StatusWatch() override;

    [[nodiscard]] StatusModel* status() const { return m_status; }
    void setStatus(StatusModel* status);
    [[nodiscard]] bool isActive() const { return m_isActive; }
    void setActive(bool active);

Q_SIGNALS:
    void statusChanged();
    void activeChanged();

private:
    /// Holds the one that is wanted, or none.
    void hold(StatusModel* wanted);

    QPointer<StatusModel> m_status;
    QPointer<StatusModel> m_held;
    bool m_isActive = false;
};

} // namespace zolva
