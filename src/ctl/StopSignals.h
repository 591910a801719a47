#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <optional>

namespace zolva::ctl {

/// Takes the signals that ask the program to end (Ctrl-C, a request to terminate, the terminal's
/// end) as long as it lives, so that it can end in good order. At most one at a time. Main thread,
/// with an application. Throws std::system_error if the system will not have it.
class StopSignals final : public QObject
{
    Q_OBJECT

public:
    StopSignals();
    ~StopSignals() override;

    /// Readable from the first request on; for who waits for something else than events.
    [[nodiscard]] int descriptor() const { return m_ends[0]; }
    /// Whether there was a request, also one that no event loop has told of yet.
    [[nodiscard]] bool wasAsked() const;

Q_SIGNALS:
    /// Once.
    void asked();

private:
    void take(int signal, std::size_t place);

    std::array<int, 2> m_ends{-1, -1};
    std::optional<QSocketNotifier> m_notifier;
    std::array<struct sigaction, 3> m_before{};
};

} // namespace zolva::ctl
