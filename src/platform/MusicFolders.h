// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <vector>

namespace trackwise {

/// A folder whose music makes up the library.
struct MusicFolder
{
    QString path;            ///< absolute; for people and for remove()
    bool isDesktops = false; ///< the desktop's own music folder, which always belongs to the library
    bool isReadable = true;  ///< false: absent, or kept from us by its permissions

    friend bool operator==(const MusicFolder &, const MusicFolder &) = default;
};

/// The music folders of this device, as the user chooses them. Main thread.
class MusicFolders : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual std::vector<MusicFolder> folders() const = 0;
    /// A folder that is listed already, and one that cannot be a music folder, changes nothing.
    virtual void add(const QString &path) = 0;
    virtual void remove(const QString &path) = 0;

Q_SIGNALS:
    void foldersDidChange();
};

} // namespace trackwise
