// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>

class QWindow;

namespace trackwise {

/// How large the window was that was closed last, and where it stood, for those that are opened next. Where
/// a window stands is up to the desktop under Wayland. Main thread.
class WindowPlacements
{
public:
    /// @p file is made when there is something to write.
    explicit WindowPlacements(const QString &file)
        : m_file(file, QSettings::IniFormat)
    {}

    /// To be called before the window is shown. Only a window that is alone stands where the last one stood;
    /// none stands where no screen shows enough of it, or is larger than its screen.
    void restore(QWindow &window, bool isAlone) const;
    void remember(const QWindow &window);

private:
    QSettings m_file;
};

} // namespace trackwise
