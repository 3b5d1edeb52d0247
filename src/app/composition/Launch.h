// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/StartOptions.h"
#include "device/audio/LinuxAudioSession.h"
#include "device/library/LibraryAccess.h"
#include "platform/Result.h"
#include "ui/Alert.h"

#include <QObject>

namespace trackwise {

class AppDelegate;
class Device;

/// Tells the terminal.
void say(const QString &text);

/// The first window with what the program was started for: the question whether the library may be read, its
/// scan, the song to show, the picture to save. Main thread.
class Launch : public QObject
{
    Q_OBJECT

public:
    /// @p app and @p device must outlive it.
    Launch(AppDelegate &app, Device &device, StartOptions options);

    /// What the event loop ends with when the library is to be made anew.
    static constexpr int newLibraryWanted = 75;

    void run();
    /// The first window with nothing but the alert that says why the library cannot be opened.
    void runWithoutLibrary(const Failure &why);

private:
    void scanIfAllowed();
    void askForAccess(LibraryAccess::Answer answer);
    void askForMicrophone(const LinuxAudioSession::Answer &answer);
    void scanDidFinish();
    void showSong();
    void saveScreenshotSoon();
    void offerDemoLibrary();
    void presentLibraryAlert(const Failure &why, AlertAction wayOut);

    AppDelegate &m_app;
    Device &m_device;
    StartOptions m_options;
};

} // namespace trackwise
