// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/StartOptions.h"
#include "platform/linux/library/LibraryAccess.h"

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

    void run();

private:
    void scanIfAllowed();
    void askForAccess(LibraryAccess::Answer answer);
    void scanDidFinish();
    void showSong();
    void saveScreenshotSoon();
    void offerDemoLibrary();

    AppDelegate &m_app;
    Device &m_device;
    StartOptions m_options;
};

} // namespace trackwise
