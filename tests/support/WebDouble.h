// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpClient.h"

#include <QPointer>
#include <QUrl>

#include <vector>

namespace trackwise {

/// A web whose answers the test gives, when it likes; until then every request waits.
class WebDouble : public HttpClient
{
public:
    struct Request
    {
        QUrl address;
        std::chrono::milliseconds timeout;
        QPointer<QObject> receiver;
        Handler handler;
    };
    std::vector<Request> requests;

    void get(const QUrl &address, std::chrono::milliseconds timeout, QObject *receiver,
             Handler handler) override
    {
        requests.push_back({address, timeout, receiver, std::move(handler)});
    }
    void answer(std::size_t index, Result<QByteArray> reply)
    {
        const Request request = requests.at(index);
        if (request.receiver)
            request.handler(std::move(reply));
    }
};

} // namespace trackwise
