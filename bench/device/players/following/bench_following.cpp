// SPDX-License-Identifier: GPL-3.0-or-later
//
// dbus-run-session -- bench_following [SONGS [CHANGES]]
//              from a player's change of track to the change of the now-playing item, less the time for which
//              the pieces of a change are collected, with SONGS (100000) songs in the library
#include "device/library/LinuxLibrary.h"
#include "device/players/following/FakePlayer.h"
#include "device/players/following/MprisSystemMusicPlayer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace trackwise;

namespace {

constexpr double collecting = 150; // milliseconds, for a change that comes in one piece
constexpr int songsOfAlbum = 12;

QString titleOf(int number)
{
    return QStringLiteral("Song %1").arg(number / 3); // others have the same title
}

QString artistOf(int number)
{
    return QStringLiteral("Artist %1").arg(number / songsOfAlbum % 500);
}

QByteArray pathOf(int number)
{
    return QStringLiteral("/music/%1/%2/%3.flac")
        .arg(artistOf(number))
        .arg(number / songsOfAlbum)
        .arg(number)
        .toUtf8();
}

ScannedSong songNumber(int number)
{
    ScannedSong song;
    song.file = FileName::ofPath(pathOf(number));
    song.signature.identity = {1, static_cast<std::uint64_t>(number) + 1};
    song.tags.title = titleOf(number);
    song.tags.artists = {artistOf(number)};
    song.tags.albumTitle = QStringLiteral("Album %1").arg(number / songsOfAlbum);
    song.tags.durationSeconds = 100 + number % 200;
    song.tags.audioHash = static_cast<std::uint64_t>(number) + 1;
    return song;
}

bool fill(SongStore &store, int songs)
{
    std::vector<ScannedSong> batch;
    for (int number = 0; number < songs; ++number) {
        batch.push_back(songNumber(number));
        if (batch.size() == 5000 || number + 1 == songs) {
            if (!store.write(batch, {}, Instant{}))
                return false;
            batch.clear();
        }
    }
    return true;
}

QVariantMap track(int number, bool withUrl, bool known)
{
    const ScannedSong song = songNumber(number);
    const QString title = known ? *song.tags.title : QStringLiteral("Unheard %1").arg(number);
    QVariantMap properties = playing(title, artistOf(number), song.tags.durationSeconds);
    QVariantMap metadata = properties.value(QStringLiteral("Metadata")).toMap();
    metadata.insert(QStringLiteral("xesam:album"), *song.tags.albumTitle);
    if (withUrl)
        metadata.insert(QStringLiteral("xesam:url"),
                        QString::fromUtf8("file://" + song.file.path().toPercentEncoding("/")));
    properties.insert(QStringLiteral("Metadata"), metadata);
    return properties;
}

void measure(const char *name, MprisSystemMusicPlayer &system, FakePlayer &player, int changes, bool isFound,
             const std::function<QVariantMap(int)> &next)
{
    std::vector<double> times;
    int wrong = 0;
    for (int change = 0; change < changes; ++change) {
        QEventLoop waiting;
        QObject::connect(&system, &SystemMusicPlayer::nowPlayingItemDidChange, &waiting, &QEventLoop::quit);
        QTimer::singleShot(5000, &waiting, &QEventLoop::quit);
        QElapsedTimer clock;
        clock.start();
        player.change(next(change));
        waiting.exec();
        times.push_back(double(clock.nsecsElapsed()) / 1e6 - collecting);
        const auto item = system.nowPlayingItem();
        wrong += !item || item->persistentID.isInLibrary() != isFound;
    }
    std::sort(times.begin(), times.end());
    std::printf("following_%s_median %.2f ms\n", name, times.at(times.size() / 2));
    std::printf("following_%s_p95 %.2f ms\n", name, times.at(times.size() * 95 / 100));
    std::printf("following_%s_max %.2f ms (%d wrong)\n", name, times.back(), wrong);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int songs = std::max(arguments.value(1, QStringLiteral("100000")).toInt(), 1000);
    const int changes = std::max(arguments.value(2, QStringLiteral("50")).toInt(), 1);
    if (!QDBusConnection::sessionBus().isConnected())
        return std::fputs("run it in dbus-run-session\n", stderr), 1;

    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("device.ini")), QSettings::IniFormat);
    const auto opened = LinuxLibrary::open(
        {{"/music"}, folder.filePath(QStringLiteral("library.sqlite")).toUtf8()}, settings);
    if (!opened || !fill(*(*opened)->store(), songs))
        return std::fputs("cannot make the library\n", stderr), 1;

    FakePlayer player(QStringLiteral("bench"));
    if (!player.appear())
        return std::fputs("cannot take a name on the bus\n", stderr), 1;
    MprisSystemMusicPlayer system((*opened)->matching(), QDBusConnection::sessionBus(),
                                  QStringLiteral("bench.app"));
    system.beginGeneratingPlaybackNotifications();

    const auto spread = [songs](int change) { return int(qint64(change) * 7919 % songs); };
    measure("by_file", system, player, changes, true,
            [&](int change) { return track(spread(change), true, true); });
    measure("by_texts", system, player, changes, true,
            [&](int change) { return track(spread(change) + 1, false, true); });
    measure("unknown", system, player, changes, false,
            [&](int change) { return track(spread(change), false, false); });
    return 0;
}
