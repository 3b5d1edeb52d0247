// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace trackwise {

/// Where those who ship the program are found. Set when the build is configured, see cmake/Deployment.cmake.
struct Deployment
{
    QString supportAddress;           ///< that feedback is mailed to
    QString storeHost;                ///< web host of the store that the program is in
    QString appStoreIdentifier;       ///< the program there
    QString developerStoreIdentifier; ///< its developer there
    QString developerName;            ///< shown as it is
    QString webSite;                  ///< the developer's, without a path: "https://example.org"
};

} // namespace trackwise
