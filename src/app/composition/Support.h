// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detail/SupportServices.h"

namespace trackwise {

class Device;

/// What about, help and feedback need, of this device and as this build was configured.
[[nodiscard]] SupportServices supportServices(Device &device);

} // namespace trackwise
