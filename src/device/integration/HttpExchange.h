// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpClient.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace trackwise {

/// One request on its way: gives the body when it is complete, and breaks off what takes too long, is too
/// large or leads elsewhere. Belongs to the receiver of the answer, and deletes itself after having given it.
class HttpExchange : public QObject
{
    Q_OBJECT

public:
    HttpExchange(QNetworkReply *reply, std::chrono::milliseconds timeout, QObject *receiver,
                 HttpClient::Handler handler);
    ~HttpExchange() override;

private:
    void limitSize();
    void followRedirect(const QUrl &address);
    void finish();
    void end(Result<QByteArray> answer);

    QPointer<QNetworkReply> m_reply; // belongs to the network object, which may go first
    HttpClient::Handler m_handler;
    QTimer m_deadline;
};

} // namespace trackwise
