// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogLink.h"

#include <QUrl>

#include <algorithm>
#include <optional>

namespace trackwise {

namespace {

// The value of the first query item of this name; absent without such an item or without '=' in it.
std::optional<QString> firstQueryValue(const QUrl &url, QLatin1StringView name)
{
    const QString query = url.query(QUrl::FullyEncoded);
    for (const QStringView item : QStringView(query).split(u'&')) {
        const qsizetype equals = item.indexOf(u'=');
        if ((equals < 0 ? item : item.first(equals)) == name)
            return equals < 0 ? std::nullopt : std::optional(item.sliced(equals + 1).toString());
    }
    return std::nullopt;
}

} // namespace

std::variant<CatalogLink, LinkProblem> catalogLink(const QStringList &addresses, const QString &hostMarker)
{
    const auto link = std::ranges::find_if(
        addresses, [&hostMarker](const QString &address) { return address.contains(hostMarker); });
    if (link == addresses.end())
        return LinkProblem::NotACatalogLink;
    const QUrl url(*link);
    const auto identifier =
        url.isValid() ? firstQueryValue(url, QLatin1StringView("i")) : std::optional<QString>();
    if (!identifier || identifier->isEmpty())
        return LinkProblem::NoSongInLink;
    return CatalogLink{*identifier};
}

} // namespace trackwise
