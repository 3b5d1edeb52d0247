// SPDX-License-Identifier: GPL-3.0-or-later
#include "Words.h"

namespace trackwise::cli {

QByteArray bytes(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QByteArray quoted(std::string_view sentence)
{
    QByteArray text = bytes(sentence);
    if (text.endsWith('.'))
        text.chop(1);
    return '\'' + text.replace("'", "'\\''") + '\'';
}

std::vector<Option> optionsOf(const Command &command)
{
    std::vector<Option> options(command.options.begin(), command.options.end());
    options.insert(options.end(), commonOptions().begin(), commonOptions().end());
    return options;
}

QByteArrayList firstWords()
{
    QByteArrayList found;
    for (const Command &command : commands())
        if (const QByteArray word = bytes(command.group.empty() ? command.word : command.group);
            !found.contains(word))
            found << word;
    return found;
}

std::vector<Command> commandsIn(std::string_view group)
{
    std::vector<Command> found;
    for (const Command &command : commands())
        if (command.group == group)
            found.push_back(command);
    return found;
}

QByteArrayList groups()
{
    QByteArrayList found;
    for (const Command &command : commands())
        if (!command.group.empty() && !found.contains(bytes(command.group)))
            found << bytes(command.group);
    return found;
}

QByteArray wordsIn(const QByteArray &group)
{
    QByteArrayList found;
    for (const Command &command : commandsIn(group.toStdString()))
        found << bytes(command.word);
    return found.join(' ');
}

} // namespace trackwise::cli
