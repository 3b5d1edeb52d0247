// SPDX-License-Identifier: GPL-3.0-or-later
#include "architecture/Rooms.h"

#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QTest>

using namespace trackwise;
using namespace Qt::StringLiterals;

class tst_Rooms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QFile page(QStringLiteral(TRACKWISE_ROOT "/docs/architecture.md"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        m_plan = planIn(QString::fromUtf8(page.readAll()));
    }

    void tellsAllowedArrowsFromForbiddenOnes()
    {
        struct Arrow
        {
            QString path;
            QString line;
            bool isAllowed;
        };
        for (const auto &[path, line, isAllowed] : std::initializer_list<Arrow>{
                 {u"song/MediaItem.cpp"_s, uR"(#include "song/PersistentID.h")"_s, true},
                 {u"song/MediaItem.cpp"_s, uR"(#include "platform/Result.h")"_s, false},
                 {u"platform/MediaLibrary.h"_s, uR"(#include "song/MediaItem.h")"_s, true},
                 {u"screens/Lyrics.cpp"_s, uR"(#include "song/MediaItem.h")"_s, true}, // through information
                 {u"lookup/Link.cpp"_s, uR"(#include "ui/Theme.h")"_s, false},
                 {u"song/MediaItem.cpp"_s, uR"(  # include  "platform/Result.h")"_s, false},
                 {u"song/MediaItem.cpp"_s, uR"(#include "PersistentID.h")"_s, false}, // not from src/
                 {u"song/MediaItem.cpp"_s, uR"(#include "../platform/Result.h")"_s, false},
                 {u"song/MediaItem.cpp"_s, uR"(#include "MediaItem.moc")"_s, true},
                 {u"song/MediaItem.cpp"_s, u"#include <QString>"_s, true},
                 {u"app/main.cpp"_s, uR"(#include "device/library/SongStore.h")"_s, true},
                 {u"app/composition/Launch.cpp"_s, uR"(#include "device/library/SongStore.h")"_s, true},
                 {u"app/Scene.cpp"_s, uR"(#include "device/library/SongStore.h")"_s, false},
                 {u"cli/Export.cpp"_s, uR"(#include "device/library/SongStore.h")"_s, true},
                 {u"detail/Detail.cpp"_s, uR"(#include "device/players/Mpris.h")"_s, false},
                 {u"platform/MediaLibrary.h"_s, uR"(#include "device/library/SongStore.h")"_s, false},
                 {u"device/players/Mpris.h"_s, uR"(#include "device/library/SongStore.h")"_s, false},
                 {u"device/library/tags/Mp4.cpp"_s, uR"(#include "device/library/Tags.h")"_s, true},
                 {u"device/library/Tags.cpp"_s, uR"(#include "fingerprint/Peaks.h")"_s, false},
                 {u"device/recognizer/Index.cpp"_s, uR"(#include "fingerprint/Peaks.h")"_s, true},
                 {u"picker/Picker.qml"_s, u"import Trackwise.Artwork"_s, true},
                 {u"artwork/Tile.qml"_s, u"import Trackwise.Information"_s, false},
                 {u"artwork/Tile.qml"_s, u"import Trackwise.Nowhere"_s, false},
                 {u"ui/Bar.qml"_s, u"onShown: if (a) b()"_s, false},
                 {u"ui/Bar.qml"_s, u"// if (a) b()"_s, true},
                 {u"ui/Bar.qml"_s, u"text: \"if (a) b ? c : d ?\""_s, true},
                 {u"ui/Bar.qml"_s, u"x: a ? 1 : b(c) ? 2 : 3"_s, false},
                 {u"ui/Bar.qml"_s, u"x: a ? (b ? 1 : 2) : 3"_s, false},
                 {u"ui/Bar.qml"_s, u"x: a ? 1 : (b ? 2 : 3)"_s, false},
                 {u"ui/Bar.qml"_s, u"x: f(a?.b ? 1 : 2, c ? 3 : d ?? 4)"_s, true},
                 {u"artwork/CMakeLists.txt"_s, u"USES Module::platform Linked::ui"_s, true},
                 {u"artwork/CMakeLists.txt"_s, u"PRIVATE_USES Module::detail"_s, false},
                 {u"app/CMakeLists.txt"_s, u"Linked::device_library"_s, true},
                 {u"detail/CMakeLists.txt"_s, u"Module::device_library"_s, false},
                 {u"utils/Strings.cpp"_s, u""_s, false},
             }) {
            const QStringList found = complaints(m_plan, path, u"// first\n"_s + line + u'\n');
            QVERIFY2(found.isEmpty() == isAllowed, qPrintable(path + u": "_s + line));
        }
    }

    void arrowsPointOneWay()
    {
        for (const auto &[name, room] : m_plan) {
            for (const QString &other : room.knows) {
                QVERIFY2(m_plan.contains(other), qPrintable(other));
                const QString path = other + u"/x.h"_s;
                const QString include = u"#include \"%1/y.h\""_s.arg(name);
                QVERIFY2(!complaints(m_plan, path, include).isEmpty(), qPrintable(name + u' ' + other));
            }
        }
    }

    void everyFileKeepsToThePlan()
    {
        const QDir source(QStringLiteral(TRACKWISE_ROOT "/src"));
        QStringList found;
        QSet<QString> rooms;
        QDirIterator files(source.path(), {u"*.h"_s, u"*.cpp"_s, u"*.qml"_s, u"CMakeLists.txt"_s},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            const QString path = source.relativeFilePath(file.fileName());
            if (path.count(u'/') == 0 || path == QStringLiteral("device/CMakeLists.txt"))
                continue; // lists of folders
            QVERIFY(file.open(QIODevice::ReadOnly));
            found << complaints(m_plan, path, QString::fromUtf8(file.readAll()));
            rooms << roomOf(m_plan, path);
        }
        for (const auto &[name, room] : m_plan)
            QVERIFY2(rooms.contains(name) != room.isPlanned, qPrintable(name));
        QVERIFY2(found.isEmpty(), qPrintable(u'\n' + found.join(u'\n')));
    }

private:
    Plan m_plan;
};

QTEST_GUILESS_MAIN(tst_Rooms)
#include "tst_Rooms.moc"
