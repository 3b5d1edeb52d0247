// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <variant>

namespace trackwise {

/// Why no song could be taken out of dropped links.
enum class LinkProblem {
    NotACatalogLink, ///< none of them leads to the catalog
    NoSongInLink,    ///< the first that does names no song
};

/// A link to a song of the catalog: the song's identifier as it stands in the link. Characters that mean
/// something in an address are still percent-encoded, so that it can be put into another one.
struct CatalogLink
{
    QString identifier;

    friend bool operator==(const CatalogLink &, const CatalogLink &) = default;
};

/// Takes the first of @p addresses that contains @p hostMarker, wherever it does, and reads the first query
/// item named "i" in it; the other addresses and the link's path are not looked at. An item without a value
/// or with an empty one names no song.
[[nodiscard]] std::variant<CatalogLink, LinkProblem> catalogLink(const QStringList &addresses,
                                                                 const QString &hostMarker);

} // namespace trackwise
