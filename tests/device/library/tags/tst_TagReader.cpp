// SPDX-License-Identifier: GPL-3.0-or-later
//
// The files under tests/data/tags hold the same song in every container and tag dialect; make_fixtures.py
// there says what is in them.
#include "device/library/WavFolder.h"
#include "device/library/tags/EveryTag.h"
#include "device/library/tags/FileArtwork.h"
#include "device/library/tags/MusicFormats.h"
#include "device/library/tags/TagReader.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QFile>

#include <taglib/fileref.h>
#include <taglib/tag.h>

namespace {

QByteArray fixture(const QByteArray &name)
{
    return QByteArray(TRACKWISE_TEST_DATA "/") + name;
}

SongTags readFixture(const QByteArray &name)
{
    const auto tags = readTags(fixture(name));
    if (!tags)
        qWarning("%s: %s", name.constData(), qPrintable(tags.failure().detail));
    return tags ? *tags : SongTags();
}

SongTags withOneArtistAndGenre(const QString &artist)
{
    auto tags = everyTag();
    tags.artists = {artist};
    tags.genres = {u"Jazz"_s};
    return tags;
}

SongTags matroska()
{
    auto tags = withOneArtistAndGenre(u"First"_s);
    tags.grouping = tags.titleSort = tags.artistSort = tags.albumSort = std::nullopt;
    tags.albumArtistSort = tags.catalogID = tags.recordingMBID = std::nullopt;
    tags.playCount = std::nullopt;
    tags.advisory = std::nullopt;
    tags.isCompilation = false;
    return tags;
}

/// Whether that is all that the file says, of what can be said in words and numbers.
bool says(const QByteArray &file, SongTags expected)
{
    const auto tags = readFixture(file);
    expected.durationSeconds = tags.durationSeconds;
    expected.artwork = tags.artwork;
    expected.audioHash = tags.audioHash;
    return tags == expected;
}

} // namespace

