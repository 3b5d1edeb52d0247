// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"
#include "support/Test.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <map>

namespace {

struct Room
{
    QStringList knows; ///< the rooms that it names itself; what those name may be known too
    bool isPlanned = false;
};
/// The rooms of the house, each by its folder below src/.
using Plan = std::map<QString, Room>;

/// The plan in the table of rooms of a page in Markdown: folder, what lives there, what it may know. A room
/// that is not built yet has "(planned)" behind its folder.
Plan planIn(const QString &page)
{
    static const QRegularExpression line(uR"(^\| `([a-z/]+)/`( \(planned\))? \|[^|]*\|([^|]*)\|$)"_s,
                                         QRegularExpression::MultilineOption);
    static const QRegularExpression name(u"`([a-z/]+)`"_s);
    Plan plan;
    for (const auto &cells : line.globalMatch(page)) {
        Room &room = plan[cells.captured(1)];
        room.isPlanned = cells.hasCaptured(2);
        for (const auto &match : name.globalMatch(cells.captured(3)))
            room.knows << match.captured(1);
    }
    return plan;
}

/// The innermost room that @p path (relative to src/) lies in; empty when it lies in none.
QString roomOf(const Plan &plan, const QString &path)
{
    QString room = path;
    while (room.contains(u'/')) {
        room.truncate(room.lastIndexOf(u'/'));
        if (plan.contains(room))
            return room;
    }
    return {};
}

void collect(const Plan &plan, const QString &room, QSet<QString> &known)
{
    if (known.contains(room) || !plan.contains(room))
        return;
    known.insert(room);
    for (const QString &named : plan.at(room).knows)
        collect(plan, named, known);
}

bool isOfDevice(const QString &room)
{
    return room == u"device" || room.startsWith(u"device/");
}

bool mayKnow(const Plan &plan, const QString &path, const QString &other)
{
    const QString room = roomOf(plan, path);
    // The composition root, and the build file that links what it makes and starts.
    if (path == u"app/main.cpp" || path.startsWith(u"app/composition/") || path == u"app/CMakeLists.txt")
        return plan.contains(other);
    if (isOfDevice(other) && !isOfDevice(room))
        return plan.at(room).knows.contains(other);
    QSet<QString> known;
    collect(plan, room, known);
    return known.contains(other);
}

// The room behind the CMake target trackwise_<name> or the QML module Trackwise.<Name>: both write its path
// without slashes. A part of a room of the device adds its own name.
QString roomNamed(const Plan &plan, const QString &name)
{
    QString found;
    for (const auto &[room, entry] : plan) { // a room comes before the rooms within it
        QString flat = room;
        flat.replace(u'/', u'_');
        const bool isPart = isOfDevice(room) && name.startsWith(flat + u'_');
        if (isPart || flat.compare(name, Qt::CaseInsensitive) == 0)
            found = room;
    }
    return found;
}

// What a view decides by itself: statements that branch or repeat, and a choice within a choice.
QStringList decisions(QString text)
{
    static const QRegularExpression aside(uR"(//[^\n]*|"(?:\\.|[^"\\\n])*")"_s);
    static const QRegularExpression decision(
        uR"(\b(?:if|switch|for|while)\s*\()"
        R"(|\?(?![.?])(?:[^:\n]*|[^\n]*: *\(?(?:[^?,()\n]|\([^()\n]*\))*)\?(?![.?]))"_s);
    text.remove(aside);
    QStringList found;
    for (const auto &match : decision.globalMatch(text))
        found << match.captured(0);
    return found;
}

/// What the text of the file @p path (relative to src/) names against the plan, one complaint each: rooms by
/// #include "..." in C++, by import in QML and by target in CMakeLists.txt. In QML also what is decided
/// there.
QStringList complaints(const Plan &plan, const QString &path, const QString &text)
{
    static const QRegularExpression include(u"^\\s*#\\s*include\\s+\"([^\"]+)\""_s,
                                            QRegularExpression::MultilineOption);
    static const QRegularExpression import(u"^\\s*import\\s+Trackwise\\.(\\w+)"_s,
                                           QRegularExpression::MultilineOption);
    static const QRegularExpression target(u"\\b(?:Module|Linked)::(\\w+)"_s);

    if (roomOf(plan, path).isEmpty())
        return {u"%1: lies in no room of the plan"_s.arg(path)};
    const bool isQml = path.endsWith(u".qml"_s);
    const bool isBuildFile = path.endsWith(u"CMakeLists.txt"_s);
    QStringList found;
    for (const auto &match : (isQml ? import : isBuildFile ? target : include).globalMatch(text)) {
        const QString name = match.captured(1);
        const QString room = isQml || isBuildFile ? roomNamed(plan, name) : roomOf(plan, name);
        if (name.endsWith(u".moc"_s) || mayKnow(plan, path, room))
            continue;
        const QString problem = room.isEmpty() ? u"names no room of the plan"_s : u"may not be known here"_s;
        found << u"%1: %2 %3"_s.arg(path, match.captured(0).trimmed(), problem);
    }
    for (const QString &decision : isQml ? decisions(text) : QStringList())
        found << u"%1: \"%2\" decides something, which is up to C++"_s.arg(path, decision);
    return found;
}

} // namespace

class tst_Rooms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString page = QStringLiteral(TRACKWISE_ROOT "/docs/architecture.md");
        m_plan = planIn(QString::fromUtf8(contentsOf(page)));
        QVERIFY(!m_plan.empty());
    }

    void tellsAllowedArrowsFromForbiddenOnes()
    {
        // The file, its line, and whether that is allowed.
        const std::tuple<QString, QString, bool> rows[]{
            {u"song/MediaItem.cpp"_s, uR"(#include "song/PersistentID.h")"_s, true},
            {u"song/MediaItem.cpp"_s, uR"(#include "platform/Result.h")"_s, false},
            {u"screens/Lyrics.cpp"_s, uR"(#include "song/MediaItem.h")"_s, true}, // through information
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
        };
        for (const auto &[path, line, isAllowed] : rows) {
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
            const QString file = files.next();
            const QString path = source.relativeFilePath(file);
            if (path.count(u'/') == 0 || path == u"device/CMakeLists.txt"_s)
                continue; // lists of folders
            found << complaints(m_plan, path, QString::fromUtf8(contentsOf(file)));
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
