#include "desktop/LocalInstance.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QLocalSocket>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <utility>

namespace zolva {

namespace {

constexpr int patience = 5000; // milliseconds
constexpr qint64 longestLine = 4096;
const auto activate = QByteArrayLiteral("activate ");
const auto answer = QByteArrayLiteral("here\n");

} // namespace

LocalInstance::LocalInstance(std::string folder, QObject* parent)
    : SingleInstance(parent), m_folder(std::move(folder))
{
    connect(&m_server, &QLocalServer::newConnection, this, &LocalInstance::receive);
}

SingleInstance::Standing LocalInstance::claim(const QString& token)
{
    if (m_folder.empty()) {
        return Standing::First;
    }
    const std::string lock = m_folder + "/zolva.lock";
    m_lock = FileDescriptor(::open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!m_lock.isOpen()) {
        return Standing::First;
    }
    if (::flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0) {
        listen();
        return Standing::First;
    }
    const bool taken = errno == EWOULDBLOCK;
    static_cast<void>(m_lock.close());
    if (!taken) {
        return Standing::First;
    }
    return tellFirst(token) ? Standing::FirstTold : Standing::FirstSilent;
}

void LocalInstance::listen()
{
    // Who holds the lock owns the name too: a socket that stands there was left behind.
    QLocalServer::removeServer(socketPath());
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(socketPath());
}

void LocalInstance::receive()
{
    while (QLocalSocket* const socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const auto take = [this, socket] {
            if (!socket->canReadLine()) {
                if (socket->bytesAvailable() > longestLine) {
                    socket->abort();
                }
                return;
            }
            const QByteArray line = socket->readLine().chopped(1);
            if (line.startsWith(activate)) {
                socket->write(answer);
                Q_EMIT asked(QString::fromUtf8(line.mid(activate.size())));
            }
            socket->disconnectFromServer();
        };
        connect(socket, &QLocalSocket::readyRead, this, take);
        take();
    }
}

// The process ends after this, and has nothing else to do meanwhile: it may wait.
bool LocalInstance::tellFirst(const QString& token) const
{
    const QDeadlineTimer end(patience);
    const auto left = [&end] { return static_cast<int>(end.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(socketPath());
    while (!socket.waitForConnected(left())) {
        if (end.hasExpired()) {
            return false;
        }
        QThread::msleep(20); // between its lock and its socket
        socket.connectToServer(socketPath());
    }
    QByteArray line = token.toUtf8();
    line.replace('\n', ' ');
    socket.write(activate + line + '\n');
    while (!socket.canReadLine() && socket.waitForReadyRead(left())) {
    }
    return socket.readLine() == answer;
}

QString LocalInstance::socketPath() const
{
    return QFile::decodeName(QByteArray::fromStdString(m_folder)) + QStringLiteral("/zolva.socket");
}

std::string sessionFolder()
{
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    struct stat status
    {};
    // Where others can write, anybody could hold the place.
    const bool ours = folder != nullptr && *folder == '/' && ::stat(folder, &status) == 0 &&
                      S_ISDIR(status.st_mode) && status.st_uid == ::getuid() &&
                      (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    return ours ? folder : "";
}

} // namespace zolva
