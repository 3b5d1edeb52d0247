// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/WavFolder.h"
#include "device/library/tags/FileArtwork.h"
#include "device/library/tags/FolderListing.h"
#include "device/library/tags/TagReader.h"
#include "support/Test.h"

namespace {

const QByteArray png = QByteArray("\x89PNG\r\n\x1a\n", 8) + "picture";

} // namespace

class tst_FolderListing : public QObject
{
    Q_OBJECT

private:
    WavFolder m_folder;

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
        m_folder.writeBytes("cover.jpg", png); // the ending lies, the picture is one
        const auto artwork = FolderListing::ofFolder(m_folder.root()).artwork();
        QVERIFY(artwork.has_value());
        QCOMPARE(artwork->place, ArtworkSummary::Place::FolderImage);
        QCOMPARE(FileArtwork::fromSummary(*artwork)->read()->bytes, png);
        m_folder.writeBytes("cover.jpg", "<html>not found</html>");
        QVERIFY(!FolderListing::ofFolder(m_folder.root()).artwork());
        QVERIFY(!FileArtwork::fromSummary(*artwork)->read());
        m_folder.remove("cover.jpg");
        QVERIFY(!FileArtwork::fromSummary(*artwork)->read());
    }

    void takesLyricsFromTheFileBesideTheSong()
    {
        m_folder.run("cp " TRACKWISE_TEST_DATA "/info.wav bare.wav");
        m_folder.writeBytes("bare.txt", "plain");
        const auto folder = m_folder.root();
        QCOMPARE(readTags(m_folder.path("bare.wav"), FolderListing::ofFolder(folder))->lyrics, u"plain"_s);
        m_folder.writeBytes("bare.LRC", "[00:01.00]w\xf6rds\r\n"); // goes before .txt; not UTF-8
        QCOMPARE(readTags(m_folder.path("bare.wav"), FolderListing::ofFolder(folder))->lyrics, u"wörds"_s);
        QCOMPARE(readTags(m_folder.path("bare.wav"))->lyrics, std::nullopt);
        m_folder.run("cp " TRACKWISE_TEST_DATA "/xiph.flac full.flac"); // which has words of its own
        m_folder.writeBytes("full.lrc", "other words");
        const auto inside = readTags(m_folder.path("full.flac"), FolderListing::ofFolder(folder));
        QCOMPARE(inside->lyrics, u"First line\nSecond line"_s);
    }
};

QTEST_APPLESS_MAIN(tst_FolderListing)
#include "tst_FolderListing.moc"