class tst_TagReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryFieldOfEveryDialect()
    {
        const auto check = [](const QByteArray &file, const SongTags &expected) {
            QVERIFY2(says(file, expected), file);
            const bool isShort = file.endsWith("dsf") || file.endsWith("dff"); // one block of 18 ms
            QVERIFY2(qAbs(readFixture(file).durationSeconds - (isShort ? 0.018 : 0.43)) <
                         (isShort ? 0.001 : 0.05),
                     file);
        };
        for (const auto *name : {"id3v24.mp3", "id3.wav", "id3.aiff", "id3.tta", "id3.dsf", "id3.dff",
                                 "id3.aac", "xiph.flac", "xiph.ogg", "xiph.opus", "xiph.spx", "xiph.oga",
                                 "apev2.ape", "apev2.mpc", "apev2.wv", "apev2.mp3", "apev2.ac3", "atoms.m4a"})
            check(name, everyTag());
        auto id3v23 = withOneArtistAndGenre(u"First/Second"_s);
        id3v23.titleSort = id3v23.artistSort = id3v23.albumSort = std::nullopt; // frames of ID3v2.4
        check("id3v23.mp3", id3v23);
        auto alac = everyTag();
        alac.catalogID = u"2492863669"_s;
        check("alac.m4a", alac);
        check("matroska.mka", matroska());
        auto asf = everyTag(); // keeps the second genre in a list of its own, which is read first
        asf.genres = {u"Rock"_s, u"Jazz"_s};
        check("asf.wma", asf);
        for (const auto *name : {"info.caf", "info-rf64.wav"})
            check(name, {.title = u"Tïtle ✓ 夜"_s});
        for (const auto *name : {"plain.w64", "plain.eac3", "plain.latm"})
            check(name, {});
    }

    void findsTheFrontCover()
    {
        for (const auto *file :
             {"id3v24.mp3", "id3v23.mp3", "id3.wav",      "id3.aiff", "id3.tta",   "id3.dsf",
              "id3.dff",    "id3.aac",    "xiph.flac",    "xiph.ogg", "xiph.opus", "xiph.spx",
              "xiph.oga",   "apev2.ape",  "apev2.mpc",    "apev2.wv", "apev2.mp3", "apev2.ac3",
              "atoms.m4a",  "alac.m4a",   "matroska.mka", "asf.wma"}) {
            const auto summary = readFixture(file).artwork;
            QCOMPARE(summary.place, ArtworkSummary::Place::Embedded);
            QCOMPARE(summary.key, readFixture("id3v24.mp3").artwork.key); // the same picture in all of them
            const auto artwork = FileArtwork::fromSummary(summary);
            QCOMPARE(artwork->key(), summary.key);
            const auto image = artwork->read();
            QVERIFY2(image.has_value(), file);
            // The row of pixels begins with its red value: 200 is the front cover, 20 the back.
            QVERIFY(image->bytes.startsWith("\x89PNG"));
            const auto pixels = image->bytes.mid(image->bytes.indexOf("IDAT") + 4);
            QCOMPARE(static_cast<unsigned char>(qUncompress(QByteArray("\0\0\0\x34", 4) + pixels)[1]), 200);
        }
    }

    void fallsThroughTheTagsOfAnMp3FieldByField()
    {
        QVERIFY(says("three-tags.mp3", {.title = u"Title of ID3v2"_s,
                                        .artists = {u"Artist of ID3v1"_s},
                                        .albumTitle = u"Album of APE"_s,
                                        .genres = {u"Rock"_s},
                                        .comments = u"Comment of ID3v1"_s,
                                        .releaseDate = PartialDate::fromText(u"1987"_s),
                                        .trackNumber = 9}));
    }

    void knowsOtherProgramsSpellings()
    {
        QVERIFY(says("spellings.flac", {.albumArtist = u"Album Artist"_s,
                                        .grouping = u"Grouping"_s,
                                        .comments = u"Comment"_s,
                                        .lyrics = u"First line\nSecond line"_s,
                                        .releaseDate = PartialDate::fromText(u"2021"_s),
                                        .ratingPercent = 70,
                                        .playCount = 7,
                                        .beatsPerMinute = 128,
                                        .trackNumber = 3,
                                        .trackCount = 12,
                                        .discNumber = 1,
                                        .discCount = 2}));
    }

    void readsRiffInfoOfUnknownEncoding()
    {
        QVERIFY(says("info.wav", {.title = u"Tïtle €"_s,
                                  .artists = {u"Artist"_s},
                                  .albumTitle = u"Album"_s,
                                  .genres = {u"Jazz"_s},
                                  .comments = u"Comment"_s,
                                  .releaseDate = PartialDate::fromText(u"2021-03-05"_s),
                                  .trackNumber = 3}));
    }

    void stripsTheTimesFromLyrics()
    {
        for (const char *file : {"synced-lyrics.mp3", "lrc-inside.mp3"})
            QCOMPARE(readFixture(file).lyrics, everyTag().lyrics);
    }

    void tellsEveryoneTheSameFormats()
    {
        QByteArray table("| Format | File names end in |\n| --- | --- |\n");
        QByteArray types("\nMimeType=");
        const auto wordsOf = [](std::string_view text) {
            auto words = QByteArray(text.data(), static_cast<qsizetype>(text.size())).split(' ');
            words.removeAll(QByteArray());
            return words;
        };
        for (const auto &format : musicFormats()) {
            const auto suffixes = wordsOf(format.suffixes);
            for (const auto &suffix : suffixes)
                QVERIFY(hasMusicSuffix("A.B." + suffix.toUpper()));
            if (!suffixes.isEmpty())
                table += "| " + wordsOf(format.name).join(' ') + " | ." + suffixes.join(" .") + " |\n";
            for (const auto &type : wordsOf(format.mimeTypes))
                types += type + ';';
        }
        QVERIFY(!hasMusicSuffix("mp3") && !hasMusicSuffix("song.mp3.part") && !hasMusicSuffix("song."));
        const auto contentOf = [](const char *path) {
            return contentsOf(QStringLiteral(TRACKWISE_SOURCES "/") + QString::fromLatin1(path));
        };
        QVERIFY2(contentOf("README.md").contains(table + '\n'), table);
        QVERIFY2(contentOf("resources/desktop/org.trackwise.trackwise.desktop")
                     .contains(types + "x-scheme-handler/trackwise;\n"),
                 types);
    }

    void hashesTheSoundWhateverTheTags()
    {
        for (const auto &[one, other] : {std::pair("id3v24.mp3", "id3v23.mp3"),
                                         {"id3v24.mp3", "apev2.mp3"},
                                         {"id3v24.mp3", "three-tags.mp3"},
                                         {"xiph.flac", "spellings.flac"},
                                         {"id3.wav", "info.wav"}})
            QCOMPARE(readFixture(one).audioHash, readFixture(other).audioHash);
    }

    void hashesTheSoundAfterRetagging()
    {
        for (const auto *file : {"id3v24.mp3", "id3.wav", "id3.aiff", "id3.tta", "xiph.flac", "xiph.ogg",
                                 "xiph.opus", "xiph.spx", "xiph.oga", "apev2.ape", "apev2.mpc", "apev2.wv",
                                 "atoms.m4a", "alac.m4a", "asf.wma"}) {
            const WavFolder folder;
            folder.run("cp " + fixture(file) + " .; chmod u+w *");
            const auto path = folder.path(file);
            {
                TagLib::FileRef retagged(path.constData());
                retagged.tag()->setTitle("Another title");
                retagged.tag()->setComment(std::string(20000, 'x')); // moves the sound, or its pages
                QVERIFY(retagged.save());
            }
            const auto tags = readTags(path);
            QVERIFY2(tags, file);
            QCOMPARE(tags->title, u"Another title"_s);
            QCOMPARE(tags->comments->size(), 20000);
            QCOMPARE(tags->audioHash, readFixture(file).audioHash);
            QCOMPARE(tags->durationSeconds, readFixture(file).durationSeconds);
        }
    }

    void hashesDifferForDifferentSound()
    {
        QSet<std::uint64_t> hashes;
        const auto names = {"id3v24.mp3", "xiph.ogg", "xiph.opus", "atoms.m4a",
                            "asf.wma",    "id3.aac",  "apev2.wv"};
        for (const auto *name : names)
            hashes.insert(readFixture(name).audioHash);
        QCOMPARE(hashes.size(), qsizetype(names.size()));
    }
};

QTEST_APPLESS_MAIN(tst_TagReader)
#include "tst_TagReader.moc"
