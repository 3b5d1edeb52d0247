// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <functional>

class QObject;

namespace trackwise {

/// Fetches small documents from the web, without cookies. Main thread.
class HttpClient
{
public:
    using Handler = std::function<void(Result<QByteArray>)>;

    virtual ~HttpClient() = default;

    /// Hands the reply's body to @p handler, whatever the reply's status code; a failure means that no
    /// complete body arrived within @p timeout. Called once, on the main thread, never before get() has
    /// returned. When @p receiver goes the request is given up and nobody is called.
    virtual void get(const QUrl &address, std::chrono::milliseconds timeout, QObject *receiver,
                     Handler handler) = 0;
};

} // namespace trackwise
