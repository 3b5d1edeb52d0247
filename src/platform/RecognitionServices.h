// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioSession.h"
#include "platform/NotificationHaptics.h"
#include "platform/RecognitionSession.h"

#include <functional>
#include <memory>

namespace trackwise {

/// All that music recognition asks of the device. Every window has a session of its own.
struct RecognitionServices
{
    AudioSession &audioSession;
    std::function<std::unique_ptr<RecognitionSession>()> makeSession;
    std::function<std::unique_ptr<NotificationHaptics>()> makeHaptics;
    std::function<bool()> isScreenReaderRunning;
    std::function<void()> noteMiss; ///< nothing sounded like what was heard, and the user has been told
};

} // namespace trackwise
