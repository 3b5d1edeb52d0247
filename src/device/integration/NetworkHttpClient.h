// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpClient.h"

#include <QObject>
#include <QSslConfiguration>

#include <memory>

class QNetworkAccessManager;

namespace trackwise {

/// HTTPS with Qt Network: certificates are verified, redirects are followed to HTTPS only, and a reply of
/// more than 1 MiB is broken off. Plain HTTP is spoken with this device itself only. Replies are kept, as
/// long as they say that they may be, in a small cache on the disk. The system's proxies are used, as Qt does
/// by itself.
class NetworkHttpClient : public QObject, public HttpClient
{
    Q_OBJECT

public:
    /// Without a @p cacheFolder nothing is kept; it may be emptied at any time.
    explicit NetworkHttpClient(QString cacheFolder = {},
                               const QSslConfiguration &tls = QSslConfiguration::defaultConfiguration(),
                               QObject *parent = nullptr);
    ~NetworkHttpClient() override;

    void get(const QUrl &address, std::chrono::milliseconds timeout, QObject *receiver,
             Handler handler) override;

private:
    [[nodiscard]] QNetworkAccessManager &network();

    QString m_cacheFolder;
    QSslConfiguration m_tls;
    std::unique_ptr<QNetworkAccessManager> m_network; // made for the first request: it starts a thread
};

} // namespace trackwise
