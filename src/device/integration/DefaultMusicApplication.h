// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QObject;

namespace trackwise {

/// Starts the program that the desktop opens music with: the handler of "music:" addresses if there is one,
/// else that of MP3 files. Returns at once; when nothing can be started nothing happens but a log line.
/// Main thread; @p receiver cancels what has not been started yet when it goes.
void startDefaultMusicApplication(QObject *receiver);

} // namespace trackwise
