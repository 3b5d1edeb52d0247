// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"

#include "cli/Commands.h"
#include "cli/Console.h"

#include <QFile>

#include <cstdio>
#include <limits>

namespace trackwise::cli {

namespace {

struct Command
{
    const char *group; ///< the word before its name; empty: none
    const char *name;
    KnownOptions options;
    size_t fewestOperands;
    size_t mostOperands;
    ExitCode (*run)(const Call &);
    const char *help;
};

constexpr size_t anyNumber = std::numeric_limits<size_t>::max();

constexpr char commonOptions[] = "  --library FILE  use this database instead of your own\n"
                                 "  --folder DIR    and this music folder; may be given several times\n"
                                 "  --help          show this text\n";

constexpr Command commands[] = {
    {"",
     "info",
     {.json = true, .more = true, .lyrics = true},
     1,
     1,
     showInformation,
     "usage: trackwise info FILE|ID|WORDS [options]\n\n"
     "Shows what is known about one song: a file, a song of the library by its identifier (16 hexadecimal "
     "digits),\n"
     "or the one that fits the words best.\n\n"
     "  --more          show the further rows too\n"
     "  --lyrics        print the lyrics instead\n"
     "  --json          print the record and its rows as JSON\n"},
    {"library",
     "scan",
     {.all = true},
     0,
     0,
     scanLibrary,
     "usage: trackwise library scan [options]\n\n"
     "Brings the library up to date with the music folders.\n\n"
     "  --all           read every file again, not only what is new or has changed\n"},
    {"library",
     "status",
     {.json = true},
     0,
     0,
     showStatus,
     "usage: trackwise library status [options]\n\n"
     "Shows where the library is and how many songs it holds.\n\n"
     "  --json          print one line of JSON\n"},
    {"library",
     "search",
     {.json = true},
     1,
     anyNumber,
     searchLibrary,
     "usage: trackwise library search WORDS [options]\n\n"
     "Lists the songs that fit the words, best first: identifier, title and artist.\n\n"
     "  --json          print a line of JSON for each\n"},
    {"library",
     "problems",
     {.json = true},
     0,
     0,
     listProblems,
     "usage: trackwise library problems [options]\n\n"
     "Lists the files that look like music and could not be read, and why.\n\n"
     "  --json          print a line of JSON for each\n"},
    {"library",
     "export",
     {},
     0,
     0,
     exportLibrary,
     "usage: trackwise library export [options]\n\n"
     "Prints a line of JSON for each song of the library, with everything that is known about it.\n\n"},
};

ExitCode misuse(const QString &why)
{
    complain(why);
    std::fputs(commandsHelp(), stderr);
    return ExitCode::Usage;
}

ExitCode run(const Command &command, const std::vector<QByteArray> &arguments)
{
    const auto call = parseCall(arguments, command.options);
    if (call && call->wantsHelp) {
        std::fputs(command.help, stdout);
        std::fputs(commonOptions, stdout);
        return ExitCode::Success;
    }
    const bool fits = call && call->operands.size() >= command.fewestOperands &&
                      call->operands.size() <= command.mostOperands;
    if (fits)
        return command.run(*call);
    if (!call)
        complain(call.failure().detail);
    std::fputs(command.help, stderr);
    std::fputs(commonOptions, stderr);
    return ExitCode::Usage;
}

bool isHelp(const QByteArray &argument)
{
    return argument == "--help" || argument == "-h";
}

ExitCode carryOut(const std::vector<QByteArray> &arguments)
{
    const QByteArray first = arguments.empty() ? QByteArray() : arguments.at(0);
    const QByteArray second = arguments.size() < 2 ? QByteArray() : arguments.at(1);
    for (const Command &command : commands) {
        const bool isGrouped = *command.group != '\0';
        if (first == (isGrouped ? command.group : command.name) && (!isGrouped || second == command.name))
            return run(command, {arguments.begin() + (isGrouped ? 2 : 1), arguments.end()});
    }
    if (first == "library" && isHelp(second)) {
        std::fputs(commandsHelp(), stdout);
        return ExitCode::Success;
    }
    return misuse(second.isEmpty() ? QStringLiteral("which command?")
                                   : QStringLiteral("no such command: ") + QFile::decodeName(second));
}

} // namespace

bool isCommand(const QByteArray &firstArgument)
{
    return firstArgument == "info" || firstArgument == "library";
}

const char *commandsHelp()
{
    return "  trackwise info FILE|ID|WORDS [--more] [--json]   what is known about one song\n"
           "  trackwise library scan                           bring the library up to date\n"
           "  trackwise library status                         where it is and what it holds\n"
           "  trackwise library search WORDS                   songs that fit\n"
           "  trackwise library problems                       files that could not be read\n"
           "  trackwise library export                         every song, a line of JSON each\n"
           "Each takes --help, --library FILE and --folder DIR.\n";
}

ExitCode giveUp(const Failure &failure)
{
    complain(failure.detail);
    return failure.kind == FailureKind::NotFound ? ExitCode::NotFound : ExitCode::Failure;
}

ExitCode runCommand(const std::vector<QByteArray> &arguments)
{
    const ExitCode code = carryOut(arguments);
    const bool isWritten = finishOutput();
    return isWritten || code != ExitCode::Success ? code : ExitCode::Failure;
}

} // namespace trackwise::cli
