// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AddressOpener.h"

#include <vector>

namespace trackwise {

/// Keeps what would have been opened.
class AddressOpenerDouble : public AddressOpener
{
public:
    void open(const QUrl &address) override { opened.push_back(address); }

    std::vector<QUrl> opened;
};

} // namespace trackwise
