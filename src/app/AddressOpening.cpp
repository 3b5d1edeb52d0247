// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AddressOpening.h"

#include "detail/DetailViewController.h"
#include "platform/LibraryScan.h"
#include "platform/MediaLibrary.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#include <algorithm>
#include <iterator>

namespace trackwise {

bool isAddress(const QString &operand)
{
    return operand.startsWith(QLatin1StringView("file:/")) ||
           (operand.contains(QLatin1StringView("://")) && !QUrl(operand).scheme().isEmpty());
}

QStringList addressesOf(const QStringList &operands, const QString &currentFolder)
{
    QStringList addresses;
    for (const QString &operand : operands) {
        const QString path = QDir::cleanPath(QDir(currentFolder).absoluteFilePath(operand));
        addresses << (isAddress(operand) ? operand : QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
    }
    return addresses;
}

std::optional<QByteArray> fileOfAddress(const QString &address)
{
    const QUrl url(address);
    if (url.scheme() != QLatin1StringView("file") ||
        (!url.host().isEmpty() && url.host() != QLatin1StringView("localhost")))
        return std::nullopt;
    // Not toLocalFile(): names that are not UTF-8 would be lost.
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
}

AddressOpening::AddressOpening(LibraryScan &scan, SongOfFile songOfFile, QObject *parent)
    : QObject(parent)
    , m_scan(scan)
    , m_songOfFile(std::move(songOfFile))
{
    connect(&scan, &LibraryScan::progressDidChange, this, [this] {
        if (m_wanted)
            show(*std::exchange(m_wanted, std::nullopt));
    });
}

namespace {

// Our own links are those of the web, under a scheme that the desktop hands to us.
QString withoutOwnScheme(const QString &address)
{
    const QString own = QStringLiteral("trackwise://");
    return address.startsWith(own, Qt::CaseInsensitive)
               ? QStringLiteral("https://") + address.sliced(own.size())
               : address;
}

} // namespace

void AddressOpening::open(const QStringList &given, DetailViewController &detail)
{
    QStringList addresses;
    std::ranges::transform(given, std::back_inserter(addresses), withoutOwnScheme);
    if (addresses.isEmpty())
        return;
    if (!std::ranges::all_of(addresses, [](const QString &a) { return fileOfAddress(a).has_value(); })) {
        detail.handleDroppedURLs(addresses);
        return;
    }
    const Wanted wanted{*fileOfAddress(addresses.front()), &detail};
    detail.requestLibraryAccess([this, wanted](bool authorized) {
        if (authorized)
            show(wanted);
    });
}

void AddressOpening::show(const Wanted &wanted)
{
    if (!wanted.detail)
        return;
    if (const std::optional<MediaItem> song = m_songOfFile(wanted.file)) {
        wanted.detail->displayMediaItem(*song, {});
    } else if (m_scan.progress().isRunning) {
        m_wanted = wanted;
    } else {
        const QString path = QFile::decodeName(wanted.file);
        const bool isThere = QFile::exists(path);
        wanted.detail->presentAlert(
            {.title = tr("Song Not Found"),
             .message = isThere ? tr("There is no song “%1” in your music library. Music folders are chosen "
                                     "in the settings.")
                                      .arg(path)
                                : tr("There is no file “%1”.").arg(path),
             .includesOpenSettings = isThere});
    }
}

} // namespace trackwise
