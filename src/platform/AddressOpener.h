// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

#include <functional>

namespace trackwise {

/// Opens addresses outside the app. Main thread; never blocks.
class AddressOpener
{
public:
    virtual ~AddressOpener() = default;

    /// Web and mail addresses go to the user's own programs; "music://" to the player that plays, else to
    /// the default music application. Reports nothing.
    void open(const QUrl &address) { open(address, {}); }
    /// @p whenRefused is called later, on the main thread, where no program takes addresses of this kind.
    /// It may never be called, but not twice.
    virtual void open(const QUrl &address, std::function<void()> whenRefused) = 0;
};

} // namespace trackwise
