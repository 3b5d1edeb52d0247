// SPDX-License-Identifier: GPL-3.0-or-later
//
// library_figures scan DATABASE FOLDER   brings the library up to date; what that costs
// library_figures rows DATABASE COUNT    fills a library with made-up songs
// library_figures search DATABASE        what typing and looking up cost
// library_figures dump DATABASE FOLDER   a JSON line for every song below FOLDER
//
// Figures are printed one a line: name, value, unit.
#include "device/library/MadeUpSongs.h"
#include "support/Figures.h"

#include "device/library/LinuxLibrary.h"
#include "device/library/scan/LibraryScanner.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QStringDecoder>

#include <cstdio>

using namespace trackwise;

namespace {

std::unique_ptr<LinuxLibrary> opened(const QByteArray &database, std::vector<QByteArray> folders)
{
    static QSettings none(QStringLiteral("/dev/null"), QSettings::IniFormat);
    LibraryConfiguration configuration;
    configuration.databasePath = database;
    configuration.musicFolders = std::move(folders);
    auto library = LinuxLibrary::open(configuration, none);
    if (!library)
        qFatal("%s", qPrintable(library.failure().detail));
    return std::move(*library);
}

int scan(const QByteArray &database, const QByteArray &folder)
{
    const auto library = opened(database, {folder});
    const double idle = residentMegabytes();
    ScanMonitor monitor;
    QElapsedTimer timer;
    timer.start();
    const double cpuBefore = cpuSeconds();
    const double writingBefore = threadCpuSeconds();
    const auto result = LibraryScanner(*library->store(), {folder}).run({}, monitor);
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    const double cpu = cpuSeconds() - cpuBefore;
    const double writing = threadCpuSeconds() - writingBefore;
    if (!result)
        qFatal("%s", qPrintable(result.failure().detail));
    const auto files = static_cast<double>(monitor.progress(false).filesFound);
    printFigure("files", files, "files");
    printFigure("songs_read", static_cast<double>(result->songsRead), "songs");
    printFigure("files_failed", static_cast<double>(result->filesFailed), "files");
    printFigure("wall", seconds, "s");
    printFigure("rate", files / seconds, "files/s");
    printFigure("cpu", cpu, "s");
    printFigure("cpu_of_writing", writing, "s");
    printFigure("cpu_per_file", cpu / files * 1e3, "ms");
    printFigure("memory_above_idle", peakMegabytes() - idle, "MB");
    return 0;
}

int rows(const QByteArray &database, int count)
{
    const auto library = opened(database, {"/music"});
    QElapsedTimer timer;
    timer.start();
    writeMadeUpSongs(*library->store(), count);
    printFigure("written_per_second", count / (static_cast<double>(timer.nsecsElapsed()) / 1e9), "songs/s");
    return 0;
}

/// Milliseconds of each call, in order of size. The processor's time does not grow with what else runs.
struct Timings
{
    std::vector<double> wall;
    std::vector<double> cpu;
};

template <typename Call>
Timings timings(int rounds, Call call)
{
    Timings times;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        const double cpuBefore = threadCpuSeconds();
        call(i);
        times.wall.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        times.cpu.push_back((threadCpuSeconds() - cpuBefore) * 1e3);
    }
    std::sort(times.wall.begin(), times.wall.end());
    std::sort(times.cpu.begin(), times.cpu.end());
    return times;
}

void typeEverything(const LinuxLibrary &library)
{
    constexpr int rounds = 100;
    double worst = 0;
    double worstWall = 0;
    std::string worstText;
    for (const QString &whole : typedTexts()) {
        for (qsizetype length = 1; length <= whole.size(); ++length) {
            const QString typed = whole.left(length);
            (void)library.search(typed, 50);
            const auto times = timings(rounds, [&](int) { (void)library.search(typed, 50); });
            const double time = percentile(times.cpu, 0.99);
            worstWall = std::max(worstWall, percentile(times.wall, 0.99));
            if (time > worst) {
                worst = time;
                worstText = typed.toStdString();
            }
        }
    }
    std::printf("# the slowest text: \"%s\"\n", worstText.c_str());
    printFigure("typed_p99_of_worst", worstWall, "ms");
    printFigure("typed_p99_of_worst_cpu", worst, "ms");
}

/// Types the names of artists from all over the library in full: how many of them come first, and in how
/// many of the lists theirs is found at all.
void typeArtists(const LinuxLibrary &library)
{
    constexpr int wanted = 60;
    constexpr int longestList = 1000;
    QStringList artists;
    const auto every = std::max<qsizetype>(1, library.status()->available / wanted);
    qsizetype passed = 0;
    (void)library.forEachSong([&](const LibrarySong &song) {
        if (passed++ % every == 0 && song.item.artist && !artists.contains(*song.item.artist))
            artists << *song.item.artist;
        return true;
    });
    int first = 0;
    int found = 0;
    for (const QString &artist : artists) {
        const std::vector<PersistentID> songs = *library.search(artist, longestList);
        const auto isTheirs = [&](PersistentID id) {
            return library.matching().folded(library.song(id)->item.artist.value_or(QString())) ==
                   library.matching().folded(artist);
        };
        first += !songs.empty() && isTheirs(songs.front());
        found += std::any_of(songs.begin(), songs.end(), isTheirs);
    }
    const auto share = [&](int count) { return 100.0 * count / static_cast<double>(artists.size()); };
    printFigure("artists_first", share(first), "%");
    printFigure("artists_found", share(found), "%");
}

