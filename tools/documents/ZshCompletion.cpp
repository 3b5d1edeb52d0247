// SPDX-License-Identifier: GPL-3.0-or-later
#include "Completions.h"
#include "Words.h"

using namespace trackwise::cli;

namespace {

QByteArray zshAction(const Option &option)
{
    if (!option.choices.empty())
        return ":(" + bytes(option.choices) + ')';
    switch (option.completion) {
    case Completion::Nothing:
        return ": ";
    case Completion::Files:
        return ":_files";
    case Completion::Folders:
        return ":_files -/";
    }
    Q_UNREACHABLE();
}

// Within brackets and between colons, these mean something.
QByteArray zshText(QByteArray quotedText)
{
    return quotedText.replace("[", "\\[").replace("]", "\\]").replace(":", "\\:");
}

QByteArray zshOption(const Option &option)
{
    const QByteArray about = zshText(quoted(option.help));
    const QByteArray help = '[' + about.mid(1, about.size() - 2) + ']';
    const QByteArray name = "--" + bytes(option.name);
    if (option.letter != '\0')
        return "'(-" + QByteArray(1, option.letter) + ' ' + name + ")'{-" + option.letter + ',' + name +
               "}'" + help + '\'';
    const QByteArray begin = option.name == "folder" ? "'*" : "'"; // may be given several times
    if (option.takesValue())
        return begin + name + "=" + help + ':' + bytes(option.value) + zshAction(option) + '\'';
    return begin + name + help + '\'';
}

QByteArray zshArguments(std::span<const Option> options, const QByteArray &operands)
{
    QByteArray text = "_arguments -s";
    for (const Option &option : options)
        text += " \\\n            " + zshOption(option);
    return operands.isEmpty() ? text : text + " \\\n            " + operands;
}

QByteArray zshOperands(const Command &command)
{
    if (command.operands.empty())
        return {};
    return "'*:" + bytes(command.operands) +
           zshAction({.name = {}, .value = {}, .help = {}, .completion = command.completion}) + '\'';
}

QByteArray zshCommands(const QByteArray &group)
{
    QByteArray text;
    for (const Command &command : commandsIn(group.toStdString())) {
        const QByteArray about = quoted(command.summary);
        text += " '" + bytes(command.word) + ':' + about.mid(1);
    }
    return text;
}

QByteArray zshCase(const Command &command)
{
    return "        " + bytes(command.word) + ")\n            " +
           zshArguments(optionsOf(command), zshOperands(command)) + " ;;\n";
}

} // namespace

QByteArray zshCompletion()
{
    QByteArray first = zshCommands({});
    QByteArray cases;
    for (const Command &command : commandsIn({}))
        cases += zshCase(command);
    for (const QByteArray &group : groups()) {
        first += " '" + group + ":the " + group + "'\\''s commands'";
        QByteArray inner;
        for (const Command &command : commandsIn(group.toStdString()))
            inner += zshCase(command);
        cases +=
            "        " + group + ")\n            local -a inner=(" + zshCommands(group) +
            ")\n            if ((CURRENT == 2)); then\n                _describe command inner\n"
            "                return\n            fi\n            shift words\n            ((CURRENT--))\n"
            "            case $words[1] in\n" +
            inner + "            esac ;;\n";
    }
    QByteArray text = "#compdef trackwise\n";
    text += licence;
    text += "# What zsh offers after \"trackwise\".\n_trackwise() {\n    local -a first=(" + first + ")\n";
    text += R"sh(    if ((CURRENT > 2)) && [[ @FIRST@ == *" $words[2] "* ]]; then
        shift words
        ((CURRENT--))
        case $words[1] in
)sh";
    text.replace("@FIRST@", "\" " + firstWords().join(' ') + " \"");
    const QByteArray operand = "'*:" + bytes(startOperand().name) + ":_files'";
    return text + cases +
           "        esac\n        return\n    fi\n    ((CURRENT > 2)) || _describe command first\n    " +
           zshArguments(startOptions(), operand) + "\n}\n_trackwise \"$@\"\n";
}
