// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DeviceSettings.h"

class QSettings;

namespace trackwise {

/// The device settings in a settings file. A value in the file that makes no sense counts as not set.
class StoredDeviceSettings : public DeviceSettings
{
    Q_OBJECT

public:
    /// @p file must outlive this object.
    explicit StoredDeviceSettings(QSettings &file, QObject *parent = nullptr);

    [[nodiscard]] AppearanceChoices appearance() const override;
    void setAppearance(const AppearanceChoices &choices) override;
    [[nodiscard]] AccessChoice microphoneAccess() const override;
    void setMicrophoneAccess(AccessChoice choice) override;
    [[nodiscard]] SoundInputChoice soundInput() const override;
    void setSoundInput(const SoundInputChoice &choice) override;
    [[nodiscard]] QStringList ignoredPlayers() const override;
    void setIgnoredPlayers(const QStringList &names) override;

private:
    QSettings &m_file;
};

} // namespace trackwise
