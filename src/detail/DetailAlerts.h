// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Alert.h"

#include <functional>
#include <memory>

namespace trackwise {

/// A message for the user, and which of the two ways out of the trouble it offers.
struct AlertMessage
{
    QString title;
    QString message;
    bool includesOpenMusic = false;
    bool includesOpenSettings = false;

    friend bool operator==(const AlertMessage &, const AlertMessage &) = default;
};

/// Where the two ways lead. An empty closure means that the device has no such place.
struct AlertDestinations
{
    std::function<void()> openMusic;
    std::function<void()> openSettings;
};

/// The alert for @p message: "OK" alone, or the ways out, the last of them preferred, and "Cancel".
[[nodiscard]] std::unique_ptr<Alert> makeAlert(const AlertMessage &message,
                                               const AlertDestinations &destinations);

// The messages that several sources share.
[[nodiscard]] AlertMessage songNotAddedToLibrary();
[[nodiscard]] AlertMessage libraryAccessDenied();
[[nodiscard]] AlertMessage libraryAccessRestricted();
[[nodiscard]] AlertMessage noSongPlaying();
[[nodiscard]] AlertMessage microphoneAccessDenied();

} // namespace trackwise
