// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Appearance.h"

#include <QObject>
#include <QStringList>

#include <optional>

namespace trackwise {

enum class ThemeChoice { Automatic, Light, Dark };
enum class MotionChoice { Automatic, Reduced, Full };

/// What the user wants to look different here than everywhere else; automatic values follow the desktop.
struct AppearanceChoices
{
    ThemeChoice theme = ThemeChoice::Automatic;
    std::optional<TextSize> textSize; ///< absent: as the desktop says
    MotionChoice motion = MotionChoice::Automatic;
    bool showsMenuBar = false;

    friend bool operator==(const AppearanceChoices &, const AppearanceChoices &) = default;
};

enum class AccessChoice { NotDetermined, Denied, Allowed };

/// Which input music recognition listens to.
struct SoundInputChoice
{
    QString name;  ///< as InputMonitor::measure() takes it; empty: the default one
    QString title; ///< as it was chosen, for when it is not there

    friend bool operator==(const SoundInputChoice &, const SoundInputChoice &) = default;
};

/// What the user has decided about this app on this device. The device keeps it, in a file of its own, as
/// a phone's settings screen does; it is not among the app's four preferences. Main thread.
class DeviceSettings : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual AppearanceChoices appearance() const = 0;
    virtual void setAppearance(const AppearanceChoices &choices) = 0;

    [[nodiscard]] virtual AccessChoice microphoneAccess() const = 0;
    virtual void setMicrophoneAccess(AccessChoice choice) = 0;

    [[nodiscard]] virtual SoundInputChoice soundInput() const = 0;
    virtual void setSoundInput(const SoundInputChoice &choice) = 0;

    /// Names of players that are never followed, as they stand behind "org.mpris.MediaPlayer2.".
    [[nodiscard]] virtual QStringList ignoredPlayers() const = 0;
    virtual void setIgnoredPlayers(const QStringList &names) = 0;

Q_SIGNALS:
    void appearanceDidChange();
    void microphoneAccessDidChange();
    void soundInputDidChange();
    void ignoredPlayersDidChange();
};

} // namespace trackwise
