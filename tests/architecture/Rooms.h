// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <map>

namespace trackwise {

struct Room
{
    QStringList knows; ///< the rooms that it names itself; what those name may be known too
    bool isPlanned = false;
};
/// The rooms of the house, each by its folder below src/.
using Plan = std::map<QString, Room>;

/// The plan in the table of rooms of a page in Markdown: folder, what lives there, what it may know. A room
/// that is not built yet has "(planned)" behind its folder.
[[nodiscard]] Plan planIn(const QString &page);

/// The innermost room that @p path (relative to src/) lies in; empty when it lies in none.
[[nodiscard]] QString roomOf(const Plan &plan, const QString &path);

/// What the text of the file @p path (relative to src/) names against the plan, one complaint each: rooms by
/// #include "..." in C++, by import in QML and by target in CMakeLists.txt. In QML also what is decided
/// there.
[[nodiscard]] QStringList complaints(const Plan &plan, const QString &path, const QString &text);

} // namespace trackwise
