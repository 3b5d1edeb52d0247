// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

/// What can be written after the program's name: the one table behind the reading of it, "--help", the manual
/// page and the completions of the shells. Plain C++, so that the tool which writes the latter two while the
/// program is built needs nothing else of it.
namespace trackwise::cli {

/// What a shell offers for a value or an operand.
enum class Completion { Nothing, Files, Folders };

struct Option
{
    std::string_view name;    ///< without the dashes
    std::string_view value;   ///< what follows it, such as "FILE"; empty: nothing
    std::string_view help;    ///< a sentence
    std::string_view choices; ///< all values that there are, with spaces between them; empty: any
    Completion completion = Completion::Nothing;
    char letter = '\0'; ///< of its short form; none

    [[nodiscard]] bool takesValue() const { return !value.empty(); }
};

enum class CommandName {
    Information,
    Identify,
    Scan,
    Status,
    Search,
    Problems,
    Export,
    CatalogStatus,
    CatalogBuild,
    CatalogExport,
    CatalogAdd,
    CatalogRemove,
};

/// Something that the program does without a window.
struct Command
{
    CommandName name;
    Completion completion;  ///< of the operands
    std::string_view group; ///< the word before its own; empty: none
    std::string_view word;
    std::string_view operands; ///< such as "WORDS"; empty: none
    size_t fewestOperands;
    size_t mostOperands;
    std::span<const Option> options; ///< besides those of all commands
    std::string_view summary;        ///< for lists of commands
    std::string_view description;    ///< sentences
};

/// Of a start with a window.
[[nodiscard]] std::span<const Option> startOptions();
/// What such a start may be given besides: "ADDRESS", and what that is.
[[nodiscard]] const Option &startOperand();
[[nodiscard]] std::span<const Command> commands();
/// Of each command.
[[nodiscard]] std::span<const Option> commonOptions();

} // namespace trackwise::cli
