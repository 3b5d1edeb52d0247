// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"
#include "platform/SoundLevel.h"
#include "song/PersistentID.h"

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace trackwise {

/// A song that sounds like what was heard, as far as it is known.
struct MatchedMediaItem
{
    std::optional<QString> catalogID;
    std::optional<QString> title;
    std::optional<QString> artist;
    std::optional<PersistentID> librarySong; ///< where the device knows its own song by the sound

    friend bool operator==(const MatchedMediaItem &, const MatchedMediaItem &) = default;
};

/// Listens through the microphone and tells which song is heard. Started and stopped as often as wanted. Main
/// thread, but for the signals.
class RecognitionSession : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Begins to listen. The failure is Busy where there is no input to listen to, for another program has
    /// it; of any other kind, the detail tells the user why, in the user's language.
    [[nodiscard]] virtual std::optional<Failure> start() = 0;
    virtual void stop() = 0;
    /// False once it was stopped, by us or by what happens to the microphone.
    [[nodiscard]] virtual bool isRunning() const = 0;

Q_SIGNALS:
    /// What comes in while it is looked up. Sent on any thread.
    void didHear(const trackwise::SoundLevel &level);
    // One of them for each piece of sound that was looked up. Sent on any thread.
    void didFind(const std::vector<trackwise::MatchedMediaItem> &items);
    /// @p error is for the user, in the user's language; without one, nothing sounds like it.
    void didNotFind(const std::optional<QString> &error);
};

} // namespace trackwise
