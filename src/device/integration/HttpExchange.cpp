// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/HttpExchange.h"

#include <utility>

namespace trackwise {

namespace {

constexpr qint64 largestReply = qint64(1) << 20;

// Whether the server has answered, if only to refuse: then its reply is as good as any other.
bool isAnswered(const QNetworkReply &reply)
{
    // A chain of redirects without end leaves a status below 200 and no error.
    if (reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() < 200)
        return false;
    const QNetworkReply::NetworkError error = reply.error();
    return error == QNetworkReply::NoError || error == QNetworkReply::ProtocolInvalidOperationError ||
           (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError) ||
           (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
}

} // namespace

HttpExchange::HttpExchange(QNetworkReply *reply, std::chrono::milliseconds timeout, QObject *receiver,
                           HttpClient::Handler handler)
    : QObject(receiver)
    , m_reply(reply)
    , m_handler(std::move(handler))
{
    reply->setReadBufferSize(largestReply + 1); // else Qt takes in all it can get before we have looked
    connect(reply, &QNetworkReply::readyRead, this, &HttpExchange::limitSize);
    connect(reply, &QNetworkReply::redirected, this, &HttpExchange::followRedirect);
    connect(reply, &QNetworkReply::finished, this, &HttpExchange::finish);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        end(Failure{FailureKind::Unavailable, QStringLiteral("no complete reply in time")});
    });
    m_deadline.setSingleShot(true);
    m_deadline.start(timeout);
}

HttpExchange::~HttpExchange()
{
    if (!m_reply)
        return;
    m_reply->disconnect(this);
    m_reply->abort();
    m_reply->deleteLater();
}

void HttpExchange::limitSize()
{
    if (m_reply->bytesAvailable() > largestReply)
        end(Failure{FailureKind::Unsupported, QStringLiteral("the reply is larger than 1 MiB")});
}

void HttpExchange::followRedirect(const QUrl &address)
{
    if (address.scheme() == QLatin1StringView("https"))
        Q_EMIT m_reply->redirectAllowed();
    else
        end(Failure{FailureKind::Unsupported, QStringLiteral("redirected to ") + address.scheme()});
}

void HttpExchange::finish()
{
    if (isAnswered(*m_reply))
        end(m_reply->readAll());
    else
        end(Failure{FailureKind::Unavailable, m_reply->errorString()});
}

void HttpExchange::end(Result<QByteArray> answer)
{
    if (!m_handler)
        return;
    deleteLater();
    std::exchange(m_handler, nullptr)(std::move(answer));
}

} // namespace trackwise
