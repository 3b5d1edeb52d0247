// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSslConfiguration>
#include <QUrl>

#include <functional>
#include <memory>

class QTcpServer;
class QTcpSocket;

/// A web server on this device that answers as a test tells it to.
class WebServer : public QObject
{
    Q_OBJECT

public:
    /// Is given the path with the query, and writes the whole answer.
    using Answer = std::function<void(QTcpSocket &, const QByteArray &path)>;

    /// With a private key in @p tls it speaks HTTPS.
    explicit WebServer(Answer answer, const QSslConfiguration &tls = {});
    ~WebServer() override;

    [[nodiscard]] QUrl address(const QString &path) const;
    [[nodiscard]] const QList<QByteArray> &requests() const { return m_requests; }

    static void reply(QTcpSocket &socket, const QByteArray &statusAndHeaders, const QByteArray &body);

private:
    void serve(QTcpSocket *socket);

    Answer m_answer;
    std::unique_ptr<QTcpServer> m_server;
    QList<QByteArray> m_requests;
};

/// A certificate for the address of this device that nobody has signed, made for this run with its private
/// key.
[[nodiscard]] QSslConfiguration selfSigned(const QString &folder);
