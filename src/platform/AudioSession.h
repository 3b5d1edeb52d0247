// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace trackwise {

/// What the app wants of the device's sound at the moment.
enum class AudioSessionCategory { Playback, Record };

/// The app's share in the sound of the device, and the permission to use the microphone; one for the process.
/// Main thread. What cannot be set is left as it was, and nobody is told.
class AudioSession
{
public:
    using PermissionHandler = std::function<void(bool isGranted)>;

    virtual ~AudioSession() = default;

    /// Asks the user when nothing has been decided yet. @p handler is called once, on any thread.
    virtual void requestRecordPermission(PermissionHandler handler) = 0;

    virtual void setCategory(AudioSessionCategory category) = 0;
    virtual void activate() = 0;
};

} // namespace trackwise
