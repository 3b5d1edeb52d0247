// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/NetworkHttpClient.h"

#include "device/integration/HttpExchange.h"

#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QNetworkDiskCache>

namespace trackwise {

namespace {

constexpr qint64 largestCache = qint64(2) << 20; // some hundreds of a catalog's replies

class NoCookies : public QNetworkCookieJar
{
public:
    using QNetworkCookieJar::QNetworkCookieJar;

    [[nodiscard]] QList<QNetworkCookie> cookiesForUrl(const QUrl &) const override { return {}; }
    bool setCookiesFromUrl(const QList<QNetworkCookie> &, const QUrl &) override { return false; }
};

bool isThisDevice(const QString &host)
{
    return host == QLatin1StringView("localhost") || QHostAddress(host).isLoopback();
}

bool isAllowed(const QUrl &address)
{
    return address.scheme() == QLatin1StringView("https") ||
           (address.scheme() == QLatin1StringView("http") && isThisDevice(address.host()));
}

} // namespace

NetworkHttpClient::NetworkHttpClient(QString cacheFolder, const QSslConfiguration &tls, QObject *parent)
    : QObject(parent)
    , m_cacheFolder(std::move(cacheFolder))
    , m_tls(tls)
{}

NetworkHttpClient::~NetworkHttpClient() = default;

QNetworkAccessManager &NetworkHttpClient::network()
{
    if (!m_network) {
        m_network = std::make_unique<QNetworkAccessManager>();
        m_network->setCookieJar(new NoCookies(m_network.get()));
        if (!m_cacheFolder.isEmpty()) {
            auto *cache = new QNetworkDiskCache(m_network.get());
            cache->setCacheDirectory(m_cacheFolder);
            cache->setMaximumCacheSize(largestCache);
            m_network->setCache(cache);
        }
    }
    return *m_network;
}

void NetworkHttpClient::get(const QUrl &address, std::chrono::milliseconds timeout, QObject *receiver,
                            Handler handler)
{
    if (!isAllowed(address)) {
        QMetaObject::invokeMethod(
            receiver,
            [handler = std::move(handler), scheme = address.scheme()] {
                handler(Failure{FailureKind::Unsupported, QStringLiteral("no request over ") + scheme});
            },
            Qt::QueuedConnection);
        return;
    }
    QNetworkRequest request(address);
    request.setSslConfiguration(m_tls);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Trackwise"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    QNetworkReply *reply = network().get(request);
    new HttpExchange(reply, timeout, receiver, std::move(handler));
}

} // namespace trackwise
