// SPDX-License-Identifier: GPL-3.0-or-later
//
// The files under tests/data/tags hold the same song in every container and tag dialect; make_fixtures.py
// there says what is in them.
#include "platform/linux/library/tags/FileArtwork.h"
#include "platform/linux/library/tags/MusicFormats.h"
#include "platform/linux/library/tags/TagReader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

#include <taglib/fileref.h>
#include <taglib/tag.h>

#include <unistd.h>

using namespace trackwise;

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

/// Everything that a dialect can say.
SongTags everything()
{
    return {
        .title = QStringLiteral("Tïtle ✓ 夜"),
        .artists = {QStringLiteral("First"), QStringLiteral("Second")},
        .albumTitle = QStringLiteral("Album"),
        .albumArtist = QStringLiteral("Album Artist"),
        .composer = QStringLiteral("Composer"),
        .genres = {QStringLiteral("Jazz"), QStringLiteral("Rock")},
        .grouping = QStringLiteral("Grouping"),
        .comments = QStringLiteral("Comment"),
        .lyrics = QStringLiteral("First line\nSecond line"),
        .titleSort = QStringLiteral("Title sort"),
        .artistSort = QStringLiteral("Artist sort"),
        .albumSort = QStringLiteral("Album sort"),
        .albumArtistSort = QStringLiteral("Album artist sort"),
        .composerSort = QStringLiteral("Composer sort"),
        .releaseDate = PartialDate::fromText(QStringLiteral("2021-03-05")),
        .originalDate = PartialDate::fromText(QStringLiteral("1999")),
        .ratingPercent = 70,
        .playCount = 7,
        .beatsPerMinute = 128,
        .trackNumber = 3,
        .trackCount = 12,
        .discNumber = 1,
        .discCount = 2,
        .isCompilation = true,
        .advisory = Advisory::Explicit,
        .catalogID = QStringLiteral("1440857781"),
        .isrc = QStringLiteral("USABC1234567"),
        .recordingMBID = QStringLiteral("11111111-2222-4333-8444-555555555555"),
        .releaseMBID = QStringLiteral("66666666-7777-4888-9999-aaaaaaaaaaaa"),
        .musicalKey = QStringLiteral("Am"),
        .label = QStringLiteral("Label"),
        .catalogNumber = QStringLiteral("CAT-1"),
        .barcode = QStringLiteral("0123456789012"),
        .copyright = QStringLiteral("Copyright"),
    };
}

SongTags withMp4Numbers(const QString &catalogID)
{
    auto tags = everything();
    tags.mediaKind = MediaKind::Song;
    tags.catalogID = catalogID;
    tags.albumCatalogID = QStringLiteral("9440857781");
    tags.artistCatalogID = QStringLiteral("136975");
    return tags;
}

SongTags withOneArtistAndGenre(const QString &artist)
{
    auto tags = everything();
    tags.artists = {artist};
    tags.genres = {QStringLiteral("Jazz")};
    return tags;
}

SongTags matroska()
{
    auto tags = withOneArtistAndGenre(QStringLiteral("First"));
    tags.grouping = tags.titleSort = tags.artistSort = tags.albumSort = std::nullopt;
    tags.albumArtistSort = tags.composerSort = tags.catalogID = tags.recordingMBID = std::nullopt;
    tags.releaseMBID = tags.musicalKey = tags.label = tags.catalogNumber = tags.barcode = std::nullopt;
    tags.copyright = std::nullopt;
    tags.originalDate = std::nullopt;
    tags.playCount = std::nullopt;
    tags.advisory = std::nullopt;
    tags.isCompilation = false;
    return tags;
}

QByteArray described(const SongTags &tags)
{
    QByteArray text;
    for (const auto &value : {tags.title,           tags.displayArtist(), tags.albumTitle,
                              tags.albumArtist,     tags.composer,        tags.displayGenre(),
                              tags.grouping,        tags.comments,        tags.lyrics,
                              tags.titleSort,       tags.artistSort,      tags.albumSort,
                              tags.albumArtistSort, tags.composerSort,    tags.catalogID,
                              tags.albumCatalogID,  tags.artistCatalogID, tags.isrc,
                              tags.recordingMBID,   tags.releaseMBID,     tags.musicalKey,
                              tags.label,           tags.catalogNumber,   tags.barcode,
                              tags.copyright})
        text += value.value_or(QStringLiteral("-")).toUtf8() + '|';
    for (const auto &date : {tags.releaseDate, tags.originalDate})
        text += (date ? date->text.toUtf8() : QByteArray("-")) + '|';
    for (const auto &number : {tags.playCount, tags.beatsPerMinute, tags.trackNumber, tags.trackCount,
                               tags.discNumber, tags.discCount})
        text += (number ? QByteArray::number(*number) : QByteArray("-")) + '|';
    text += QByteArray::number(tags.ratingPercent.value_or(-1)) + '|' +
            QByteArray::number(tags.isCompilation) + '|';
    text += QByteArray::number(tags.advisory ? int(*tags.advisory) : -1) + '|';
    return text + QByteArray::number(tags.mediaKind ? int(*tags.mediaKind) : -1);
}

} // namespace

