// SPDX-License-Identifier: GPL-3.0-or-later
#include "architecture/Rooms.h"

#include <QRegularExpression>
#include <QSet>

namespace trackwise {

namespace {

const QString linuxRooms = QStringLiteral("platform/linux");
const QString compositionFolder = QStringLiteral("app/composition/");

bool isCompositionRoot(const QString &path)
{
    return path == QStringLiteral("app/main.cpp") || path.startsWith(compositionFolder);
}

void collect(const Plan &plan, const QString &room, QSet<QString> &known)
{
    if (known.contains(room))
        return;
    known.insert(room);
    const auto entry = plan.find(room);
    if (entry == plan.end())
        return;
    for (const QString &named : entry->second)
        collect(plan, named, known);
}

bool isLinuxRoom(const QString &room)
{
    return room == linuxRooms || room.startsWith(linuxRooms + u'/');
}

bool mayKnow(const Plan &plan, const QString &path, const QString &other)
{
    const QString room = roomOf(plan, path);
    // Its build file links what the composition root makes and starts.
    if (isCompositionRoot(path) || path == QStringLiteral("app/CMakeLists.txt"))
        return plan.contains(other);
    if (isLinuxRoom(other) && !isLinuxRoom(room))
        return room == QStringLiteral("cli");
    QSet<QString> known;
    collect(plan, room, known);
    return known.contains(other);
}

// The room behind the CMake target trackwise_<name> or the QML module Trackwise.<Name>: both write its path
// without slashes. A part of a room of the device adds its own name.
QString roomNamed(const Plan &plan, const QString &name)
{
    for (const auto &[room, named] : plan) {
        QString flat = room;
        flat.replace(u'/', u'_');
        const bool isPart = isLinuxRoom(room) && name.startsWith(flat + u'_');
        if (isPart || flat.compare(name, Qt::CaseInsensitive) == 0)
            return room;
    }
    return {};
}

struct Mention
{
    QString written;
    QString room; ///< empty: no room of the plan
};

std::vector<Mention> mentions(const Plan &plan, const QString &path, const QString &text)
{
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s+\"([^\"]+)\""),
                                            QRegularExpression::MultilineOption);
    static const QRegularExpression import(QStringLiteral("^\\s*import\\s+Trackwise\\.(\\w+)"),
                                           QRegularExpression::MultilineOption);
    static const QRegularExpression target(QStringLiteral("\\b(?:Module|Linked)::(\\w+)"));

    const bool isQml = path.endsWith(QStringLiteral(".qml"));
    const bool isBuildFile = path.endsWith(QStringLiteral("CMakeLists.txt"));
    std::vector<Mention> found;
    auto matches = (isQml ? import : isBuildFile ? target : include).globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString name = match.captured(1);
        if (name.endsWith(QStringLiteral(".moc")))
            continue;
        found.push_back(
            {match.captured(0).trimmed(), isQml || isBuildFile ? roomNamed(plan, name) : roomOf(plan, name)});
    }
    return found;
}

} // namespace

const Plan &plan()
{
    static const Plan rooms = [] {
        const auto names = [](const char *list) {
            return QString::fromLatin1(list).split(u' ', Qt::SkipEmptyParts);
        };
        return Plan{
            {QStringLiteral("song"), {}},
            {QStringLiteral("preferences"), {}},
            {QStringLiteral("fingerprint"), {}},
            {QStringLiteral("ui"), {}},
            {QStringLiteral("platform"), names("song")},
            {QStringLiteral("artwork"), names("song platform ui")},
            {QStringLiteral("information"), names("song preferences artwork ui")},
            {QStringLiteral("screens"), names("information ui")},
            {QStringLiteral("lookup"), names("song platform")},
            {QStringLiteral("recognition"), names("lookup platform ui")},
            {QStringLiteral("picker"), names("song platform ui artwork")},
            {QStringLiteral("settings"), names("platform ui preferences")},
            {QStringLiteral("detail"), names("information screens lookup recognition picker settings")},
            {QStringLiteral("app"), names("detail fingerprint cli")},
            {QStringLiteral("cli"), names("information lookup")},
            {QStringLiteral("platform/linux/library"), names("platform")},
            {QStringLiteral("platform/linux/players"), names("platform")},
            {QStringLiteral("platform/linux/audio"), names("platform")},
            {QStringLiteral("platform/linux/integration"), names("platform")},
            // Puts the others together into one device for the composition root.
            {QStringLiteral("platform/linux/device"),
             names("platform/linux/library platform/linux/players platform/linux/audio "
                   "platform/linux/integration")},
            {QStringLiteral("platform/linux/recognizer"), names("platform fingerprint")},
        };
    }();
    return rooms;
}

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

QStringList complaints(const Plan &plan, const QString &path, const QString &text)
{
    if (roomOf(plan, path).isEmpty())
        return {QStringLiteral("%1: lies in no room of the plan").arg(path)};
    QStringList found;
    for (const auto &[written, room] : mentions(plan, path, text)) {
        if (room.isEmpty())
            found << QStringLiteral("%1: %2 names no room of the plan").arg(path, written);
        else if (!mayKnow(plan, path, room))
            found << QStringLiteral("%1: %2 may not be known to %3").arg(path, written, roomOf(plan, path));
    }
    return found;
}

} // namespace trackwise
