#pragma once

#include "support/TempTree.h"

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <string>

namespace zolva::test {

/// A bus of the test's own, where nobody is but whom the test brings, and nothing starts by itself.
/// Throws std::runtime_error if it cannot be had.
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const std::string& address() const { return m_address; }
    /// A new connection, as another process would have it; it ends with the bus.
    [[nodiscard]] QDBusConnection connection();

private:
    TempTree m_tree;
    QProcess m_daemon;
    std::string m_address;
    QStringList m_names;
};

/// A connection that leads nowhere.
[[nodiscard]] QDBusConnection noBus();

} // namespace zolva::test
