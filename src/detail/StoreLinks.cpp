// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/StoreLinks.h"

#include "detail/Deployment.h"
#include "platform/AddressOpener.h"

namespace trackwise {

QUrl reviewAddress(const Deployment &deployment, StoreScheme scheme)
{
    const QString start =
        scheme == StoreScheme::Program ? QStringLiteral("itms-apps://") : QStringLiteral("https://");
    return QUrl(start + deployment.storeHost + QStringLiteral("/app/id") + deployment.appStoreIdentifier +
                    QStringLiteral("?mt=8&action=write-review"),
                QUrl::StrictMode);
}

QUrl moreAppsAddress(const Deployment &deployment)
{
    return QUrl(QStringLiteral("https://") + deployment.storeHost + QStringLiteral("/developer/id") +
                    deployment.developerStoreIdentifier,
                QUrl::StrictMode);
}

QUrl privacyAddress(const Deployment &deployment)
{
    return QUrl(deployment.webSite + QStringLiteral("/Trackwise/privacy.html"), QUrl::StrictMode);
}

void openReviewPage(const Deployment &deployment, AddressOpener &addresses)
{
    const QUrl onTheWeb = reviewAddress(deployment, StoreScheme::Web);
    const QUrl inTheProgram = reviewAddress(deployment, StoreScheme::Program);
    Q_ASSERT_X(onTheWeb.isValid(), "openReviewPage", "the deployment names no store");
    if (inTheProgram.isValid())
        addresses.open(inTheProgram, [&addresses, onTheWeb] { addresses.open(onTheWeb); });
    else
        addresses.open(onTheWeb);
}

} // namespace trackwise
