// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/publishing/ArtworkFile.h"

#include "support/Covers.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

class tst_ArtworkFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheLastPicturesAsFiles()
    {
        const QTemporaryDir temporary;
        const QString folder = temporary.filePath(u"pictures"_s);
        const auto fileOf = [&folder](const QByteArray &bytes) {
            return artworkFile(MemoryArtwork(bytes), folder).value_or(u"/none"_s).section(u'/', -1);
        };
        for (const auto &[bytes, suffix] : {std::pair("\xff\xd8\xff"_ba, ".jpg"),
                                            {"\x89PNG\r\n"_ba, ".png"},
                                            {"GIF8"_ba, ".gif"},
                                            {"RIFF1234WEBP"_ba, ".webp"},
                                            {"BM"_ba, ".bmp"},
                                            {"RIFF1234WAVE"_ba, "none"},
                                            {"XXXX1234WEBP"_ba, "none"}})
            QVERIFY2(fileOf(bytes).endsWith(QLatin1String(suffix)), bytes);
        const QString first = fileOf("BM");
        for (int i = 0; i < 40; ++i) {
            QCOMPARE(fileOf("BM" + QByteArray::number(i)), fileOf("BM" + QByteArray::number(i)));
            QCOMPARE(fileOf("BM"), first); // used again and again
        }
        const QDir kept(folder);
        QCOMPARE(kept.entryList(QDir::Files).size(), 32);
        QVERIFY(kept.exists(first));
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkFile)
#include "tst_ArtworkFile.moc"
