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
        QCOMPARE(fileOf("RIFF1234WAVE"), u"none"_s);
        const QString first = fileOf("BM");
        for (int i = 0; i < 40; ++i) {
            QCOMPARE(fileOf("BM" + QByteArray::number(i)), fileOf("BM" + QByteArray::number(i)));
            QCOMPARE(fileOf("BM"), first); // used again and again
        }
        const QDir kept(folder);
        QCOMPARE(kept.entryList(QDir::Files).size(), 32);
        QVERIFY(kept.exists(first) && first.endsWith(u".bmp"));
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkFile)
#include "tst_ArtworkFile.moc"
