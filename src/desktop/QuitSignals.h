#pragma once

#include "platform/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <optional>

namespace zolva {

/// Takes the signals that ask the program to end, as long as it lives, so that it is asked like any
/// other wish to quit; each time anew. At most one at a time. Main thread, with an application.
/// Throws std::system_error if the system will not have it.
class QuitSignals final : public QObject
{
    Q_OBJECT

public:
    explicit QuitSignals(QObject* parent = nullptr);
    ~QuitSignals() override;

Q_SIGNALS:
    /// Signals that come together are one wish.
    void asked();

private:
    void take(int signal, std::size_t place);
    void drain() const;

    FileDescriptor m_reader;
    FileDescriptor m_writer;
    std::optional<QSocketNotifier> m_notifier;
    std::array<struct sigaction, 3> m_before{};
};

} // namespace zolva
