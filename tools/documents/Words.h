// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Syntax.h"

#include <QByteArray>
#include <QByteArrayList>

#include <vector>

/// The table of options and commands as the completions of each shell need it.
namespace trackwise::cli {

/// The comment that each file of ours has.
inline constexpr char licence[] = "# SPDX-License-Identifier: GPL-3.0-or-later\n";

[[nodiscard]] QByteArray bytes(std::string_view text);
/// A sentence between single quotes, as lists of a shell have it: without its full stop.
[[nodiscard]] QByteArray quoted(std::string_view sentence);

/// All options of a command.
[[nodiscard]] std::vector<Option> optionsOf(const Command &command);
/// The first words of commands; none twice.
[[nodiscard]] QByteArrayList firstWords();
/// Those of them that a second one follows.
[[nodiscard]] QByteArrayList groups();
/// The commands of a group; those of the empty one have no second word.
[[nodiscard]] std::vector<Command> commandsIn(std::string_view group);
[[nodiscard]] QByteArray wordsIn(const QByteArray &group);

} // namespace trackwise::cli
