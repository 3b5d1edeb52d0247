// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RecognitionServices.h"

#include <QStringList>

#include <optional>

namespace trackwise {

/// A microphone, a recogniser and a motor that do what the test says, and keep a list of what they were told.
struct RecognitionDoubles : AudioSession
{
    QStringList calls;
    bool isGranted = true;
    bool isScreenReaderRunning = false;
    std::optional<Failure> startFailure;
    bool isRunning = false;
    RecognitionSession *session = nullptr; ///< the latest

    void requestRecordPermission(PermissionHandler handler) override { handler(isGranted); }
    void setCategory(AudioSessionCategory category) override
    {
        calls << (category == AudioSessionCategory::Record ? QStringLiteral("record")
                                                           : QStringLiteral("playback"));
    }
    void activate() override { calls << QStringLiteral("activate"); }

    /// Knows whose it is.
    template <typename Base>
    struct Owned : Base
    {
        RecognitionDoubles &all;

        explicit Owned(RecognitionDoubles &doubles)
            : all(doubles)
        {}
    };
    struct Session : Owned<RecognitionSession>
    {
        using Owned::Owned;
        [[nodiscard]] std::optional<Failure> start() override
        {
            all.calls << QStringLiteral("start");
            all.isRunning = !all.startFailure;
            return all.startFailure;
        }
        void stop() override
        {
            all.calls << QStringLiteral("stop");
            all.isRunning = false;
        }
        [[nodiscard]] bool isRunning() const override { return all.isRunning; }
    };
    struct Haptics : Owned<NotificationHaptics>
    {
        using Owned::Owned;
        void prepare() override { all.calls << QStringLiteral("prepare"); }
        void notify(HapticNotification notification) override
        {
            all.calls << QStringLiteral("haptic %1").arg(static_cast<int>(notification));
        }
    };

    RecognitionServices services{*this,
                                 [this] {
                                     auto made = std::make_unique<Session>(*this);
                                     session = made.get();
                                     return made;
                                 },
                                 [this] { return std::make_unique<Haptics>(*this); },
                                 [this] { return isScreenReaderRunning; },
                                 [this] { calls << QStringLiteral("miss"); }};
};

} // namespace trackwise
