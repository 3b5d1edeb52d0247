// SPDX-License-Identifier: GPL-3.0-or-later
#include "architecture/Rooms.h"

#include <QRegularExpression>
#include <QSet>

namespace trackwise {

namespace {

const QString deviceFloor = QStringLiteral("device");
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
    for (const QString &named : entry->second.knows)
        collect(plan, named, known);
}

bool isOfDevice(const QString &room)
{
    return room == deviceFloor || room.startsWith(deviceFloor + u'/');
}

bool mayKnow(const Plan &plan, const QString &path, const QString &other)
{
    const QString room = roomOf(plan, path);
    // Its build file links what the composition root makes and starts.
    if (isCompositionRoot(path) || path == QStringLiteral("app/CMakeLists.txt"))
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

// What a view decides by itself: statements that branch or repeat, and a choice within a choice.
QStringList decisions(QString text)
{
    static const QRegularExpression aside(QStringLiteral(R"(//[^\n]*|"(?:\\.|[^"\\\n])*")"));
    static const QRegularExpression decision(
        QStringLiteral(R"(\b(?:if|switch|for|while)\s*\()"
                       R"(|\?(?![.?])(?:[^:\n]*|[^\n]*: *\(?(?:[^?,()\n]|\([^()\n]*\))*)\?(?![.?]))"));
    text.remove(aside);
    QStringList found;
    auto matches = decision.globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured(0);
    return found;
}

} // namespace

Plan planIn(const QString &page)
{
    static const QRegularExpression line(
        QStringLiteral(R"(^\| `([a-z/]+)/`( \(planned\))? \|[^|]*\|([^|]*)\|$)"),
        QRegularExpression::MultilineOption);
    static const QRegularExpression name(QStringLiteral("`([a-z/]+)`"));
    Plan plan;
    auto lines = line.globalMatch(page);
    while (lines.hasNext()) {
        const QRegularExpressionMatch cells = lines.next();
        Room &room = plan[cells.captured(1)];
        room.isPlanned = cells.hasCaptured(2);
        auto names = name.globalMatch(cells.captured(3));
        while (names.hasNext())
            room.knows << names.next().captured(1);
    }
    return plan;
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
    if (path.endsWith(QStringLiteral(".qml"))) {
        for (const QString &decision : decisions(text))
            found << QStringLiteral("%1: \"%2\" decides something, which is up to C++").arg(path, decision);
    }
    return found;
}

} // namespace trackwise