int search(const QByteArray &database)
{
    const auto library = opened(database, {"/music"});
    const std::string count = std::to_string(library->status()->available);
    std::printf("# %s songs\n", count.c_str());
    typeArtists(*library);
    typeEverything(*library);

    std::vector<LibrarySong> sample;
    int passed = 0;
    (void)library->forEachSong([&](const LibrarySong &song) {
        if (passed++ % 997 == 0)
            sample.push_back(song);
        return sample.size() < 1000;
    });
    const auto lookUp = [&](const char *name, auto call) {
        constexpr int rounds = 5000;
        const auto at = [&](int i) -> const LibrarySong & {
            return sample[static_cast<std::size_t>(i) % sample.size()];
        };
        const auto times = timings(rounds, [&](int i) { call(at(i)); });
        printFigure(std::string(name) + "_median", times.wall[times.wall.size() / 2], "ms");
        printFigure(std::string(name) + "_p99", percentile(times.wall, 0.99), "ms");
    };
    const MediaLibrary &songs = library->mediaLibrary();
    lookUp("by_id", [&](const LibrarySong &s) { (void)songs.song(s.item.persistentID); });
    lookUp("by_title_artist", [&](const LibrarySong &s) {
        (void)songs.songs({s.item.title, s.item.artist, {}}, 1);
    });
    lookUp("by_title_album", [&](const LibrarySong &s) {
        (void)songs.songs({s.item.title, {}, s.item.albumTitle}, 1);
    });
    lookUp("without_case",
           [&](const LibrarySong &s) { (void)songs.songIgnoringCase(*s.item.title, *s.item.artist); });
    lookUp("by_catalog_id",
           [&](const LibrarySong &s) { (void)songs.songWithCatalogID(s.item.playbackStoreID); });
    lookUp("by_path", [&](const LibrarySong &s) { (void)library->matching().idOfPath(s.file.path()); });
    printFigure("list_of_all", timings(5, [&](int) { (void)library->browser().songs({}); }).wall[2], "ms");
    return 0;
}

QJsonObject asJson(const LibrarySong &song, const QByteArray &root)
{
    QJsonObject fields;
    const auto text = [&fields](const char *name, const std::optional<QString> &value) {
        if (value)
            fields[QLatin1StringView(name)] = *value;
    };
    const auto number = [&fields](const char *name, unsigned value) {
        if (value != 0)
            fields[QLatin1StringView(name)] = static_cast<qint64>(value);
    };
    const MediaItem &item = song.item;
    text("title", item.title);
    text("artist", item.artist);
    text("album", item.albumTitle);
    text("albumartist", item.albumArtist);
    text("composer", item.composer);
    text("genre", item.genre);
    text("comment", item.comments);
    text("lyrics", item.lyrics);
    text("catalogue_id", item.playbackStoreID.isEmpty() ? std::nullopt : std::optional(item.playbackStoreID));
    if (item.releaseDate)
        fields[QLatin1StringView("released")] =
            static_cast<qint64>(item.releaseDate->time_since_epoch().count());
    number("track", item.albumTrackNumber);
    number("tracktotal", item.albumTrackCount);
    number("disc", item.discNumber);
    number("disctotal", item.discCount);
    number("bpm", item.beatsPerMinute);
    number("stars", item.rating);
    number("playcount", item.playCount);
    number("compilation", item.isCompilation);
    number("explicit", item.isExplicitItem);
    number("artwork", item.artwork != nullptr);
    QJsonObject line{{QLatin1StringView("fields"), fields}};
    const QByteArray path = song.file.path().mid(root.size() + 1);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = utf8(path);
    if (utf8.hasError())
        line[QLatin1StringView("path_hex")] = QString::fromLatin1(path.toHex());
    else
        line[QLatin1StringView("path")] = decoded;
    return line;
}

int dump(const QByteArray &database, const QByteArray &root)
{
    (void)opened(database, {root})->forEachSong([&root](const LibrarySong &song) {
        if (song.availability == Availability::Available && song.file.folder.startsWith(root)) {
            std::puts(QJsonDocument(asJson(song, root)).toJson(QJsonDocument::Compact).constData());
        }
        return true;
    });
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    const std::vector<QByteArray> arguments(argv + 1, argv + argc);
    const QByteArray what = arguments.empty() ? QByteArray() : arguments.front();
    if (what == "scan" && arguments.size() == 3)
        return scan(arguments[1], arguments[2]);
    if (what == "rows" && arguments.size() == 3)
        return rows(arguments[1], arguments[2].toInt());
    if (what == "search" && arguments.size() == 2)
        return search(arguments[1]);
    if (what == "dump" && arguments.size() == 3)
        return dump(arguments[1], arguments[2]);
    std::fputs("usage: library_figures scan|dump DATABASE FOLDER | rows DATABASE COUNT | search DATABASE\n",
               stderr);
    return 2;
}
