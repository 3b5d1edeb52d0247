// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAudioDevice;

namespace trackwise {

/// Whether a sound server listens. To be asked before the first QAudioOutput or list of devices is made:
/// where there is no server at that moment, Qt Multimedia 6.4 never looks again.
[[nodiscard]] bool isSoundServerThere();

/// Whether sound can be sent to @p output now. Where Qt Multimedia has lost the sound server it cannot, and
/// its player would crash trying. The first call, before any player's play(), ties Qt's connection to the
/// calling thread: Qt 6.4 makes it anew three seconds after a loss, once, but only where the thread that
/// connected first still runs its events, and by itself it connects on the thread of the first song. To be
/// called on the main thread; takes a millisecond.
[[nodiscard]] bool canPlayTo(const QAudioDevice &output);

/// Makes Qt Multimedia connect to the sound server anew, three seconds from now: for a server that was away
/// for longer than Qt waits. Does nothing when Qt was never connected. Main thread.
void connectSoundAgain();

} // namespace trackwise
