// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>
#include <optional>

namespace trackwise {

/// A name for a file that every usual file system takes, made from the song's artist and album; "Artwork"
/// when nothing is left of them. @p suffix comes without its dot.
[[nodiscard]] QString artworkFileName(const QString &artist, const QString &album, const QString &suffix);

/// Files of covers that were dragged out. They lie in a folder of their own in the user's cache and go when
/// this object does: a receiver may read them long after the drop. One for the process; any thread.
class ArtworkFiles
{
public:
    /// @p parentFolder is made when it is not there.
    explicit ArtworkFiles(QString parentFolder);

    /// Writes @p bytes, or finds that this content has been written under this name before. Nothing when
    /// the disk does not take it. Writes a file: worker threads only.
    [[nodiscard]] std::optional<QUrl> store(const QByteArray &bytes, const QByteArray &contentKey,
                                            const QString &fileName);

private:
    [[nodiscard]] QString folder();

    QMutex m_mutex;
    QString m_parentFolder;
    std::unique_ptr<QTemporaryDir> m_folder; ///< made with the first file
};

} // namespace trackwise
