// SPDX-License-Identifier: GPL-3.0-or-later
//
// Whatever lies in a music folder under a music file's name ends in a reason or in a playable song.
#include "device/library/WavFolder.h"
#include "device/library/tags/TagReader.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

QByteArray fixture(const char *name)
{
    QFile file(QStringLiteral(TRACKWISE_TEST_DATA "/") + QString::fromLatin1(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray little32(quint32 value)
{
    const quint32 bytes = qToLittleEndian(value);
    return {reinterpret_cast<const char *>(&bytes), sizeof bytes};
}

QByteArray big32(quint32 value)
{
    return little32(qbswap(value));
}

QByteArray synchsafe(quint32 value)
{
    return big32((value & 0x7f) | (value >> 7 & 0x7f) << 8 | (value >> 14 & 0x7f) << 16 |
                 (value >> 21 & 0x7f) << 24);
}

QByteArray id3(const QByteArray &frames, quint32 size, char version = 4)
{
    return "ID3"_ba + version + QByteArray(2, '\0') + synchsafe(size) + frames;
}

QByteArray bareMp3()
{
    const auto whole = fixture("lrc-inside.mp3");
    return whole.mid(whole.indexOf("\xff\xf3", 20)); // MPEG 2 layer III begins behind the tag
}

const QByteArray ftyp("\0\0\0\x18"
                      "ftypM4A \0\0\0\0M4A mp42",
                      24);

QByteArray flacBlock(int type, const QByteArray &content)
{
    return big32(static_cast<quint32>(type << 24 | content.size())) + content;
}

/// The file's blocks from its comment on come last, its sound behind them.
QByteArray flacWith(const QByteArray &blocks)
{
    return fixture("xiph.flac").insert(42, blocks);
}

QByteArray flacPicture(int kind, const QByteArray &image)
{
    return flacBlock(6, big32(static_cast<quint32>(kind)) + big32(9) + "image/png" + QByteArray(20, '\0') +
                            big32(static_cast<quint32>(image.size())) + image);
}

/// Pages that hold one packet.
QByteArray oggPages(quint32 serial, const QByteArray &packet, char flags = 0)
{
    constexpr qsizetype mostInAPage = qsizetype{255} * 255;
    QByteArray pages;
    for (qsizetype at = 0; at <= packet.size(); at += mostInAPage) {
        const auto payload = packet.mid(at, mostInAPage);
        auto table = QByteArray(payload.size() / 255, '\xff');
        if (payload.size() < mostInAPage)
            table += static_cast<char>(payload.size() % 255);
        pages += "OggS" + QByteArray(1, '\0') + flags + QByteArray(8, '\0') + little32(serial) +
                 QByteArray(8, '\0') + static_cast<char>(table.size()) + table + payload;
    }
    return pages;
}

/// The sound of xiph.opus behind other tags, and beside another stream.
QByteArray opusWith(const QByteArray &comments, const QByteArray &streamBefore = {})
{
    const auto whole = fixture("xiph.opus");
    const auto serial = qFromLittleEndian<quint32>(whole.constData() + 14);
    auto sound = whole.indexOf("OggS", 1);
    while (whole.mid(sound + 6, 8) == QByteArray(8, '\0')) // position
        sound = whole.indexOf("OggS", sound + 1);
    return streamBefore + oggPages(serial, whole.mid(28, 19), 2) +
           oggPages(serial, "OpusTags" + little32(0) + comments) + whole.mid(sound);
}

QByteArray xiphComment(const QByteArray &text)
{
    return little32(static_cast<quint32>(text.size())) + text;
}

QByteArray nestedBoxes(int depth)
{
    QByteArray boxes;
    for (int i = 0; i < depth; ++i)
        boxes += big32(static_cast<quint32>(8 * (depth - i))) + "moov";
    return boxes;
}

QByteArray frame(int version, const char *id, const QByteArray &content)
{
    const auto size = static_cast<quint32>(content.size());
    if (version == 2)
        return id + big32(size).mid(1) + content;
    return id + (version == 4 ? synchsafe(size) : big32(size)) + QByteArray(2, '\0') + content;
}

/// A tag of these frames, and sound.
QByteArray tagged(const QByteArray &frames, char version = 3, char flags = 0)
{
    return id3(frames, static_cast<quint32>(frames.size()), version).replace(5, 1, QByteArray(1, flags)) +
           bareMp3();
}

QByteArray utf16(const char *text)
{
    const auto units = QString::fromUtf8(text);
    return {reinterpret_cast<const char *>(units.utf16()), units.size() * 2};
}

} // namespace

class tst_DamagedMusic : public QObject
{
    Q_OBJECT

private:
    WavFolder m_folder;

    [[nodiscard]] QByteArray path() const { return m_folder.path("song.mp3"); }
    [[nodiscard]] Result<SongTags> read(const QByteArray &bytes) const
    {
        m_folder.remove("song.mp3"); // writing over it would make the file system flush it each time
        m_folder.writeBytes("song.mp3", bytes);
        return readTags(path());
    }

private Q_SLOTS:
    void refusesWhatIsNotMusic()
    {
        QByteArray noise(90'000, Qt::Uninitialized);
        QRandomGenerator random(7);
        for (auto &byte : noise)
            byte = static_cast<char>(random.bounded(256));
        const auto flacStart = fixture("xiph.flac").left(42);
        using enum FailureKind;
        const std::tuple<const char *, FailureKind, QByteArray> rows[]{
            {"empty", Malformed, {}},
            {"one byte", Unsupported, "O"},
            {"noise", Unsupported, noise},
            {"zeros", Unsupported, QByteArray(70'000, '\0')},
            {"text", Unsupported, "this is not audio\n"_ba.repeated(50)},
            {"web page", Unsupported, "<!DOCTYPE html><title>404</title>"},
            {"picture", Unsupported, QByteArray("\xff\xd8\xff\xe0\0\x10JFIF", 10) + noise.left(3000)},
            {"AppleDouble", Unsupported,
             QByteArray("\0\5\x16\7\0\2\0\0Mac OS X", 16) + QByteArray(200, '\0')},
            {"ID3 alone", Unsupported, id3(QByteArray(100, '\0'), 100)},
            {"ID3 cut off", Malformed, id3("TIT2" + synchsafe(9), 200'000)},
            {"ID3 of all the file", Malformed, id3({}, 0x0fffffff) + bareMp3()},
            {"FLAC cut off", Malformed, fixture("xiph.flac").left(60)},
            {"FLAC without sound", Malformed, flacStart + QByteArray("\x84\0\0\4\0\0\0\0", 8)},
            {"FLAC picture too large", Malformed,
             flacStart + QByteArray("\x86\xff\xff\xff", 4) + QByteArray(48, '\xf0')},
            {"Ogg cut off", Malformed, fixture("xiph.ogg").left(90)},
            {"Opus cut off", Malformed, fixture("xiph.opus").left(40)},
            {"MP4 cut off", Malformed, fixture("alac.m4a").left(700)},
            {"MP4 box of 4 GiB", Malformed, ftyp + "\xff\xff\xff\xffmoov" + QByteArray(64, '\0')},
            {"MP4 box of 2^64", Malformed,
             ftyp + big32(1) + "moov" + QByteArray(8, '\xff') + QByteArray(64, '\0')},
            {"MP4 nested deep", Malformed, ftyp + nestedBoxes(20'000)},
            {"WAV cut off", Malformed, fixture("info.wav").left(30)},
            {"WAV with a chunk of 4 GiB", Malformed,
             fixture("info.wav").left(36) + "id3 \xff\xff\xff\xffID3"},
            {"Matroska cut off", Malformed, fixture("matroska.mka").left(64)},
            {"ASF cut off", Malformed, fixture("asf.wma").left(200)}};
        for (const auto &[name, kind, bytes] : rows) {
            const auto tags = read(bytes);
            QVERIFY2(!tags && tags.failure().kind == kind && !tags.failure().detail.isEmpty(), name);
        }
    }

    void readsWhatIsOnlySomewhatWrong()
    {
        auto wav = fixture("info.wav");
        const std::pair<const char *, QByteArray> rows[]{
            {"ID3 frame of 2 GiB",
             id3("TIT2\x7f\xff\xff\xff" + QByteArray("\0\0\0A", 4) + QByteArray(28, '\0'), 40, 3) +
                 bareMp3()},
            {"ID3 picture too large",
             id3("APIC\x7f\x7f\x7f\x7f" + QByteArray("\0\0\0image/jpeg\0\3\0", 16) + QByteArray(6, '\0'),
                 30) +
                 bareMp3()},
            {"ID3 of 20,000 frames", tagged(frame(4, "TXXX", QByteArray("\3key\0v", 6)).repeated(20'000), 4)},
            {"junk before the sound", QByteArray(5000, 'x') + bareMp3()},
            {"WAV that says 4 GiB", wav.replace(4, 4, QByteArray(4, '\xff'))},
            {"FLAC cut in the sound", fixture("xiph.flac").chopped(100)},
            {"MP3 cut in the sound", fixture("id3v24.mp3").chopped(100)}};
        for (const auto &[name, bytes] : rows) {
            const auto tags = read(bytes);
            QVERIFY2(tags && tags->durationSeconds > 0.2, name);
        }
    }

    /// Blocks that no parser likes, or more pictures than any may read, cost neither tags nor cover.
    void readsFlacWhateverItsBlocks()
    {
        const auto large = flacPicture(4, QByteArray(15'000'000, 'x'));
        const auto whole = readTags(TRACKWISE_TEST_DATA "/xiph.flac");
        const std::pair<const char *, QByteArray> rows[]{
            {"empty application block", flacWith(flacBlock(2, {}))},
            {"empty picture", flacWith(flacBlock(6, {}))},
            {"empty comment", flacWith(flacBlock(4, {}))},
            {"broken front cover", flacWith(flacBlock(6, big32(3) + big32(99)))},
            {"75 MB of pictures", flacWith(large.repeated(5))}};
        for (const auto &[name, bytes] : rows) {
            auto tags = read(bytes);
            QVERIFY2(tags, name);
            tags->artwork.path = whole->artwork.path;
            QVERIFY2(*tags == *whole, name);
        }
    }

    void readsOggWithALargeCover()
    {
        const auto image = "\x89PNG\r\n\x1a\n" + QByteArray(50'000'000, 'x');
        const auto block =
            big32(3) + QByteArray(28, '\0').replace(24, 4, big32(static_cast<quint32>(image.size()))) + image;
        const auto tags =
            read(opusWith(little32(2) + xiphComment("METADATA_BLOCK_PICTURE=" + block.toBase64()) +
                          xiphComment("title=Song")));
        QVERIFY(tags);
        QCOMPARE(tags->title, u"Song"_s);
        QCOMPARE(readEmbeddedArtwork(path())->bytes, image);
    }

    void readsTheSoundBesideAVideo()
    {
        const auto alone = read(opusWith(little32(1) + xiphComment("title=Song")));
        const auto beside =
            read(opusWith(little32(1) + xiphComment("title=Song"), oggPages(77, "\x80theora", 2)));
        QVERIFY(beside);
        QCOMPARE(*beside, *alone);
        QCOMPARE(beside->title, u"Song"_s);
        QCOMPARE(beside->durationSeconds, readTags(TRACKWISE_TEST_DATA "/xiph.opus")->durationSeconds);
    }

    /// What programs got wrong in ID3v2 tags costs nothing of what stands behind it.
    void readsOddId3()
    {
        // title, genres, comment, date
        const auto said = [this](const QByteArray &bytes) {
            const auto tags = read(bytes);
            if (!tags)
                return tags.failure().detail;
            return QStringList{tags->title.value_or(QString()), tags->displayGenre().value_or(QString()),
                               tags->comments.value_or(QString()),
                               tags->releaseDate ? tags->releaseDate->text : QString()}
                .join(u'|');
        };
        const QByteArray nothing(1, '\0');
        const auto title3 = frame(3, "TIT2", nothing + "Song");
        const auto title4 = frame(4, "TIT2", nothing + "Song");
        const auto genre = [&](const char *text) {
            return tagged(frame(3, "TCON", nothing + text) + title3);
        };
        const auto comment = [&](const QByteArray &text) { return frame(3, "COMM", nothing + "eng" + text); };
        const QByteArray anIcon("\0image/png\0\3\0", 13);
        const std::tuple<const char *, QByteArray, const char *> rows[]{
            {"extended header, 2.3", tagged(big32(6) + QByteArray(6, '\0') + title3, 3, 0x40), "Song|||"},
            {"extended header, 2.4", tagged(synchsafe(6) + QByteArray("\1\0", 2) + title4, 4, 0x40),
             "Song|||"},
            {"extended header that counts itself, 2.3",
             tagged(big32(10) + QByteArray(6, '\0') + title3, 3, 0x40), "Song|||"},
            {"extended header in name only", tagged(title3, 3, 0x40), "Song|||"},
            {"frame of no length, 2.3", tagged(frame(3, "TALB", {}) + title3), "Song|||"},
            {"frame of no length, 2.4", tagged(frame(4, "TALB", {}) + title4, 4), "Song|||"},
            {"lower case", tagged(frame(3, "tcon", nothing + "Jazz") + title3), "Song|Jazz||"},
            {"three letters in 2.3", tagged(frame(3, "TT2 ", nothing + "Song")), "Song|||"},
            {"plain size in 2.4", tagged("TALB" + big32(201) + QByteArray(203, '\0') + title4, 4), "Song|||"},
            {"UTF-16 without byte order", tagged(frame(3, "TIT2", "\1" + utf16("Größe"))), "Größe|||"},
            {"the other way round", tagged(frame(3, "TIT2", QByteArray("\1\0S\0o", 5))), "So|||"},
            {"described in UTF-16",
             tagged(frame(3, "COMM", "\1eng" + utf16("x") + QByteArray(2, '\0') + utf16("Hi"))), "||Hi|"},
            {"no sync bytes, 2.3",
             tagged(frame(3, "TIT2", "\1\xff\xfe" + utf16("A")).replace("\xff", QByteArray("\xff\0", 2)), 3,
                    char(0x80)),
             "A|||"},
            {"no sync bytes, 2.4",
             tagged(frame(4, "TIT2", QByteArray("\1\xff\0\xfe", 4) + utf16("A")), 4, char(0x80)), "A|||"},
            {"grouped, with a length, 2.4",
             tagged("TIT2" + synchsafe(10) + QByteArray("\0\x41g\0\0\0\5\0Song", 12), 4), "Song|||"},
            {"coded genre", genre("(17)"), "Song|Rock||"},
            {"coded and refined", genre("(4)(RX)Eurodisco"), "Song|Disco, Remix, Eurodisco||"},
            {"refined by itself", genre("(17)Rock"), "Song|Rock||"},
            {"remix", genre("(RX)"), "Song|Remix||"},
            {"cover", genre("(CR)"), "Song|Cover||"},
            {"no genre", genre("(255)"), "Song|||"},
            {"bracket in a genre", genre("((Foo) Bar"), "Song|(Foo) Bar||"},
            {"bracket that means nothing", genre("(Foo) Bar"), "Song|(Foo) Bar||"},
            {"bracket that does not close", genre("(RX"), "Song|(RX||"},
            {"date of 2.2", tagged(frame(2, "TYE", nothing + "2021") + frame(2, "TDA", nothing + "0503"), 2),
             "|||2021-03-05"},
            {"described comment alone", tagged(comment(QByteArray("by\0Hi", 5))), "||Hi|"},
            {"comment that a program wrote for itself", tagged(comment(QByteArray("iTunNORM\0 0A", 12))),
             "|||"},
            {"better comment last",
             tagged(comment(QByteArray("by\0Hi", 5)) + comment(QByteArray("\0Better", 7))), "||Better|"},
            {"35 MB of picture", tagged(frame(3, "APIC", anIcon + QByteArray(35'000'000, 'x')) + title3),
             "Song|||"},
            {"two tags", id3(title3, 15, 3) + tagged(frame(3, "TCON", nothing + "Jazz")), "Song|Jazz||"}};
        for (const auto &[name, bytes, expected] : rows)
            QCOMPARE(name + said(bytes).toUtf8(), QByteArray(name) + expected);
    }

    /// The cover is the front one wherever it stands, as large as it may be and however it is written.
    void findsTheCoverInOddId3()
    {
        const QByteArray front = QByteArray("\0image/png\0\3\0", 13) + "\x89PNG\r\n\x1a\nfront";
        const QByteArray back = QByteArray("\0image/png\0\4\0", 13) + "\x89PNG\r\n\x1a\nback";
        const std::pair<const char *, QByteArray> rows[]{
            {"first", tagged(frame(3, "APIC", front) + frame(3, "APIC", back))},
            {"second", tagged(frame(3, "APIC", back) + frame(3, "APIC", front))},
            {"first of two", tagged(frame(3, "APIC", front) + frame(3, "APIC", front + "later"))},
            {"of ID3v2.2", tagged(frame(2, "PIC", QByteArray("\0PNG\3\0", 6) + "\x89PNG\r\n\x1a\nfront"), 2)},
            {"described in UTF-16", tagged(frame(3, "APIC",
                                                 QByteArray("\1image/png\0\3\xff\xfe", 14) + utf16("d") +
                                                     QByteArray(2, '\0') + front.mid(13)))},
            {"no description in UTF-16, ended by half a zero",
             tagged(frame(3, "APIC", QByteArray("\1image/png\0\3\0", 13) + front.mid(13)))}};
        for (const auto &[name, bytes] : rows) {
            const auto tags = read(bytes);
            const auto cover = readEmbeddedArtwork(path());
            QVERIFY2(tags && cover && cover->bytes == "\x89PNG\r\n\x1a\nfront"_ba, name);
        }
        const auto tiff = read(tagged(frame(3, "APIC", QByteArray("\0image/tiff\0\3\0II*\0", 18))));
        QVERIFY(tiff && tiff->artwork.place == ArtworkSummary::Place::None); // would hide the folder's
    }

    /// By the player that wrote it: its value, and percent.
    void understandsTheStarsThatPlayersStore()
    {
        const QByteArray linear("a@b.example\0", 12);
        const QByteArray stepped("Windows Media Player 9 Series\0", 30);
        const std::tuple<QByteArray, int, int> rows[]{
            {linear, 1, 20},   {linear, 13, 10},   {linear, 31, 20},   {linear, 32, 40},  {linear, 54, 30},
            {linear, 95, 40},  {linear, 96, 60},   {linear, 118, 50},  {linear, 159, 60}, {linear, 160, 80},
            {linear, 186, 70}, {linear, 223, 80},  {linear, 224, 100}, {linear, 242, 90}, {linear, 255, 100},
            {linear, 51, 20},  {linear, 102, 40},  {linear, 204, 80},  {stepped, 51, 40}, {stepped, 102, 60},
            {stepped, 64, 40}, {stepped, 128, 60}, {stepped, 196, 80}};
        for (const auto &[player, value, percent] : rows)
            QCOMPARE(read(tagged(frame(3, "POPM", player + static_cast<char>(value))))->ratingPercent,
                     percent);
    }

    void refusesWhatIsNoFile()
    {
        m_folder.run("ln -s nowhere dangling.mp3; ln -s loop.mp3 loop.mp3; mkdir folder.mp3");
        m_folder.run("mkfifo pipe.mp3"); // would block whoever opens it plainly
        for (const char *name : {"absent.mp3", "dangling.mp3", "loop.mp3"})
            QCOMPARE(readTags(m_folder.path(name)).failure().kind, FailureKind::NotFound);
        for (const QByteArray &file :
             {m_folder.path("pipe.mp3"), m_folder.path("folder.mp3"), "/dev/zero"_ba})
            QCOMPARE(readTags(file).failure().kind, FailureKind::Unsupported);
    }

    void refusesAHugeEmptyFileAtOnce()
    {
        m_folder.writeBytes("huge.mp3", QByteArray("RIFF\xf8\xff\xff\x3fWAVE", 12));
        m_folder.run("truncate -s 1G huge.mp3");
        QCOMPARE(readTags(m_folder.path("huge.mp3")).failure().kind, FailureKind::Malformed);
    }

    /// Each file cut at many places, and with bytes changed in its headers: never a crash, never tags without
    /// a duration.
    void survivesDamage()
    {
        const auto names = QDir(QStringLiteral(TRACKWISE_TEST_DATA)).entryList(QDir::Files);
        for (const auto &name : names) {
            const auto whole = fixture(qPrintable(name));
            QRandomGenerator random(static_cast<quint32>(qHash(name, 1)));
            for (int round = 0; round < 60; ++round) {
                auto bytes = whole;
                if (round % 3 == 0)
                    bytes.truncate(random.bounded(static_cast<int>(bytes.size())));
                for (int change = round % 8; change > 0 && !bytes.isEmpty(); --change)
                    bytes[random.bounded(static_cast<int>(bytes.size()))] =
                        static_cast<char>(random.bounded(256));
                if (round % 5 == 0 && bytes.size() > 64) // sizes that overflow
                    bytes.replace(random.bounded(static_cast<int>(bytes.size()) - 8), 4,
                                  QByteArray(4, '\xff'));
                const auto tags = read(bytes);
                QVERIFY2(!tags || tags->durationSeconds > 0, qPrintable(name));
                (void)readEmbeddedArtwork(path());
            }
        }
    }
};

QTEST_APPLESS_MAIN(tst_DamagedMusic)
#include "tst_DamagedMusic.moc"
