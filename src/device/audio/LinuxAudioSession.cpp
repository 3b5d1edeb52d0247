// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/LinuxAudioSession.h"

#include "platform/DeviceSettings.h"

#include <utility>

namespace trackwise {

LinuxAudioSession::LinuxAudioSession(DeviceSettings &settings)
    : m_settings(settings)
{}

void LinuxAudioSession::requestRecordPermission(PermissionHandler handler)
{
    const AccessChoice known = m_settings.microphoneAccess();
    if (known != AccessChoice::NotDetermined || !m_question) {
        handler(known == AccessChoice::Allowed);
        return;
    }
    m_waiting.push_back(std::move(handler));
    if (m_waiting.size() == 1)
        m_question([this](std::optional<bool> isAllowed) { answer(isAllowed); });
}

void LinuxAudioSession::answer(std::optional<bool> isAllowed)
{
    if (isAllowed)
        m_settings.setMicrophoneAccess(*isAllowed ? AccessChoice::Allowed : AccessChoice::Denied);
    const bool isGranted = m_settings.microphoneAccess() == AccessChoice::Allowed;
    for (const PermissionHandler &handler : std::exchange(m_waiting, {}))
        handler(isGranted);
}

} // namespace trackwise
