#pragma once

#include <QByteArray>
#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zolva {

/// The standard error of one child, in a pipe of its own: a failure to read it is then known to be
/// none of the child's output. What cannot be read, or has no pipe, is left out. Main thread.
class ErrorPipe final : public QObject
{
    Q_OBJECT

public:
    explicit ErrorPipe(QObject* parent = nullptr);
    ~ErrorPipe() override;

    /// Before the child is started: what it runs to make this its standard error
    /// (async-signal-safe calls only).
    [[nodiscard]] std::function<void()> open();
    /// Once it is started, or could not be: only children write now.
    void started();
    /// Reads what is there, as at the child's end, and tells it.
    void readRest();

Q_SIGNALS:
    void wrote(const QByteArray& bytes);

private:
    void closeReading();

    int m_read = -1;
    int m_write = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace zolva
