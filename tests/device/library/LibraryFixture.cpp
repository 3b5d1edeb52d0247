// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace trackwise {

LibraryFixture::LibraryFixture(std::vector<QByteArray> musicFolders)
    : m_settings(m_folder.filePath(u"device.ini"_s), QSettings::IniFormat)
{
    LibraryConfiguration configuration;
    configuration.databasePath = databasePath();
    configuration.musicFolders = std::move(musicFolders);
    auto opened = LinuxLibrary::open(configuration, m_settings);
    if (!opened)
        qFatal("%s", qPrintable(opened.failure().detail));
    m_library = std::move(*opened);
}

QByteArray LibraryFixture::databasePath() const
{
    return QFile::encodeName(m_folder.filePath(u"library.sqlite"_s));
}

PersistentID LibraryFixture::add(SongTags tags)
{
    ++m_count;
    if (tags.durationSeconds == 0)
        tags.durationSeconds = 1;
    if (tags.audioHash == 0)
        tags.audioHash = static_cast<std::uint64_t>(m_count);
    const auto number = static_cast<std::uint64_t>(m_count);
    const ScannedSong song{
        {"/music", QByteArray::number(m_count) + ".flac"}, {{1, number}, 100, m_count}, tags};
    const Result<Done> written =
        store().write(std::span(&song, 1), {}, Instant(std::chrono::seconds(m_count)));
    if (!written)
        qFatal("%s", qPrintable(written.failure().detail));
    index();
    return m_library->songForPath(song.file.path())->item.persistentID;
}

PersistentID LibraryFixture::add(const QString &title, const QString &artist, const QString &album)
{
    SongTags tags;
    tags.title = title;
    if (!artist.isEmpty())
        tags.artists = {artist};
    if (!album.isEmpty())
        tags.albumTitle = album;
    return add(tags);
}

ScanSummary LibraryFixture::scan(ScanScope scope)
{
    ScanMonitor monitor;
    const auto result =
        LibraryScanner(store(), m_library->configuration().musicFolders).run({}, monitor, {scope});
    if (!result)
        qFatal("%s", qPrintable(result.failure().detail));
    return *result;
}

PersistentID LibraryFixture::idAt(const QByteArray &path) const
{
    const auto song = m_library->songForPath(path);
    return song ? song->item.persistentID : PersistentID{};
}

Availability LibraryFixture::availability(PersistentID id) const
{
    return m_library->song(id)->availability;
}

void LibraryFixture::index()
{
    while (*store().indexNext(1000)) {
    }
}

} // namespace trackwise
