// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/audio/Microphone.h"
#include "device/recognizer/ClipRecognition.h"
#include "fingerprint/CatalogStore.h"
#include "platform/RecognitionSession.h"

#include <functional>
#include <memory>

namespace trackwise {

/// Finds out which song is heard by comparing it with the songs of this device, and with the catalogs that
/// were added. What was heard is kept until the answer only, in memory. Its signals come from its own thread,
/// which has an event loop, and none of an attempt that was stopped.
class LibraryRecognition final : public RecognitionSession
{
    Q_OBJECT

public:
    /// What there is to compare with at the moment; without songs as long as there are none.
    using CatalogSource = std::function<Result<std::shared_ptr<const fingerprint::Catalog>>()>;

    struct Sources
    {
        CatalogSource catalog;              ///< each attempt asks, on a thread of its own
        fingerprint::SongNaming naming;     ///< of what was found there; on that thread too
        std::function<InputChoice()> input; ///< what the user wants to be listened to
    };

    explicit LibraryRecognition(Sources sources);
    ~LibraryRecognition() override;

    /// The failure of a sound server that takes its time comes with didNotFind().
    [[nodiscard]] std::optional<Failure> start() override;
    void stop() override;
    [[nodiscard]] bool isRunning() const override;

Q_SIGNALS:
    /// Comes before didFind(), or didNotFind() without an error, with what they leave out.
    void didDecide(const trackwise::ClipAnswer &answer);
    /// It heard something, and then the microphone went; there is no answer. @p why is for the user.
    void didBreakOff(const QString &why);

private:
    class Attempt;
    [[nodiscard]] static QString explained(const Failure &failure);

    Sources m_sources;
    std::unique_ptr<Attempt> m_attempt;
    Microphone m_microphone; ///< is gone before what it taps into
};

} // namespace trackwise
