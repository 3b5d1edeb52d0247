// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <optional>

namespace trackwise {

class DetailViewController;
class LibraryScan;

/// Whether an operand of a start has a scheme, rather than being the path of a file.
[[nodiscard]] bool isAddress(const QString &operand);
/// The operands of a start as addresses: what has a scheme stays as it is, anything else is a file's path
/// from @p currentFolder on.
[[nodiscard]] QStringList addressesOf(const QStringList &operands, const QString &currentFolder);
/// The path of a file on this device, as the bytes that the file system knows; nothing for other addresses.
[[nodiscard]] std::optional<QByteArray> fileOfAddress(const QString &address);

/// Shows what the program was asked to open. Song links are handled as one drop on the window; where there
/// are files only, the first one's song is shown. A file that the library does not know is waited for while
/// a scan runs. Main thread.
class AddressOpening : public QObject
{
    Q_OBJECT

public:
    /// The library's song in that file.
    using SongOfFile = std::function<std::optional<MediaItem>(const QByteArray &path)>;

    /// Must outlive the windows; what it is given must outlive this object.
    AddressOpening(LibraryScan &scan, SongOfFile songOfFile, QObject *parent = nullptr);

    void open(const QStringList &addresses, DetailViewController &detail);

private:
    struct Wanted
    {
        QByteArray file;
        QPointer<DetailViewController> detail;
    };

    void show(const Wanted &wanted);

    LibraryScan &m_scan;
    SongOfFile m_songOfFile;
    std::optional<Wanted> m_wanted; ///< may still come, with the scan that runs
};

} // namespace trackwise
