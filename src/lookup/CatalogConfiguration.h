// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QSettings;

namespace trackwise {

/// Where the public song catalog is.
struct CatalogConfiguration
{
    /// An HTTPS address without a slash at its end; the service behind it answers "/lookup".
    QString baseAddress = QStringLiteral("https://itunes.apple.com");
    /// What the address of every song link of the catalog contains.
    QString hostMarker = QStringLiteral("music.apple");

    friend bool operator==(const CatalogConfiguration &, const CatalogConfiguration &) = default;
};

/// The configuration in the environment (TRACKWISE_CATALOG_ADDRESS, TRACKWISE_CATALOG_HOST_MARKER), else that
/// in the settings file (Catalog/Address, Catalog/HostMarker), else the usual one.
[[nodiscard]] CatalogConfiguration catalogConfiguration(const QSettings &file);

} // namespace trackwise
