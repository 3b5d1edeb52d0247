// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace trackwise {

/// What came of something, to be felt.
enum class HapticNotification { Success, Warning, Error };

/// Lets the device be felt, where it can. Main thread; never blocks, reports nothing.
class NotificationHaptics
{
public:
    virtual ~NotificationHaptics() = default;

    /// A notification may come soon, and shall not be late. Called several times a second meanwhile.
    virtual void prepare() = 0;
    virtual void notify(HapticNotification notification) = 0;
};

} // namespace trackwise
