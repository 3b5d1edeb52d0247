// SPDX-License-Identifier: GPL-3.0-or-later
#include "Completions.h"
#include "Words.h"

using namespace trackwise::cli;

namespace {

QByteArray fishOption(const QByteArray &condition, const Option &option)
{
    QByteArray line = "complete -c trackwise -n '" + condition + "' -l " + bytes(option.name);
    if (option.letter != '\0')
        line += QByteArray(" -s ") + option.letter;
    if (!option.choices.empty())
        line += " -x -a '" + bytes(option.choices) + '\'';
    else if (option.completion == Completion::Folders)
        line += " -x -a '(__fish_complete_directories)'";
    else if (option.takesValue())
        line += option.completion == Completion::Files ? " -r -F" : " -x";
    return line + " -d " + quoted(option.help) + '\n';
}

QByteArray fishWord(const QByteArray &condition, std::string_view word, std::string_view summary)
{
    return "complete -c trackwise -f -n '" + condition + "' -a " + bytes(word) + " -d " + quoted(summary) +
           '\n';
}

} // namespace

QByteArray fishCompletion()
{
    const QByteArray window = "not __fish_seen_subcommand_from " + firstWords().join(' ');
    QByteArray text = licence;
    text += "# What fish offers after \"trackwise\".\n";
    for (const Option &option : startOptions())
        text += fishOption(window, option);
    for (const QByteArray &group : groups()) {
        const QByteArray inGroup = "__fish_seen_subcommand_from " + group;
        text +=
            fishWord("__fish_use_subcommand", group.toStdString(), "commands of the " + group.toStdString());
        text += "complete -c trackwise -f -n '" + inGroup + "'\n";
        for (const Command &command : commandsIn(group.toStdString()))
            text += fishWord(inGroup + "; and not __fish_seen_subcommand_from " + wordsIn(group),
                             command.word, command.summary);
    }
    for (const Command &command : commands()) {
        QByteArray condition = "__fish_seen_subcommand_from " + bytes(command.word);
        if (command.group.empty())
            text += fishWord("__fish_use_subcommand", command.word, command.summary);
        else
            condition.prepend("__fish_seen_subcommand_from " + bytes(command.group) + "; and ");
        for (const Option &option : optionsOf(command))
            text += fishOption(condition, option);
    }
    return text;
}
