#pragma once

#include "support/TempTree.h"

#include <QByteArray>
#include <QSslConfiguration>
#include <QSslServer>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <map>

class QSslSocket;

namespace zolva::test {

/// An authority made for this process, that nobody else trusts, and a certificate of it for
/// 127.0.0.1. Throws std::runtime_error where the program `openssl` cannot make them.
class TestAuthority
{
public:
    TestAuthority();

    /// For a server.
    [[nodiscard]] const QSslConfiguration& identity() const { return m_identity; }
    /// For a client: it trusts this authority and no other.
    [[nodiscard]] const QSslConfiguration& trust() const { return m_trust; }

private:
    TempTree m_tree;
    QSslConfiguration m_identity;
    QSslConfiguration m_trust;
};

/// A web server over TLS on 127.0.0.1, on the event loop of its thread.
class FeedServer
{
public:
    FeedServer();

    [[nodiscard]] static const TestAuthority& authority();
    [[nodiscard]] QUrl url(const QString& path) const;

    void document(const QString& path, const QByteArray& body, const QByteArray& status = "200 OK");
    void redirect(const QString& path, const QUrl& to);
    /// Half of the body that it promises, then the connection is closed.
    void cutShort(const QString& path);
    /// A body without end.
    void endless(const QString& path);
    /// Takes the request, and says nothing.
    void silence(const QString& path);

    QStringList requested;   ///< paths, in order
    QList<QByteArray> heads; ///< and the whole heads of the requests
    int connections = 0;     ///< that passed the handshake
    qint64 sent = 0;         ///< bytes of bodies without end

private:
    void greet();
    void serve(QSslSocket& socket);

    QSslServer m_server;
    std::map<QString, std::function<void(QSslSocket&)>> m_answers;
};

} // namespace zolva::test
