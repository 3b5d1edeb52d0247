// SPDX-License-Identifier: GPL-3.0-or-later
//
// watching_figures DATABASE FOLDER MORE   what it costs to follow FOLDER, whose songs are retagged, and into
//                                         which the folder MORE is copied
//
// Figures are printed one a line: name, value, unit.
#include "support/Figures.h"

#include "device/library/LinuxLibrary.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTimer>

#include <cstdio>
#include <map>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {

constexpr int edits = 50;
constexpr auto longestWait = 10min;
/// Longer than changes are taken for parts of one work.
constexpr std::chrono::milliseconds calm = 2100ms;
constexpr std::chrono::milliseconds idleTime = 10s;

void pass(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Waits for @p signal until @p isDone, which is asked after each.
template <typename Sender, typename Signal, typename Condition>
void await(const Sender *sender, Signal signal, Condition isDone)
{
    QEventLoop loop;
    QObject::connect(sender, signal, &loop, [&] {
        if (isDone())
            loop.quit();
    });
    QTimer::singleShot(longestWait, &loop, [] { qFatal("nothing happens"); });
    loop.exec();
}

void scanAll(LinuxLibrary &library)
{
    library.scan().start();
    await(&library.scan(), &ScanController::finished, [] { return true; });
}

/// Songs of different titles in pairs of one format.
std::vector<std::pair<LibrarySong, LibrarySong>> pairsOfSongs(const LinuxLibrary &library)
{
    std::map<QByteArray, LibrarySong> bySuffix;
    std::vector<std::pair<LibrarySong, LibrarySong>> pairs;
    int passed = 0;
    (void)library.forEachSong([&](const LibrarySong &song) {
        constexpr int step = 97; // from all over the library
        if (++passed % step != 0)
            return true;
        const QByteArray suffix = song.file.name.mid(song.file.name.lastIndexOf('.'));
        const auto other = bySuffix.find(suffix);
        if (other != bySuffix.end() && other->second.item.title != song.item.title)
            pairs.emplace_back(song, other->second);
        bySuffix.insert_or_assign(suffix, song);
        return pairs.size() < edits;
    });
    return pairs;
}

/// From the end of the writing to the moment when the library says that the song is another.
double secondsUntilAnnounced(const LinuxLibrary &library, const MediaLibrary &songs, const QByteArray &path,
                             const QByteArray &content, const std::optional<QString> &title)
{
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", path.constData());
    file.close();
    QElapsedTimer timer;
    timer.start();
    await(&songs, &MediaLibrary::libraryDidChange, [&] {
        const auto song = library.songForPath(path);
        return song && song->item.title == title;
    });
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void editSongs(LinuxLibrary &library)
{
    std::vector<double> times;
    const double cpuBefore = cpuSeconds();
    for (const auto &[song, other] : pairsOfSongs(library)) {
        QFile source(QFile::decodeName(other.file.path()));
        if (!source.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", other.file.path().constData());
        const QByteArray content = source.readAll();
        const auto title = library.songForPath(other.file.path())->item.title;
        if (library.songForPath(song.file.path())->item.title == title)
            continue;
        times.push_back(
            secondsUntilAnnounced(library, library.mediaLibrary(), song.file.path(), content, title) * 1e3);
        pass(calm);
    }
    if (times.empty())
        qFatal("no songs to be edited");
    printFigure("edits", static_cast<double>(times.size()), "edits");
    printFigure("edit_to_announced_median", percentile(times, 0.5), "ms");
    printFigure("edit_to_announced_p95", percentile(times, 0.95), "ms");
    printFigure("edit_cpu", (cpuSeconds() - cpuBefore) / static_cast<double>(times.size()) * 1e3, "ms");
}

void copyMore(LinuxLibrary &library, const QByteArray &folder, const QByteArray &more)
{
    const auto available = [&library] {
        const auto status = library.status();
        return status ? status->available : 0;
    };
    const auto before = available();
    bool wasRunning = false;
    int scans = 0;
    const auto counting =
        QObject::connect(&library.scan(), &LibraryScan::progressDidChange, &library.scan(), [&] {
            const bool isRunning = library.scan().progress().isRunning;
            scans += isRunning && !wasRunning ? 1 : 0;
            wasRunning = isRunning;
        });
    const double cpuBefore = cpuSeconds();
    QElapsedTimer timer;
    timer.start();
    double copied = 0;
    bool isCopied = false;
    QProcess copying;
    QObject::connect(&copying, &QProcess::finished, &copying, [&] {
        copied = static_cast<double>(timer.nsecsElapsed()) / 1e9;
        isCopied = true;
    });
    copying.start(QStringLiteral("cp"),
                  {QStringLiteral("-r"), QFile::decodeName(more), QFile::decodeName(folder + "/more")});
    await(&library.scan(), &LibraryScan::progressDidChange,
          [&] { return isCopied && !library.scan().progress().isRunning && available() >= 2 * before; });
    const double all = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    QObject::disconnect(counting);
    printFigure("copy_songs", static_cast<double>(available() - before), "songs");
    printFigure("copy_took", copied, "s");
    printFigure("copy_to_announced", all - copied, "s");
    printFigure("copy_scans", scans, "scans");
    printFigure("copy_cpu", cpuSeconds() - cpuBefore, "s");
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 4) {
        std::fputs("usage: watching_figures DATABASE FOLDER MORE\n", stderr);
        return 2;
    }
    QSettings none(QStringLiteral("/dev/null"), QSettings::IniFormat);
    LibraryConfiguration configuration;
    configuration.databasePath = argv[1];
    configuration.musicFolders = {argv[2]};
    const auto library = LinuxLibrary::open(configuration, none);
    if (!library)
        qFatal("%s", qPrintable(library.failure().detail));
    LinuxLibrary &songs = **library;
    songs.access().setStatus(LibraryAuthorizationStatus::Authorized);
    scanAll(songs); // everything is read
    scanAll(songs);
    const double memory = privateMegabytes();
    songs.followMusicFolders();
    scanAll(songs);
    printFigure("memory", privateMegabytes(), "MB");
    printFigure("memory_of_watching", privateMegabytes() - memory, "MB");

    pass(calm);
    const double cpuBefore = cpuSeconds();
    pass(idleTime);
    printFigure("idle_cpu_of_10_s", (cpuSeconds() - cpuBefore) * 1e3, "ms");
    editSongs(songs);
    copyMore(songs, argv[2], argv[3]);
    return 0;
}
