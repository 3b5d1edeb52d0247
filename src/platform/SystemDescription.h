// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace trackwise {

/// The operating system, as its maker names it, and what kind of device it runs on.
struct SystemDescription
{
    QString name;
    QString version;
    bool isTablet = false; ///< held in the hand, larger than a phone

    friend bool operator==(const SystemDescription &, const SystemDescription &) = default;
};

} // namespace trackwise
