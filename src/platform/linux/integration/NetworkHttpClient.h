// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpClient.h"

#include <QObject>
#include <QSslConfiguration>

#include <memory>

class QNetworkAccessManager;

namespace trackwise {

/// HTTPS with Qt Network: certificates are verified, redirects are followed to HTTPS only, and a reply of
/// more than 1 MiB is broken off. Plain HTTP is spoken with this device itself only.
class NetworkHttpClient : public QObject, public HttpClient
{
    Q_OBJECT

public:
    explicit NetworkHttpClient(QSslConfiguration tls = QSslConfiguration::defaultConfiguration(),
                               QObject *parent = nullptr);
    ~NetworkHttpClient() override;

    void get(const QUrl &address, std::chrono::milliseconds timeout, QObject *receiver,
             Handler handler) override;

private:
    [[nodiscard]] QNetworkAccessManager &network();

    QSslConfiguration m_tls;
    std::unique_ptr<QNetworkAccessManager> m_network; // made for the first request: it starts a thread
};

} // namespace trackwise
