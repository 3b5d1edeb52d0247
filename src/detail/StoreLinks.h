// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

namespace trackwise {

class AddressOpener;
struct Deployment;

/// The page on which a review of the program is written: of the store's own scheme, which its program takes,
/// or of the web.
enum class StoreScheme { Program, Web };
[[nodiscard]] QUrl reviewAddress(const Deployment &deployment, StoreScheme scheme);
/// The developer's programs in the store.
[[nodiscard]] QUrl moreAppsAddress(const Deployment &deployment);
[[nodiscard]] QUrl privacyAddress(const Deployment &deployment);

/// Opens the review page in the store's program; where the address is none, or nothing takes such addresses,
/// in the browser.
void openReviewPage(const Deployment &deployment, AddressOpener &addresses);

} // namespace trackwise
