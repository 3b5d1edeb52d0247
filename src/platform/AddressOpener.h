// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

namespace trackwise {

/// Opens addresses outside the app. Main thread; never blocks, reports nothing.
class AddressOpener
{
public:
    virtual ~AddressOpener() = default;

    /// Web and mail addresses go to the user's own programs; "music://" to the player that plays, else to
    /// the default music application.
    virtual void open(const QUrl &address) = 0;
};

} // namespace trackwise
