// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lookup/CatalogConfiguration.h"
#include "lookup/CatalogReply.h"
#include "platform/Result.h"

#include <functional>

class QObject;
class QUrl;

namespace trackwise {

class HttpClient;

/// Asks the public catalog what a song identifier stands for. Main thread.
class CatalogLookup
{
public:
    using Handler = std::function<void(Result<CatalogSong>)>;

    /// @p http must outlive this object.
    CatalogLookup(HttpClient &http, CatalogConfiguration configuration);

    [[nodiscard]] const CatalogConfiguration &configuration() const { return m_configuration; }

    /// Calls @p handler once, later, unless @p receiver has gone by then. The failure is Unavailable when no
    /// reply arrived, Malformed when it described no song.
    void lookUp(const QString &identifier, QObject *receiver, Handler handler) const;

private:
    HttpClient &m_http;
    CatalogConfiguration m_configuration;
};

/// The address that describes the song; @p identifier is put in as it stands.
[[nodiscard]] QUrl catalogLookupAddress(const QString &baseAddress, const QString &identifier);

} // namespace trackwise
