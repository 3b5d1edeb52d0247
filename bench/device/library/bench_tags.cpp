// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_tags                     what reading a file's tags costs, on one thread, for files of the common
// formats bench_tags FOLDER [ROUNDS]     the same for every file below FOLDER bench_tags --dump FOLDER prints
// a JSON line for every song: its path and what its tags say
#include "device/library/tags/TagReader.h"
#include "support/Figures.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <vector>

using namespace trackwise;

namespace {

struct Folder
{
    FolderListing listing;
    std::vector<QByteArray> songs;
};

std::vector<Folder> foldersBelow(const std::string &root)
{
    std::map<std::string, std::vector<QByteArray>> names;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(root)) {
        std::error_code loopOfLinks;
        if (!entry.is_symlink() && entry.is_directory(loopOfLinks))
            continue;
        names[entry.path().parent_path().native()].push_back(
            QByteArray::fromStdString(entry.path().filename().native()));
    }
    std::vector<Folder> folders;
    for (const auto &[folder, files] : names) {
        const auto path = QByteArray::fromStdString(folder);
        Folder &made = folders.emplace_back();
        made.listing = FolderListing(path, files);
        for (const auto &file : files)
            made.songs.push_back(path + '/' + file);
    }
    return folders;
}

void put(QJsonObject &fields, QLatin1StringView name, const std::optional<QString> &text)
{
    if (text)
        fields[name] = *text;
}

void put(QJsonObject &fields, QLatin1StringView name, std::optional<unsigned> number)
{
    if (number)
        fields[name] = static_cast<qint64>(*number);
}

QString advisoryText(Advisory advisory)
{
    switch (advisory) {
    case Advisory::Explicit:
        return QStringLiteral("explicit");
    case Advisory::Clean:
        return QStringLiteral("clean");
    case Advisory::None:
        break;
    }
    return QStringLiteral("none");
}

QJsonObject fieldsOf(const SongTags &tags)
{
    using namespace Qt::Literals::StringLiterals;
    QJsonObject fields;
    put(fields, "title"_L1, tags.title);
    fields["artist"_L1] = QJsonArray::fromStringList(tags.artists);
    put(fields, "album"_L1, tags.albumTitle);
    put(fields, "albumartist"_L1, tags.albumArtist);
    put(fields, "composer"_L1, tags.composer);
    fields["genre"_L1] = QJsonArray::fromStringList(tags.genres);
    put(fields, "grouping"_L1, tags.grouping);
    put(fields, "comment"_L1, tags.comments);
    put(fields, "lyrics"_L1, tags.lyrics);
    if (tags.releaseDate)
        fields["date"_L1] = tags.releaseDate->text;
    put(fields, "track"_L1, tags.trackNumber);
    put(fields, "tracktotal"_L1, tags.trackCount);
    put(fields, "disc"_L1, tags.discNumber);
    put(fields, "disctotal"_L1, tags.discCount);
    put(fields, "bpm"_L1, tags.beatsPerMinute);
    put(fields, "playcount"_L1, tags.playCount);
    if (tags.ratingPercent)
        fields["rating"_L1] = *tags.ratingPercent;
    if (tags.isCompilation)
        fields["compilation"_L1] = true;
    if (tags.advisory)
        fields["explicit"_L1] = advisoryText(*tags.advisory);
    put(fields, "mb_recording"_L1, tags.recordingMBID);
    put(fields, "catalogue_id"_L1, tags.catalogID);
    put(fields, "artwork"_L1, QString::fromLatin1(tags.artwork.key));
    put(fields, "audio_hash"_L1, QString::number(tags.audioHash, 16));
    fields["duration"_L1] = tags.durationSeconds;
    return fields;
}

void dump(const std::vector<Folder> &folders, qsizetype rootLength)
{
    for (const auto &folder : folders) {
        for (const auto &song : folder.songs) {
            const auto tags = readTags(song, folder.listing);
            const auto path = song.mid(rootLength);
            if (!tags) {
                std::fprintf(stderr, "%s: %s\n", path.constData(), qPrintable(tags.failure().detail));
                continue;
            }
            QJsonObject line;
            QStringDecoder decode(QStringConverter::Utf8);
            const QString text = decode(path);
            if (decode.hasError())
                line[QLatin1StringView("path_hex")] = QString::fromLatin1(path.toHex());
            else
                line[QLatin1StringView("path")] = text;
            line[QLatin1StringView("fields")] = fieldsOf(*tags);
            std::puts(QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
        }
    }
}

void measure(const std::vector<Folder> &folders, int rounds)
{
    std::size_t files = 0;
    std::size_t songs = 0;
    double best = 1e9;
    double slowest = 0;
    for (int round = 0; round < rounds; ++round) {
        files = songs = 0;
        const auto begin = cpuSeconds();
        auto last = begin;
        for (const auto &folder : folders) {
            for (const auto &song : folder.songs) {
                songs += readTags(song, folder.listing) ? 1 : 0;
                ++files;
                const auto now = cpuSeconds();
                slowest = std::max(slowest, now - last);
                last = now;
            }
        }
        best = std::min(best, cpuSeconds() - begin);
    }
    std::printf("tags.files %zu files\n", files);
    std::printf("tags.songs %zu songs\n", songs);
    std::printf("tags.cpu-per-file %.4f ms\n", best * 1000 / static_cast<double>(files));
    std::printf("tags.slowest-file %.2f ms\n", slowest * 1000);
}

/// Copies of the tests' files, a hundred of each, as they come in music folders.
void makeFolder(const QString &folder)
{
    for (const auto *name : {"id3v24.mp3", "id3v23.mp3", "xiph.flac", "xiph.ogg", "xiph.opus", "atoms.m4a",
                             "alac.m4a", "id3.wav"}) {
        const auto fixture = QString::fromLatin1(name);
        for (int copy = 0; copy < 100; ++copy)
            QFile::copy(QStringLiteral(TRACKWISE_TEST_DATA "/") + fixture,
                        folder + QStringLiteral("/%1 %2").arg(copy).arg(fixture));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty()) {
        const QTemporaryDir folder;
        makeFolder(folder.path());
        measure(foldersBelow(folder.path().toStdString()), 5);
        return 0;
    }
    const bool isDump = arguments[0] == "--dump";
    if (isDump && arguments.size() < 2) {
        std::fprintf(stderr, "usage: bench_tags [FOLDER [ROUNDS]] | bench_tags --dump FOLDER\n");
        return 2;
    }
    const auto folders = foldersBelow(arguments[isDump ? 1 : 0]);
    if (isDump)
        dump(folders, static_cast<qsizetype>(arguments[1].size()) + 1);
    else
        measure(folders, arguments.size() > 1 ? std::atoi(arguments[1].c_str()) : 3);
    return 0;
}
