// SPDX-License-Identifier: GPL-3.0-or-later
#include "architecture/Rooms.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace trackwise;

class tst_Rooms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsAllowedArrowsFromForbiddenOnes_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("isAllowed");
        const auto row = [](const char *path, const char *line, bool isAllowed) {
            QTest::addRow("%s: %s", path, line)
                << QString::fromLatin1(path) << QString::fromLatin1(line) << isAllowed;
        };
        row("song/MediaItem.cpp", "#include \"song/PersistentID.h\"", true);
        row("song/MediaItem.cpp", "#include \"platform/Result.h\"", false);
        row("platform/MediaLibrary.h", "#include \"song/MediaItem.h\"", true);
        row("screens/Lyrics.cpp", "#include \"song/MediaItem.h\"", true); // through information
        row("lookup/Link.cpp", "#include \"ui/Theme.h\"", false);
        row("song/MediaItem.cpp", "  # include  \"platform/Result.h\"", false);
        row("song/MediaItem.cpp", "#include \"PersistentID.h\"", false); // not from src/
        row("song/MediaItem.cpp", "#include \"../platform/Result.h\"", false);
        row("song/MediaItem.cpp", "#include \"MediaItem.moc\"", true);
        row("song/MediaItem.cpp", "#include <QString>", true);
        row("app/main.cpp", "#include \"platform/linux/library/SongStore.h\"", true);
        row("app/composition/Launch.cpp", "#include \"platform/linux/library/SongStore.h\"", true);
        row("app/Scene.cpp", "#include \"platform/linux/library/SongStore.h\"", false);
        row("cli/Export.cpp", "#include \"platform/linux/library/SongStore.h\"", true);
        row("detail/Detail.cpp", "#include \"platform/linux/players/Mpris.h\"", false);
        row("platform/MediaLibrary.h", "#include \"platform/linux/library/SongStore.h\"", false);
        row("platform/linux/players/Mpris.h", "#include \"platform/linux/library/SongStore.h\"", false);
        row("platform/linux/library/tags/Mp4.cpp", "#include \"platform/linux/library/Tags.h\"", true);
        row("platform/linux/library/Tags.cpp", "#include \"fingerprint/Peaks.h\"", false);
        row("platform/linux/recognizer/Index.cpp", "#include \"fingerprint/Peaks.h\"", true);
        row("picker/Picker.qml", "import Trackwise.Artwork", true);
        row("artwork/Tile.qml", "import Trackwise.Information", false);
        row("artwork/Tile.qml", "import Trackwise.Nowhere", false);
        row("artwork/CMakeLists.txt", "USES Module::platform Linked::ui", true);
        row("artwork/CMakeLists.txt", "PRIVATE_USES Module::detail", false);
        row("app/CMakeLists.txt", "Linked::platform_linux_library", true);
        row("detail/CMakeLists.txt", "Module::platform_linux_library", false);
        row("utils/Strings.cpp", "", false);
    }
    void tellsAllowedArrowsFromForbiddenOnes()
    {
        QFETCH(QString, path);
        QFETCH(QString, line);
        QFETCH(bool, isAllowed);
        const QStringList found = complaints(plan(), path, QStringLiteral("// first\n") + line + u'\n');
        QCOMPARE(found.isEmpty(), isAllowed);
    }

    void arrowsPointOneWay()
    {
        const Plan &rooms = plan();
        for (const auto &[room, named] : rooms) {
            for (const QString &other : named) {
                QVERIFY2(rooms.contains(other), qPrintable(other));
                const QString path = other + QStringLiteral("/x.h");
                const QString include = QStringLiteral("#include \"%1/y.h\"").arg(room);
                QVERIFY2(!complaints(rooms, path, include).isEmpty(), qPrintable(room + u' ' + other));
            }
        }
    }

    void everyFileKeepsToThePlan()
    {
        const QDir source(QStringLiteral(TRACKWISE_SOURCE_FOLDER));
        QStringList found;
        int seen = 0;
        QDirIterator files(source.path(),
                           {QStringLiteral("*.h"), QStringLiteral("*.cpp"), QStringLiteral("*.qml"),
                            QStringLiteral("CMakeLists.txt")},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            const QString path = source.relativeFilePath(file.fileName());
            if (path.count(u'/') == 0 || path == QStringLiteral("platform/linux/CMakeLists.txt"))
                continue; // lists of folders
            QVERIFY(file.open(QIODevice::ReadOnly));
            found << complaints(plan(), path, QString::fromUtf8(file.readAll()));
            ++seen;
        }
        QVERIFY(seen > 0);
        QVERIFY2(found.isEmpty(), qPrintable(u'\n' + found.join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(tst_Rooms)
#include "tst_Rooms.moc"
