// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogLookup.h"

#include "platform/HttpClient.h"

#include <QUrl>

namespace trackwise {

namespace {
using namespace std::chrono_literals;
constexpr auto patience = 60s;
} // namespace

CatalogLookup::CatalogLookup(HttpClient &http, CatalogConfiguration configuration)
    : m_http(http)
    , m_configuration(std::move(configuration))
{}

QUrl catalogLookupAddress(const QString &baseAddress, const QString &identifier)
{
    return QUrl(baseAddress + QLatin1StringView("/lookup?id=") + identifier +
                QLatin1StringView("&entity=musicTrack"));
}

void CatalogLookup::lookUp(const QString &identifier, QObject *receiver, Handler handler) const
{
    const QUrl address = catalogLookupAddress(m_configuration.baseAddress, identifier);
    m_http.get(address, patience, receiver, [handler = std::move(handler)](const Result<QByteArray> &reply) {
        if (!reply) {
            handler(Failure{FailureKind::Unavailable, reply.failure().detail});
            return;
        }
        if (const auto song = catalogSongInReply(*reply))
            handler(*song);
        else
            handler(Failure{FailureKind::Malformed, QStringLiteral("the catalog's reply describes no song")});
    });
}

} // namespace trackwise
