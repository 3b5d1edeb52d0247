// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"

#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/Syntax.h"

#include <QByteArrayList>
#include <QFile>

#include <algorithm>
#include <cstdio>

namespace trackwise::cli {

namespace {

QByteArray bytes(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

// The words that make the command, and what follows them.
QByteArray formOf(const Command &command)
{
    QByteArrayList words{"trackwise", bytes(command.group), bytes(command.word), bytes(command.operands)};
    words.removeAll(QByteArray());
    return words.join(' ');
}

// In lines of a width that reads well.
QByteArray wrapped(const QByteArray &text)
{
    constexpr qsizetype width = 100;
    QByteArray result;
    qsizetype column = 0;
    for (const QByteArray &word : text.split(' ')) {
        const bool isFull = column + word.size() > width;
        if (column > 0)
            result += isFull ? '\n' : ' ';
        result += word;
        column = (isFull ? 0 : column) + word.size() + 1;
    }
    return result + '\n';
}

QByteArray helpOf(const Command &command)
{
    std::vector<Option> options(command.options.begin(), command.options.end());
    options.insert(options.end(), commonOptions().begin(), commonOptions().end());
    QByteArray text =
        "usage: " + formOf(command) + " [options]\n\n" + wrapped(bytes(command.description)) + '\n';
    for (const Option &option : options) {
        const QByteArray form = "--" + bytes(option.name) + ' ' + bytes(option.value);
        text += "  " + form.leftJustified(16) + bytes(option.help) + '\n';
    }
    return text;
}

ExitCode carryOut(CommandName name, const Call &call)
{
    switch (name) {
    case CommandName::Information:
        return showInformation(call);
    case CommandName::Identify:
        return call.wantsListening ? identifyWhatIsHeard(call) : identifyClips(call);
    case CommandName::Scan:
        return scanLibrary(call);
    case CommandName::Status:
        return showStatus(call);
    case CommandName::Search:
        return searchLibrary(call);
    case CommandName::Problems:
        return listProblems(call);
    case CommandName::Export:
        return exportLibrary(call);
    case CommandName::CatalogStatus:
        return showCatalog(call);
    case CommandName::CatalogBuild:
        return buildCatalog(call);
    case CommandName::CatalogExport:
        return exportCatalog(call);
    case CommandName::CatalogAdd:
        return addCatalog(call);
    case CommandName::CatalogRemove:
        return removeCatalog(call);
    }
    Q_UNREACHABLE();
}

ExitCode misuse(const QString &why)
{
    complain(why);
    std::fputs(commandsHelp().constData(), stderr);
    return ExitCode::Usage;
}

ExitCode run(const Command &command, const std::vector<QByteArray> &arguments)
{
    const auto call = parseCall(arguments, command.options);
    if (call && call->wantsHelp) {
        std::fputs(helpOf(command).constData(), stdout);
        return ExitCode::Success;
    }
    const bool fits = call && (call->wantsListening ? call->operands.empty()
                                                    : call->operands.size() >= command.fewestOperands &&
                                                          call->operands.size() <= command.mostOperands);
    if (fits)
        return carryOut(command.name, *call);
    if (!call)
        complain(call.failure().detail);
    std::fputs(helpOf(command).constData(), stderr);
    return ExitCode::Usage;
}

bool isHelp(const QByteArray &argument)
{
    return argument == "--help" || argument == "-h";
}

ExitCode answer(const std::vector<QByteArray> &arguments)
{
    const QByteArray first = arguments.empty() ? QByteArray() : arguments.at(0);
    const QByteArray second = arguments.size() < 2 ? QByteArray() : arguments.at(1);
    for (const Command &command : commands()) {
        const bool isGrouped = !command.group.empty();
        if (first == bytes(isGrouped ? command.group : command.word) &&
            (!isGrouped || second == bytes(command.word)))
            return run(command, {arguments.begin() + (isGrouped ? 2 : 1), arguments.end()});
    }
    if (isHelp(second)) { // of a group
        std::fputs(commandsHelp().constData(), stdout);
        return ExitCode::Success;
    }
    return misuse(second.isEmpty() ? QStringLiteral("which command?")
                                   : QStringLiteral("no such command: ") + QFile::decodeName(second));
}

} // namespace

bool isCommand(const QByteArray &firstArgument)
{
    return std::ranges::any_of(commands(), [&](const Command &command) {
        return firstArgument == bytes(command.group.empty() ? command.word : command.group);
    });
}

QByteArray commandsHelp()
{
    QByteArray text;
    for (const Command &command : commands())
        text += "  " + formOf(command).leftJustified(34) + bytes(command.summary) + '\n';
    return text + "Each takes --help, --library FILE and --folder DIR.\n";
}

ExitCode giveUp(const Failure &failure)
{
    complain(failure.detail);
    return failure.kind == FailureKind::NotFound ? ExitCode::NotFound : ExitCode::Failure;
}

ExitCode runCommand(const std::vector<QByteArray> &arguments)
{
    const ExitCode code = answer(arguments);
    const bool isWritten = finishOutput();
    return isWritten || code != ExitCode::Success ? code : ExitCode::Failure;
}

} // namespace trackwise::cli
