// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <map>

namespace trackwise {

/// The rooms of the house and what each may know: a folder below src/ and the folders that it names itself.
/// What those name may be known too. The same table, with words, stands in docs/architecture.md.
using Plan = std::map<QString, QStringList>;

[[nodiscard]] const Plan &plan();

/// The innermost room that @p path (relative to src/) lies in; empty when it lies in none.
[[nodiscard]] QString roomOf(const Plan &plan, const QString &path);

/// What the text of the file @p path (relative to src/) names against the plan, one complaint each: rooms by
/// #include "..." in C++, by import in QML and by target in CMakeLists.txt.
[[nodiscard]] QStringList complaints(const Plan &plan, const QString &path, const QString &text);

} // namespace trackwise
