// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioSession.h"

#include <optional>
#include <vector>

namespace trackwise {

class DeviceSettings;

/// Whether the app may use the microphone: the user's answer, kept among the device's settings. The sound
/// server mixes and routes by itself, so a category asks for nothing more. Main thread.
class LinuxAudioSession : public AudioSession
{
public:
    /// What the user answers; nothing when the question went away without an answer.
    using Answer = std::function<void(std::optional<bool> isAllowed)>;
    /// Asks the user and hands the answer over, now or later, on the main thread and while the session is
    /// there.
    using Question = std::function<void(Answer answer)>;

    /// @p settings must outlive this object.
    explicit LinuxAudioSession(DeviceSettings &settings);

    /// Who asks the user; without one, nothing is ever allowed that was not before.
    void setQuestion(Question question) { m_question = std::move(question); }

    /// Asks only when nothing has been decided. Requests made while the user thinks share the answer.
    void requestRecordPermission(PermissionHandler handler) override;
    void setCategory(AudioSessionCategory) override {}
    void activate() override {}

private:
    void answer(std::optional<bool> isAllowed);

    DeviceSettings &m_settings;
    Question m_question;
    std::vector<PermissionHandler> m_waiting;
};

} // namespace trackwise
