// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detail/Deployment.h"
#include "platform/SystemDescription.h"

#include <functional>

namespace trackwise {

class DeviceConditions;
class MailComposer;

/// What the about and help screens, their links and the feedback mail need; one for all windows. Each may be
/// missing.
struct SupportServices
{
    Deployment deployment;
    MailComposer *mail = nullptr;
    const DeviceConditions *conditions = nullptr;
    std::function<SystemDescription()> describeSystem;
};

} // namespace trackwise
