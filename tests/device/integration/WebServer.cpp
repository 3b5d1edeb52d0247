// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/WebServer.h"

#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

WebServer::WebServer(Answer answer, const QSslConfiguration &tls)
    : m_answer(std::move(answer))
{
    if (tls.privateKey().isNull()) {
        m_server = std::make_unique<QTcpServer>();
    } else {
        auto server = std::make_unique<QSslServer>();
        server->setSslConfiguration(tls);
        m_server = std::move(server);
    }
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (QTcpSocket *socket = m_server->nextPendingConnection())
            serve(socket);
    });
    m_server->listen(QHostAddress::LocalHost);
}

WebServer::~WebServer() = default;

QUrl WebServer::address(const QString &path) const
{
    const bool isTls = qobject_cast<QSslServer *>(m_server.get());
    return QUrl(
        u"%1://127.0.0.1:%2%3"_s.arg(isTls ? u"https"_s : u"http"_s).arg(m_server->serverPort()).arg(path));
}

void WebServer::serve(QTcpSocket *socket)
{
    const auto takeRequest = [this, socket, head = QByteArray()]() mutable {
        head += socket->readAll();
        if (!head.endsWith("\r\n\r\n"))
            return;
        m_requests << head;
        m_answer(*socket, head.split(' ').value(1));
        head.clear();
    };
    connect(socket, &QTcpSocket::readyRead, this, takeRequest);
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

void WebServer::reply(QTcpSocket &socket, const QByteArray &statusAndHeaders, const QByteArray &body)
{
    socket.write("HTTP/1.1 " + statusAndHeaders + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                 "\r\n\r\n" + body);
}

QSslConfiguration selfSigned(const QString &folder)
{
    const QString key = folder + u"/key.pem"_s;
    const QString certificate = folder + u"/certificate.pem"_s;
    QProcess::execute(u"openssl"_s, {u"req"_s, u"-x509"_s, u"-nodes"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
                                     u"ec_paramgen_curve:prime256v1"_s, u"-keyout"_s, key, u"-out"_s,
                                     certificate, u"-days"_s, u"2"_s, u"-subj"_s, u"/CN=127.0.0.1"_s,
                                     u"-addext"_s, u"subjectAltName=IP:127.0.0.1"_s});
    QFile keyFile(key);
    QSslConfiguration tls;
    if (keyFile.open(QIODevice::ReadOnly))
        tls.setPrivateKey(QSslKey(&keyFile, QSsl::Ec));
    tls.setLocalCertificateChain(QSslCertificate::fromPath(certificate));
    return tls;
}
