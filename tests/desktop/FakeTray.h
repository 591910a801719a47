#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace zolva::test {

/// The desktop's side of the tray: a watcher that items register with, and who draws them.
class FakeTray final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    explicit FakeTray(QDBusConnection bus);
    ~FakeTray() override;

    /// The watcher takes its name, or gives it back; then it has forgotten all items.
    void appear();
    void vanish();
    /// Somebody draws the items from now on, or nobody does; the watcher tells of it.
    void setHost(bool has);
    void setRefusing(bool refuses) { m_refuses = refuses; }
    [[nodiscard]] const QStringList& items() const { return m_items; }

    /// What an item answers; an error's name where that is the answer. Runs the event loop.
    [[nodiscard]] QVariant property(const QString& interface, const QString& path,
                                    const QString& name) const;
    [[nodiscard]] QDBusMessage call(const QString& interface, const QString& path,
                                    const QString& method, const QVariantList& arguments) const;

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

private:
    QDBusConnection m_bus;
    QStringList m_items;
    bool m_hasHost = true;
    bool m_refuses = false;
};

/// Counts one signal of any object under that path.
class HeardSignals final : public QObject
{
    Q_OBJECT

public:
    HeardSignals(QDBusConnection bus, const QString& path, const QString& interface,
                 const QString& signal);

    [[nodiscard]] int count() const { return m_count; }

private Q_SLOTS:
    void hear() { ++m_count; }

private:
    int m_count = 0;
};

} // namespace zolva::test
