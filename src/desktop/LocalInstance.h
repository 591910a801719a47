#pragma once

#include "desktop/SingleInstance.h"
#include "platform/FileDescriptor.h"

#include <QLocalServer>

#include <string>

namespace zolva {

/// By a lock and a socket in a folder that is the user's alone. The lock goes with the process,
/// however that ends.
class LocalInstance final : public SingleInstance
{
    Q_OBJECT

public:
    /// Looks at nothing yet.
    explicit LocalInstance(std::string folder, QObject* parent = nullptr);

    [[nodiscard]] Standing claim(const QString& token) override;

private:
    void listen();
    void receive();
    [[nodiscard]] QString socketPath() const;
    [[nodiscard]] bool tellFirst(const QString& token) const;

    std::string m_folder;
    FileDescriptor m_lock;
    QLocalServer m_server;
};

/// The folder of this session for it; empty where there is none.
[[nodiscard]] std::string sessionFolder();

} // namespace zolva
