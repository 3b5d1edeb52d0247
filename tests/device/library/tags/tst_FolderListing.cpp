// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/FileArtwork.h"
#include "device/library/tags/FolderListing.h"
#include "device/library/tags/TagReader.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

const QByteArray png = QByteArray("\x89PNG\r\n\x1a\n", 8) + "picture";

} // namespace

class tst_FolderListing : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    [[nodiscard]] QByteArray path(const char *name) const
    {
        return QFile::encodeName(m_folder.path()) + '/' + name;
    }
    void write(const char *name, const QByteArray &bytes) const
    {
        QFile file(QFile::decodeName(path(name)));
        QVERIFY(file.open(QFile::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    void copySong(const char *fixture, const char *name) const
    {
        QVERIFY(QFile::copy(QStringLiteral(TRACKWISE_TEST_DATA "/") + QString::fromLatin1(fixture),
                            QFile::decodeName(path(name))));
    }

private Q_SLOTS:
    void choosesTheImage()
    {
        const auto image = [](const QByteArrayList &names) {
            return FolderListing("/music", {names.begin(), names.end()}).imageFile().value_or(QByteArray());
        };
        QCOMPARE(image({"a.mp3", "scan.jpg", "cover.txt", "cover"}), QByteArray());
        QCOMPARE(image({"folder.jpg", "AlbumArt.jpg", "front.png"}), "/music/folder.jpg"_ba);
        QCOMPARE(image({"cover.webp", "cover.png", "folder.jpg"}), "/music/cover.png"_ba);
        QCOMPARE(image({"x.flac", "COVER.JPEG"}), "/music/COVER.JPEG"_ba);
        QCOMPARE(image({"cover.jpg", "Cover.jpg"}), "/music/Cover.jpg"_ba);
        QCOMPARE(image({"Cover.jpg", "cover.jpg"}), "/music/Cover.jpg"_ba);
    }

    void givesAnImageByItsContent()
    {
        write("cover.jpg", png); // the ending lies, the picture is one
        const auto artwork = FolderListing::ofFolder(QFile::encodeName(m_folder.path())).artwork();
        QVERIFY(artwork.has_value());
        QCOMPARE(artwork->place, ArtworkSummary::Place::FolderImage);
        QCOMPARE(FileArtwork::fromSummary(*artwork)->read()->bytes, png);
        write("cover.jpg", "<html>not found</html>");
        QVERIFY(!FolderListing::ofFolder(QFile::encodeName(m_folder.path())).artwork());
        QVERIFY(!FileArtwork::fromSummary(*artwork)->read());
        QVERIFY(QFile::remove(QFile::decodeName(path("cover.jpg"))));
        QVERIFY(!FileArtwork::fromSummary(*artwork)->read());
    }

    void takesLyricsFromTheFileBesideTheSong()
    {
        copySong("info.wav", "bare.wav");
        write("bare.txt", "plain");
        const auto folder = QFile::encodeName(m_folder.path());
        QCOMPARE(readTags(path("bare.wav"), FolderListing::ofFolder(folder))->lyrics, u"plain"_s);
        write("bare.LRC", "[00:01.00]w\xf6rds\r\n"); // goes before .txt; not UTF-8
        QCOMPARE(readTags(path("bare.wav"), FolderListing::ofFolder(folder))->lyrics, u"wörds"_s);
        QCOMPARE(readTags(path("bare.wav"))->lyrics, std::nullopt);
    }

    void prefersEmbeddedLyrics()
    {
        copySong("xiph.flac", "full.flac");
        write("full.lrc", "other words");
        const auto listing = FolderListing::ofFolder(QFile::encodeName(m_folder.path()));
        QCOMPARE(readTags(path("full.flac"), listing)->lyrics, u"First line\nSecond line"_s);
    }
};

QTEST_APPLESS_MAIN(tst_FolderListing)
#include "tst_FolderListing.moc"
