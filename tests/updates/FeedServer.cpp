#include "updates/FeedServer.h"

#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>

#include <stdexcept>
#include <string>

namespace zolva::test {

namespace {

void openssl(const QString& folder, const QString& arguments)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(QStringLiteral("openssl"), arguments.split(QLatin1Char(' ')));
    if (!process.waitForFinished() || process.exitCode() != 0) {
        throw std::runtime_error("openssl: " + process.readAllStandardError().toStdString());
    }
}

QByteArray contentOf(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace

TestAuthority::TestAuthority()
    : m_identity(QSslConfiguration::defaultConfiguration()),
      m_trust(QSslConfiguration::defaultConfiguration())
{
    const QString folder = QString::fromStdString(m_tree.root());
    const QString make = QStringLiteral("req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 "
                                        "-nodes -days 2 ");
    openssl(folder, make + QStringLiteral("-keyout authority.key -out authority.pem "
                                          "-subj /CN=authority-of-a-test"));
    openssl(folder, make + QStringLiteral("-keyout server.key -out server.pem -CA authority.pem "
                                          "-CAkey authority.key -subj /CN=server-of-a-test "
                                          "-addext subjectAltName=IP:127.0.0.1 "
                                          "-addext basicConstraints=critical,CA:FALSE"));
    m_identity.setLocalCertificate(QSslCertificate(contentOf(m_tree.path("server.pem"))));
    m_identity.setPrivateKey(QSslKey(contentOf(m_tree.path("server.key")), QSsl::Ec));
    m_trust.setCaCertificates({QSslCertificate(contentOf(m_tree.path("authority.pem")))});
}

FeedServer::FeedServer()
{
    m_server.setSslConfiguration(authority().identity());
    if (!m_server.listen(QHostAddress::LocalHost)) {
        throw std::runtime_error("no port on 127.0.0.1");
    }
    QObject::connect(&m_server, &QTcpServer::pendingConnectionAvailable, &m_server,
                     [this] { greet(); });
}

const TestAuthority& FeedServer::authority()
{
    static const TestAuthority made;
    return made;
}

QUrl FeedServer::url(const QString& path) const
{
    return {QStringLiteral("https://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path)};
}

void FeedServer::document(const QString& path, const QByteArray& body, const QByteArray& status)
{
    const QByteArray answer = "HTTP/1.1 " + status +
                              "\r\nContent-Length: " + QByteArray::number(body.size()) +
                              "\r\nConnection: close\r\n\r\n" + body;
    m_answers[path] = [answer](QSslSocket& socket) {
        socket.write(answer);
        socket.disconnectFromHost();
    };
}

void FeedServer::redirect(const QString& path, const QUrl& to)
{
    m_answers[path] = [to](QSslSocket& socket) {
        socket.write("HTTP/1.1 302 Found\r\nLocation: " + to.toEncoded() +
                     "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
        socket.disconnectFromHost();
    };
}

void FeedServer::cutShort(const QString& path)
{
    m_answers[path] = [](QSslSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n" + QByteArray(50, ' '));
        socket.disconnectFromHost();
    };
}

void FeedServer::endless(const QString& path)
{
    m_answers[path] = [this](QSslSocket& socket) {
        constexpr qsizetype piece = 65'536;
        const auto more = [this, &socket] {
            socket.write(QByteArray(piece, ' '));
            sent += piece;
        };
        QObject::connect(&socket, &QSslSocket::encryptedBytesWritten, &socket, [&socket, more] {
            if (socket.bytesToWrite() == 0) {
                more();
            }
        });
        socket.write("HTTP/1.1 200 OK\r\n\r\n");
        more();
    };
}

void FeedServer::silence(const QString& path)
{
    m_answers[path] = [](QSslSocket&) {};
}

void FeedServer::greet()
{
    while (auto* const socket = qobject_cast<QSslSocket*>(m_server.nextPendingConnection())) {
        ++connections;
        QObject::connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QSslSocket::readyRead, socket,
                         [this, socket] { serve(*socket); });
        serve(*socket);
    }
}

void FeedServer::serve(QSslSocket& socket)
{
    const QByteArray head = socket.peek(16'384);
    if (!head.contains("\r\n\r\n")) {
        return;
    }
    socket.readAll();
    const QString path = QString::fromLatin1(head.split(' ').value(1));
    requested.append(path);
    heads.append(head);
    if (const auto answer = m_answers.find(path); answer != m_answers.end()) {
        answer->second(socket);
    } else {
        socket.write("HTTP/1.1 404 Not Found\r\nContent-Length: 27\r\nConnection: close\r\n\r\n"
                     "<html>There is none.</html>");
        socket.disconnectFromHost();
    }
}

} // namespace zolva::test
