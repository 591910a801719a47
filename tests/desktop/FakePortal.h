#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QString>
#include <QThread>
#include <QVariant>

#include <map>
#include <mutex>

namespace zolva::test {

/// A portal of settings that answers what the test wants, from a thread of its own as the portal
/// does from a process of its own.
class FakePortal final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// What lies under the key stands wrapped as the portal wraps it.
    explicit FakePortal(QDBusConnection bus);
    ~FakePortal() override;

    void set(const QString& key, const QVariant& value);
    /// It reads what it is asked and says nothing.
    void setSilent(bool silent);
    [[nodiscard]] int reads() const;
    /// Takes its name, or gives it back.
    void appear();
    void vanish();
    void tellChange(const QString& space, const QString& key, const QVariant& value);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

private:
    mutable std::mutex m_mutex;
    std::map<QString, QVariant> m_values;
    bool m_silent = false;
    int m_reads = 0;
    QDBusConnection m_bus;
    QThread m_thread;
};

} // namespace zolva::test
