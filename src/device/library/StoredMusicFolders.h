// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MusicFolders.h"

class QSettings;

namespace trackwise {

/// The music folders of the library's configuration in the device settings.
class StoredMusicFolders final : public MusicFolders
{
    Q_OBJECT

public:
    /// @p deviceSettings must outlive this object.
    explicit StoredMusicFolders(QSettings &deviceSettings, QObject *parent = nullptr);

    [[nodiscard]] std::vector<MusicFolder> folders() const override;
    void add(const QString &path) override;
    void remove(const QString &path) override;

private:
    void store(const std::vector<MusicFolder> &folders);

    QSettings &m_deviceSettings;
};

} // namespace trackwise
