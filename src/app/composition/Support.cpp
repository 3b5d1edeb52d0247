// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/composition/Support.h"

#include "device/Device.h"
#include "device/integration/OperatingSystem.h"

namespace trackwise {

SupportServices supportServices(Device &device)
{
    return {.deployment = {.supportAddress = QStringLiteral(TRACKWISE_SUPPORT_ADDRESS),
                           .storeHost = QStringLiteral(TRACKWISE_STORE_HOST),
                           .appStoreIdentifier = QStringLiteral(TRACKWISE_APP_STORE_ID),
                           .developerStoreIdentifier = QStringLiteral(TRACKWISE_DEVELOPER_STORE_ID),
                           .developerName = QStringLiteral(TRACKWISE_DEVELOPER_NAME),
                           .webSite = QStringLiteral(TRACKWISE_WEB_SITE)},
            .mail = &device.mail(),
            .conditions = &device.conditions(),
            .describeSystem = [] { return describeThisSystem(); }};
}

} // namespace trackwise
