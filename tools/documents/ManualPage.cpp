// SPDX-License-Identifier: GPL-3.0-or-later
#include "ManualPage.h"

#include "Words.h"

#include <QLocale>

using namespace trackwise::cli;

namespace {

// Text as the language wants it: a new line for each sentence, none longer than a terminal's, and no macro.
QByteArray sentences(std::string_view text)
{
    constexpr qsizetype width = 80;
    QByteArray result;
    qsizetype column = 0;
    for (const QByteArray &word : bytes(text).replace('\\', "\\e").split(' ')) {
        const bool isNext = result.endsWith('.') || column + 1 + word.size() > width;
        if (!result.isEmpty())
            result += isNext ? '\n' : ' ';
        column = (isNext || result.isEmpty() ? 0 : column + 1) + word.size();
        result += word.startsWith('.') || word.startsWith('\'') ? "\\&" + word : word;
    }
    return result + '\n';
}

QByteArray flagOf(const Option &option)
{
    QByteArray flag = "Fl -" + bytes(option.name);
    if (option.letter != '\0')
        flag.prepend(QByteArray("Fl ") + option.letter + " , ");
    return option.takesValue() ? flag + " Ar " + bytes(option.value) : flag;
}

QByteArray optionItems(std::span<const Option> options)
{
    QByteArray items;
    for (const Option &option : options) {
        items += ".It " + flagOf(option) + '\n' + sentences(option.help);
        if (!option.choices.empty())
            items += sentences("One of " + bytes(option.choices).replace(" ", ", ").toStdString() + ".");
    }
    return items;
}

QByteArray commandLine(const Command &command)
{
    QByteArray line = command.group.empty() ? QByteArray("Cm ") : "Cm " + bytes(command.group) + ' ';
    line += bytes(command.word);
    return command.operands.empty() ? line : line + " Ar " + bytes(command.operands).replace("|", " | ");
}

QByteArray synopsis()
{
    QByteArray text = ".Nm\n.Op Ar option ...\n.Op Ar " + bytes(startOperand().name) + " ...\n";
    for (const Command &command : commands())
        text += ".Nm\n." + commandLine(command) + "\n.Op Ar option ...\n";
    return text;
}

QByteArray commandItems()
{
    QByteArray items;
    for (const Command &command : commands()) {
        items += ".It " + commandLine(command) + '\n' + sentences(command.description);
        if (!command.options.empty())
            items += ".Bl -tag -width Ds\n" + optionItems(command.options) + ".El\n";
    }
    return items;
}

} // namespace

QByteArray manualPage(const QByteArray &pattern, QDate date)
{
    const QByteArray day = QLocale::c().toString(date, QStringLiteral("MMMM d, yyyy")).toLatin1();
    const std::pair<QByteArray, QByteArray> parts[]{{"@DATE@\n", ".Dd " + day + '\n'},
                                                    {"@SYNOPSIS@\n", synopsis()},
                                                    {"@OPTIONS@\n", optionItems(startOptions())},
                                                    {"@COMMANDS@\n", commandItems()},
                                                    {"@COMMON@\n", optionItems(commonOptions())}};
    QByteArray page = pattern;
    for (const auto &[name, text] : parts)
        page.replace(name, text);
    return page;
}
