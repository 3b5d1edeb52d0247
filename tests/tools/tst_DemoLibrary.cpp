// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <fileref.h>
#include <tpropertymap.h>

using namespace Qt::StringLiterals;

class tst_DemoLibrary : public QObject
{
    Q_OBJECT

private:
    QMap<QString, TagLib::FileRef> m_songs;

    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] QSet<QString> propertiesOf(const QString &title) const
    {
        QSet<QString> names;
        for (const TagLib::FileRef &song : m_songs) {
            if (QString::fromStdWString(song.tag()->title().toWString()) != title)
                continue;
            for (const auto &property : song.file()->properties())
                names.insert(QString::fromStdWString(property.first.toWString()));
        }
        return names;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QDirIterator files(QStringLiteral(DEMO_LIBRARY_FOLDER),
                           {u"*.mp3"_s, u"*.flac"_s, u"*.ogg"_s, u"*.opus"_s, u"*.m4a"_s, u"*.wav"_s},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            m_songs.insert(path, TagLib::FileRef(QFile::encodeName(path).constData()));
        }
    }

    void holdsADozenShortPiecesOfEveryFormat()
    {
        QCOMPARE(m_songs.size(), 12);
        QSet<QString> formats;
        qint64 size = 0;
        for (auto song = m_songs.begin(); song != m_songs.end(); ++song) {
            QVERIFY2(!song->isNull() && song->audioProperties(), qPrintable(song.key()));
            const int seconds = song->audioProperties()->lengthInSeconds();
            QVERIFY2(seconds >= 15 && seconds <= 60, qPrintable(song.key()));
            formats.insert(QFileInfo(song.key()).suffix());
            size += QFileInfo(song.key()).size();
        }
        QCOMPARE(formats.size(), 6);
        QVERIFY2(size < 6'500'000, qPrintable(QString::number(size)));
    }

    void hasOneSongWithEverythingAndOneWithNothing()
    {
        const QSet<QString> everything = propertiesOf(u"Harbour Lights"_s);
        for (const char *name :
             {"TITLE", "ARTIST", "ALBUM", "ALBUMARTIST", "COMPOSER", "GENRE", "DATE", "GROUPING",
              "TRACKNUMBER", "DISCNUMBER", "COMPILATION", "ITUNESADVISORY", "FMPS_RATING", "BPM",
              "FMPS_PLAYCOUNT", "COMMENT", "LYRICS", "ITUNESCATALOGID"})
            QVERIFY2(everything.contains(QLatin1String(name)), name);
        QCOMPARE(propertiesOf(QString()), QSet<QString>());
        QVERIFY(m_songs.contains(QStringLiteral(DEMO_LIBRARY_FOLDER "/untitled.wav")));
    }

    void comesOutTheSameEachTime()
    {
        const QTemporaryDir folder;
        for (const auto &[piece, file] :
             {std::pair(u"vinterlys"_s, u"Åse Brønn/Frost på Ruten/02 Vinterlys.ogg"_s),
              std::pair(u"paper-kites"_s, u"Ines Marlow/Low Water/01 Paper Kites.flac"_s),
              std::pair(u"untitled"_s, u"untitled.wav"_s)}) {
            QCOMPARE(QProcess::execute(QStringLiteral(DEMO_LIBRARY_MAKER), {folder.path(), piece}), 0);
            const QByteArray made = contents(folder.filePath(file));
            QVERIFY2(!made.isEmpty() && made == contents(QStringLiteral(DEMO_LIBRARY_FOLDER "/") + file),
                     qPrintable(file));
        }
        QVERIFY(QProcess::execute(QStringLiteral(DEMO_LIBRARY_MAKER), {folder.path(), u"nocturne"_s}) != 0);
    }
};

QTEST_GUILESS_MAIN(tst_DemoLibrary)
#include "tst_DemoLibrary.moc"
