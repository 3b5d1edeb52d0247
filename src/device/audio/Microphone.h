// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/audio/SoundInput.h"
#include "platform/Result.h"
#include "platform/SoundLevel.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace trackwise {

/// A piece of what is heard.
struct HeardSound
{
    std::span<const float> samples;   ///< one channel, full scale ±1; valid during the call
    int rateHz = 0;                   ///< the input's own; may change from one piece to the next
    std::chrono::microseconds time{}; ///< when the first sample was heard, after the first of all
};

/// How loud a piece of @p samples is.
[[nodiscard]] SoundLevel levelOf(std::span<const float> samples, int rateHz);

/// Listens to an input of the sound server, beside whoever else does, for as long as it can: goes along when
/// the default input changes, when the input in use goes and there is another one, and when the server starts
/// anew.
class Microphone
{
public:
    static constexpr std::size_t samplesOfPiece = 2048;

    /// Is called for each piece, on a thread of the microphone's own, which has no time to wait for anything.
    using Tap = std::function<void(const HeardSound &)>;
    /// NotFound: there is no input, or none any more. Unavailable: no sound server. Busy: the input gives no
    /// sound, as when another program has it for itself. Called once at most, on that thread; nothing is
    /// heard after it.
    using DidFail = std::function<void(const Failure &)>;

    /// @p patience: how long nothing may be heard, not even silence, before it has failed.
    explicit Microphone(std::chrono::milliseconds patience = std::chrono::seconds(3));
    ~Microphone();

    /// Returns at once. What was begun before is stopped.
    void start(const InputChoice &choice, Tap tap, DidFail didFail);
    /// Why it did not get as far as being connected to an input; waits until that is known, but not for long
    /// where a server does not answer. Once after each start().
    [[nodiscard]] std::optional<Failure> failureToStart();
    /// The tap is not called any more when this returns. Neither it nor start() may be called by the tap.
    void stop();
    /// From start() to stop(), or to a failure.
    [[nodiscard]] bool isRunning() const;
    /// The greatest magnitude in the last piece. Any thread.
    [[nodiscard]] float level() const;
    /// How often sound was lost because the tap took too long. Any thread.
    [[nodiscard]] int overruns() const;

private:
    class Capture;
    std::chrono::milliseconds m_patience;
    std::unique_ptr<Capture> m_capture;
};

} // namespace trackwise
