// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogConfiguration.h"

#include <QSettings>

namespace trackwise {

namespace {

QString configured(const char *variable, const QSettings &file, QLatin1StringView key, const QString &usual)
{
    const QString inEnvironment = qEnvironmentVariable(variable);
    if (!inEnvironment.isEmpty())
        return inEnvironment;
    const QString inFile = file.value(key).toString();
    return inFile.isEmpty() ? usual : inFile;
}

} // namespace

CatalogConfiguration catalogConfiguration(const QSettings &file)
{
    CatalogConfiguration configuration;
    configuration.baseAddress = configured("TRACKWISE_CATALOG_ADDRESS", file,
                                           QLatin1StringView("Catalog/Address"), configuration.baseAddress);
    while (configuration.baseAddress.endsWith(u'/'))
        configuration.baseAddress.chop(1);
    configuration.hostMarker = configured("TRACKWISE_CATALOG_HOST_MARKER", file,
                                          QLatin1StringView("Catalog/HostMarker"), configuration.hostMarker);
    return configuration;
}

} // namespace trackwise
