// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <memory>
#include <utility>

/// A web server on this device that answers as a test tells it to.
class WebServer : public QObject
{
public:
    /// Is given the path with the query, and writes the whole answer.
    using Answer = std::function<void(QTcpSocket &, const QByteArray &path)>;

    /// With a private key in @p tls it speaks HTTPS.
    explicit WebServer(Answer answer, const QSslConfiguration &tls = {})
        : m_answer(std::move(answer))
        , m_isTls(!tls.privateKey().isNull())
        , m_server(m_isTls ? std::make_unique<QSslServer>() : std::make_unique<QTcpServer>())
    {
        if (auto *server = qobject_cast<QSslServer *>(m_server.get()))
            server->setSslConfiguration(tls);
        connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
            while (QTcpSocket *socket = m_server->nextPendingConnection())
                serve(socket);
        });
        m_server->listen(QHostAddress::LocalHost);
    }

    [[nodiscard]] QUrl address(const QString &path) const
    {
        const QString scheme = m_isTls ? QStringLiteral("https") : QStringLiteral("http");
        return QUrl(QStringLiteral("%1://127.0.0.1:%2%3").arg(scheme).arg(m_server->serverPort()).arg(path));
    }
    [[nodiscard]] const QList<QByteArray> &requests() const { return m_requests; }

    static void reply(QTcpSocket &socket, const QByteArray &statusAndHeaders, const QByteArray &body)
    {
        socket.write("HTTP/1.1 " + statusAndHeaders +
                     "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
    }

private:
    void serve(QTcpSocket *socket)
    {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, head = QByteArray()]() mutable {
            head += socket->readAll();
            if (!head.endsWith("\r\n\r\n"))
                return;
            m_requests << head;
            m_answer(*socket, std::exchange(head, {}).split(' ').value(1));
        });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }

    Answer m_answer;
    bool m_isTls;
    std::unique_ptr<QTcpServer> m_server;
    QList<QByteArray> m_requests;
};

/// A certificate for the address of this device that nobody has signed, made for this run with its private
/// key.
[[nodiscard]] inline QSslConfiguration selfSigned(const QString &folder)
{
    QProcess openssl;
    openssl.setWorkingDirectory(folder);
    openssl.start(QStringLiteral("openssl"),
                  QStringLiteral("req -x509 -nodes -newkey ec -pkeyopt ec_paramgen_curve:prime256v1"
                                 " -keyout key.pem -out certificate.pem -days 2 -subj /CN=127.0.0.1"
                                 " -addext subjectAltName=IP:127.0.0.1")
                      .split(u' '));
    openssl.waitForFinished();
    QFile keyFile(folder + QStringLiteral("/key.pem"));
    QSslConfiguration tls;
    if (keyFile.open(QIODevice::ReadOnly))
        tls.setPrivateKey(QSslKey(&keyFile, QSsl::Ec));
    tls.setLocalCertificateChain(QSslCertificate::fromPath(folder + QStringLiteral("/certificate.pem")));
    return tls;
}
