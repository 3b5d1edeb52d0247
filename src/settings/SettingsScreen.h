// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/IndexStatus.h"
#include "settings/InputSettings.h"
#include "settings/SettingsList.h"
#include "settings/SettingsServices.h"

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>

namespace trackwise {

class HostedView;
class Presentation;

/// The screen on which the user decides about this app on this device. Changes count at once. Main thread.
class SettingsScreen : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by controllers")
    Q_PROPERTY(bool isMusicAllowed READ isMusicAllowed NOTIFY changed)
    Q_PROPERTY(bool isMusicRestricted READ isMusicRestricted NOTIFY changed)
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY changed)
    Q_PROPERTY(bool isMicrophoneAllowed READ isMicrophoneAllowed NOTIFY changed)
    Q_PROPERTY(int theme READ theme NOTIFY changed)
    Q_PROPERTY(int motion READ motion NOTIFY changed)
    Q_PROPERTY(bool hasMenuBars READ hasMenuBars NOTIFY changed)
    Q_PROPERTY(bool showsMenuBar READ showsMenuBar NOTIFY changed)
    Q_PROPERTY(bool hasOwnTextSize READ hasOwnTextSize NOTIFY changed)
    Q_PROPERTY(int textSize READ textSize NOTIFY changed)
    Q_PROPERTY(QString textSizeName READ textSizeName NOTIFY changed)
    Q_PROPERTY(trackwise::SettingsList *folders READ folders CONSTANT)
    Q_PROPERTY(trackwise::SettingsList *players READ players CONSTANT)
    Q_PROPERTY(trackwise::IndexStatus *index READ index CONSTANT)
    Q_PROPERTY(trackwise::InputSettings *input READ input CONSTANT)

public:
    /// @p services must outlive the screen. @p dismissAction closes it.
    SettingsScreen(SettingsServices services, std::function<void()> dismissAction);

    [[nodiscard]] bool isMusicAllowed() const;
    /// The system keeps every music folder from us: there is nothing to allow.
    [[nodiscard]] bool isMusicRestricted() const;
    /// The music folders are being read, and somebody has wanted that or it takes a while.
    [[nodiscard]] bool isScanning() const { return m_isScanning; }
    [[nodiscard]] bool isMicrophoneAllowed() const;
    [[nodiscard]] int theme() const;  ///< ThemeChoice
    [[nodiscard]] int motion() const; ///< MotionChoice
    /// Windows have them; else the desktop shows the menus.
    [[nodiscard]] bool hasMenuBars() const;
    [[nodiscard]] bool showsMenuBar() const;
    [[nodiscard]] bool hasOwnTextSize() const;
    [[nodiscard]] int textSize() const; ///< TextSize that is in force, whoever chose it
    [[nodiscard]] QString textSizeName() const;
    [[nodiscard]] SettingsList *folders() { return &m_folders; }
    [[nodiscard]] SettingsList *players() { return &m_players; }
    [[nodiscard]] IndexStatus *index() { return &m_index; }
    [[nodiscard]] InputSettings *input() { return &m_input; }

    Q_INVOKABLE void setMusicAllowed(bool isAllowed);
    Q_INVOKABLE void scanAgain();
    Q_INVOKABLE void setMicrophoneAllowed(bool isAllowed);
    Q_INVOKABLE void setTheme(int choice);
    Q_INVOKABLE void setMotion(int choice);
    Q_INVOKABLE void setShowsMenuBar(bool shows);
    Q_INVOKABLE void setHasOwnTextSize(bool hasOwn);
    Q_INVOKABLE void setTextSize(int size);
    Q_INVOKABLE void addFolder(const QUrl &folder);
    Q_INVOKABLE void removeFolder(int row);
    Q_INVOKABLE void setPlayerIgnored(int row, bool isIgnored);
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void changed();

private:
    void updateScanning();
    void updateFolders();
    void updatePlayers();

    SettingsServices m_services;
    std::function<void()> m_dismissAction;
    bool m_isScanning = false;
    SettingsList m_folders;
    SettingsList m_players;
    IndexStatus m_index;
    InputSettings m_input;
};

/// "~/Music" for a folder in the user's home.
[[nodiscard]] QString folderForPeople(const QString &path);

/// Shows the settings as a sheet, unless something else is presented already.
void presentSettings(const SettingsServices &services, Presentation &presentation);

} // namespace trackwise