class tst_TagReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryFieldOfEveryDialect_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("expected");
        const auto add = [](const char *name, const SongTags &tags) {
            QTest::newRow(name) << QByteArray(name) << described(tags);
        };
        for (const auto *name : {"id3v24.mp3", "id3.wav", "id3.aiff", "id3.tta", "id3.dsf", "id3.dff",
                                 "id3.aac", "xiph.flac", "xiph.ogg", "xiph.opus", "xiph.spx", "xiph.oga",
                                 "apev2.ape", "apev2.mpc", "apev2.wv", "apev2.mp3", "apev2.ac3"})
            add(name, everything());
        auto id3v23 = withOneArtistAndGenre(QStringLiteral("First/Second"));
        id3v23.titleSort = id3v23.artistSort = id3v23.albumSort = std::nullopt; // frames of ID3v2.4
        add("id3v23.mp3", id3v23);
        add("atoms.m4a", withMp4Numbers(QStringLiteral("1440857781")));
        add("alac.m4a", withMp4Numbers(QStringLiteral("2492863669")));
        add("matroska.mka", matroska());
        auto asf = everything(); // keeps the second genre in a list of its own, which is read first
        asf.genres = {QStringLiteral("Rock"), QStringLiteral("Jazz")};
        add("asf.wma", asf);
        for (const auto *name : {"info.caf", "info-rf64.wav"})
            add(name, {.title = QStringLiteral("Tïtle ✓ 夜")});
        for (const auto *name : {"plain.w64", "plain.eac3", "plain.latm"})
            add(name, {});
    }
    void readsEveryFieldOfEveryDialect()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, expected);
        const auto tags = readFixture(file);
        QCOMPARE(described(tags), expected);
        const bool isShort = file.endsWith("dsf") || file.endsWith("dff"); // one block of 18 ms
        QVERIFY2(qAbs(tags.durationSeconds - (isShort ? 0.018 : 0.43)) < (isShort ? 0.001 : 0.05),
                 QByteArray::number(tags.durationSeconds));
    }

    void findsTheFrontCover_data()
    {
        QTest::addColumn<QByteArray>("file");
        for (const auto *name :
             {"id3v24.mp3", "id3v23.mp3", "id3.wav",      "id3.aiff", "id3.tta",   "id3.dsf",
              "id3.dff",    "id3.aac",    "xiph.flac",    "xiph.ogg", "xiph.opus", "xiph.spx",
              "xiph.oga",   "apev2.ape",  "apev2.mpc",    "apev2.wv", "apev2.mp3", "apev2.ac3",
              "atoms.m4a",  "alac.m4a",   "matroska.mka", "asf.wma"})
            QTest::newRow(name) << QByteArray(name);
    }
    void findsTheFrontCover()
    {
        QFETCH(QByteArray, file);
        const auto summary = readFixture(file).artwork;
        QCOMPARE(summary.place, ArtworkSummary::Place::Embedded);
        QCOMPARE(summary.key, readFixture("id3v24.mp3").artwork.key); // the same picture in all of them
        const auto artwork = FileArtwork::fromSummary(summary);
        QCOMPARE(artwork->key(), summary.key);
        const auto image = artwork->read();
        QVERIFY(image.has_value());
        // The row of pixels begins with its red value: 200 is the front cover, 20 the back.
        QVERIFY(image->bytes.startsWith("\x89PNG"));
        const auto pixels = image->bytes.mid(image->bytes.indexOf("IDAT") + 4);
        QCOMPARE(static_cast<unsigned char>(qUncompress(QByteArray("\0\0\0\x34", 4) + pixels)[1]), 200);
    }

    void fallsThroughTheTagsOfAnMp3FieldByField()
    {
        const auto tags = readFixture("three-tags.mp3");
        QCOMPARE(tags.title, QStringLiteral("Title of ID3v2"));
        QCOMPARE(tags.albumTitle, QStringLiteral("Album of APE"));
        QCOMPARE(tags.displayArtist(), QStringLiteral("Artist of ID3v1"));
        QCOMPARE(tags.comments, QStringLiteral("Comment of ID3v1"));
        QCOMPARE(tags.releaseDate->text, QStringLiteral("1987"));
        QCOMPARE(tags.trackNumber, 9U);
        QCOMPARE(tags.displayGenre(), QStringLiteral("Rock"));
    }

    void knowsOtherProgramsSpellings()
    {
        const auto tags = readFixture("spellings.flac");
        QCOMPARE(tags.albumArtist, QStringLiteral("Album Artist"));
        QCOMPARE(tags.releaseDate->text, QStringLiteral("2021"));
        QCOMPARE(tags.originalDate->text, QStringLiteral("1999"));
        QCOMPARE(tags.grouping, QStringLiteral("Grouping"));
        QCOMPARE(tags.comments, QStringLiteral("Comment"));
        QCOMPARE(tags.lyrics, QStringLiteral("First line\nSecond line"));
        QCOMPARE(tags.label, QStringLiteral("Label"));
        QCOMPARE(tags.beatsPerMinute, 128U);
        QCOMPARE(tags.trackNumber, 3U);
        QCOMPARE(tags.trackCount, 12U);
        QCOMPARE(tags.discNumber, 1U);
        QCOMPARE(tags.discCount, 2U);
        QCOMPARE(tags.ratingPercent, 70);
        QCOMPARE(tags.playCount, 7U);
    }

    void readsRiffInfoOfUnknownEncoding()
    {
        const auto tags = readFixture("info.wav");
        QCOMPARE(tags.title, QStringLiteral("Tïtle €"));
        QCOMPARE(tags.displayArtist(), QStringLiteral("Artist"));
        QCOMPARE(tags.displayGenre(), QStringLiteral("Jazz"));
        QCOMPARE(tags.releaseDate->text, QStringLiteral("2021-03-05"));
        QCOMPARE(tags.trackNumber, 3U);
    }

    void stripsTheTimesFromLyrics()
    {
        QCOMPARE(readFixture("synced-lyrics.mp3").lyrics, QStringLiteral("First line\nSecond line"));
        QCOMPARE(readFixture("lrc-inside.mp3").lyrics, QStringLiteral("First line\nSecond line"));
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
            QFile file(QStringLiteral(TRACKWISE_SOURCES "/") + QString::fromLatin1(path));
            return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
        };
        QVERIFY2(contentOf("README.md").contains(table + '\n'), table);
        QVERIFY2(contentOf("resources/desktop/org.trackwise.trackwise.desktop").contains(types + '\n'),
                 types);
    }

    void doesNotBelieveTheName()
    {
        QTemporaryDir folder;
        const auto path = QFile::encodeName(folder.filePath(QStringLiteral("really ogg.mp3")));
        QVERIFY(QFile::copy(QFile::decodeName(fixture("xiph.ogg")), QFile::decodeName(path)));
        const auto tags = readTags(path);
        QVERIFY(tags);
        QCOMPARE(described(*tags), described(everything()));
    }

    void readsAFileWhoseNameIsNoText()
    {
        QTemporaryDir folder;
        const auto path = QFile::encodeName(folder.path()) + "/Caf\xe9 \n.flac";
        QVERIFY(QFile::copy(QFile::decodeName(fixture("xiph.flac")), folder.filePath(QStringLiteral("x"))));
        QCOMPARE(rename((QFile::encodeName(folder.path()) + "/x").constData(), path.constData()), 0);
        QVERIFY(readTags(path));
        QCOMPARE(unlink(path.constData()), 0); // which QTemporaryDir cannot
    }

    void hashesTheSoundWhateverTheTags_data()
    {
        QTest::addColumn<QByteArray>("one");
        QTest::addColumn<QByteArray>("other");
        QTest::newRow("ID3v2.4 and v2.3") << QByteArray("id3v24.mp3") << QByteArray("id3v23.mp3");
        QTest::newRow("ID3v2 and APEv2") << QByteArray("id3v24.mp3") << QByteArray("apev2.mp3");
        QTest::newRow("ID3v2 and all three") << QByteArray("id3v24.mp3") << QByteArray("three-tags.mp3");
        QTest::newRow("FLAC") << QByteArray("xiph.flac") << QByteArray("spellings.flac");
        QTest::newRow("WAV, tag before or behind") << QByteArray("id3.wav") << QByteArray("info.wav");
    }
    void hashesTheSoundWhateverTheTags()
    {
        QFETCH(QByteArray, one);
        QFETCH(QByteArray, other);
        QCOMPARE(readFixture(one).audioHash, readFixture(other).audioHash);
    }

    void hashesTheSoundAfterRetagging_data()
    {
        QTest::addColumn<QByteArray>("file");
        for (const auto *name : {"id3v24.mp3", "id3.wav", "id3.aiff", "id3.tta", "xiph.flac", "xiph.ogg",
                                 "xiph.opus", "xiph.spx", "xiph.oga", "apev2.ape", "apev2.mpc", "apev2.wv",
                                 "atoms.m4a", "alac.m4a", "asf.wma"})
            QTest::newRow(name) << QByteArray(name);
    }
    void hashesTheSoundAfterRetagging()
    {
        QFETCH(QByteArray, file);
        QTemporaryDir folder;
        const auto path = QFile::encodeName(folder.path()) + '/' + file;
        QVERIFY(QFile::copy(QFile::decodeName(fixture(file)), QFile::decodeName(path)));
        QFile::setPermissions(QFile::decodeName(path), QFile::ReadOwner | QFile::WriteOwner);
        {
            TagLib::FileRef retagged(path.constData());
            retagged.tag()->setTitle("Another title");
            retagged.tag()->setComment(std::string(20000, 'x')); // moves the sound, or its pages
            QVERIFY(retagged.save());
        }
        const auto tags = readTags(path);
        QVERIFY(tags);
        QCOMPARE(tags->title, QStringLiteral("Another title"));
        QCOMPARE(tags->comments->size(), 20000);
        QCOMPARE(tags->audioHash, readFixture(file).audioHash);
        QCOMPARE(tags->durationSeconds, readFixture(file).durationSeconds);
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
