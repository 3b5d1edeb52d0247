// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AddressOpener.h"

#include <vector>

namespace trackwise {

/// Keeps what would have been opened, and refuses addresses of one scheme.
class AddressOpenerDouble : public AddressOpener
{
public:
    using AddressOpener::open;
    void open(const QUrl &address, std::function<void()> whenRefused) override
    {
        opened.push_back(address);
        if (whenRefused && address.scheme() == refused)
            whenRefused();
    }

    std::vector<QUrl> opened;
    QString refused; ///< a scheme
};

} // namespace trackwise
