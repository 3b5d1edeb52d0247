// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"
#include "support/Test.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

#include <fileref.h>
#include <tpropertymap.h>

class tst_DemoLibrary : public QObject
{
    Q_OBJECT

private:
    static QSet<QString> propertiesOf(const char *path)
    {
        QSet<QString> names;
        for (const auto &property : TagLib::FileRef(path).file()->properties())
            names.insert(QString::fromStdWString(property.first.toWString()));
        return names;
    }

private Q_SLOTS:
    void holdsADozenShortPiecesOfEveryFormat()
    {
        QDirIterator files(QStringLiteral(DEMO_LIBRARY_FOLDER),
                           {u"*.mp3"_s, u"*.flac"_s, u"*.ogg"_s, u"*.opus"_s, u"*.m4a"_s, u"*.wav"_s},
                           QDir::Files, QDirIterator::Subdirectories);
        int songs = 0;
        QSet<QString> formats;
        qint64 size = 0;
        for (; files.hasNext(); ++songs) {
            const QByteArray path = QFile::encodeName(files.next());
            const TagLib::FileRef song(path.constData());
            QVERIFY2(!song.isNull() && song.audioProperties(), path);
            const int seconds = song.audioProperties()->lengthInSeconds();
            QVERIFY2(seconds >= 15 && seconds <= 60, path);
            formats.insert(files.fileInfo().suffix());
            size += files.fileInfo().size();
        }
        QCOMPARE(songs, 12);
        QCOMPARE(formats.size(), 6);
        QVERIFY2(size < 6'500'000, qPrintable(QString::number(size)));
    }

    void hasOneSongWithEverythingAndOneWithNothing()
    {
        const QSet<QString> everything =
            propertiesOf(DEMO_LIBRARY_FOLDER "/Various Artists/Small Hours/03 Harbour Lights.mp3");
        for (const char *name :
             {"TITLE", "ARTIST", "ALBUM", "ALBUMARTIST", "COMPOSER", "GENRE", "DATE", "GROUPING",
              "TRACKNUMBER", "DISCNUMBER", "COMPILATION", "ITUNESADVISORY", "FMPS_RATING", "BPM",
              "FMPS_PLAYCOUNT", "COMMENT", "LYRICS", "ITUNESCATALOGID"})
            QVERIFY2(everything.contains(QLatin1String(name)), name);
        QCOMPARE(propertiesOf(DEMO_LIBRARY_FOLDER "/untitled.wav"), QSet<QString>());
    }

    void comesOutTheSameEachTime()
    {
        const QTemporaryDir folder;
        for (const auto &[piece, file] :
             {std::pair(u"vinterlys"_s, u"Åse Brønn/Frost på Ruten/02 Vinterlys.ogg"_s),
              std::pair(u"paper-kites"_s, u"Ines Marlow/Low Water/01 Paper Kites.flac"_s),
              std::pair(u"untitled"_s, u"untitled.wav"_s)}) {
            QCOMPARE(QProcess::execute(QStringLiteral(DEMO_LIBRARY_MAKER), {folder.path(), piece}), 0);
            const QByteArray made = contentsOf(folder.filePath(file));
            QVERIFY2(!made.isEmpty() && made == contentsOf(QStringLiteral(DEMO_LIBRARY_FOLDER "/") + file),
                     qPrintable(file));
        }
        QVERIFY(QProcess::execute(QStringLiteral(DEMO_LIBRARY_MAKER), {folder.path(), u"nocturne"_s}) != 0);
    }
};

QTEST_GUILESS_MAIN(tst_DemoLibrary)
#include "tst_DemoLibrary.moc"
