#include "core/ErrorPipe.h"

#include <QPointer>
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace zolva {

namespace {

/// More than any pipe holds, so that a call finds the end of what was written before it; and not so
/// much that one who writes without end keeps the event loop waiting.
constexpr qsizetype mostAtOnce = 1'048'576;

void closeOnce(int& descriptor)
{
    if (descriptor >= 0) {
        ::close(std::exchange(descriptor, -1));
    }
}

} // namespace

ErrorPipe::ErrorPipe(QObject* parent) : QObject(parent) {}

ErrorPipe::~ErrorPipe()
{
    closeReading();
    closeOnce(m_write);
}

std::function<void()> ErrorPipe::open()
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return [] {};
    }
    m_read = ends[0];
    m_write = ends[1];
    // The child's copy of the write end is made without this flag.
    ::fcntl(m_read, F_SETFD, FD_CLOEXEC);
    ::fcntl(m_write, F_SETFD, FD_CLOEXEC);
    ::fcntl(m_read, F_SETFL, O_NONBLOCK);
    m_notifier = std::make_unique<QSocketNotifier>(m_read, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ErrorPipe::readRest);
    return [end = m_write] { ::dup2(end, STDERR_FILENO); };
}

void ErrorPipe::started()
{
    closeOnce(m_write);
}

void ErrorPipe::readRest()
{
    QByteArray bytes;
    std::array<char, 16384> buffer{};
    while (m_read >= 0 && bytes.size() < mostAtOnce) {
        const ssize_t got = ::read(m_read, buffer.data(), buffer.size());
        if (got > 0) {
            bytes.append(buffer.data(), got);
        } else if (got < 0 && errno == EAGAIN) {
            break;
        } else if (got == 0 || errno != EINTR) {
            closeReading();
        }
    }
    if (!bytes.isEmpty()) {
        Q_EMIT wrote(bytes);
    }
}

void ErrorPipe::closeReading()
{
    if (m_notifier) {
        // This may run within its signal.
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    closeOnce(m_read);
}

} // namespace zolva
