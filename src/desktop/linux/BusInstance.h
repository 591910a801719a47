#pragma once

#include "desktop/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QStringList>
#include <QVariantMap>

namespace zolva {

/// By the program's name on the session bus, where the desktop finds it too. A bus that will not
/// give the name keeps nothing apart.
class BusInstance final : public SingleInstance
{
    Q_OBJECT

public:
    explicit BusInstance(const QDBusConnection& bus, QObject* parent = nullptr);
    ~BusInstance() override;

    [[nodiscard]] Standing claim(const QString& token) override;

private:
    [[nodiscard]] bool tellFirst(const QString& token) const;

    QDBusConnection m_bus;
};

/// What the desktop and a second start call.
class ApplicationDoor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationDoor(BusInstance* instance);

public Q_SLOTS:
    // Called by these names. There is nothing to open and no action: each shows the window.
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    BusInstance* m_instance;
};

} // namespace zolva
