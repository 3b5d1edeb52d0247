// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Syntax.h"

#include <limits>

namespace trackwise::cli {

namespace {

constexpr size_t anyNumber = std::numeric_limits<size_t>::max();

constexpr Option start[] = {
    {.name = "help", .help = "Show this text.", .letter = 'h'},
    {.name = "version", .help = "Show the version.", .letter = 'v'},
    {.name = "demo", .help = "Use the demo library."},
    {.name = "show",
     .value = "SONG",
     .help = "Show this song: a file, an identifier, or words to search for.",
     .completion = Completion::Files},
    {.name = "action",
     .value = "NAME",
     .help = "Do what the desktop's menu of the program offers, in the window that is open already.",
     .choices = "SelectSongAction SelectSongNowPlayingAction SelectSongMusicRecognitionAction"},
    {.name = "screenshot",
     .value = "FILE",
     .help = "Save a picture of the window once the song is drawn, then quit.",
     .completion = Completion::Files},
    {.name = "library",
     .value = "FILE",
     .help = "Keep the library in this file.",
     .completion = Completion::Files},
    {.name = "folder",
     .value = "DIR",
     .help = "Look for music in this folder.",
     .completion = Completion::Folders},
    {.name = "size", .value = "WIDTHxHEIGHT", .help = "Size of the window in points."},
};

constexpr Option address{.name = "ADDRESS",
                         .help = "Show the song of this link, or of this file.",
                         .completion = Completion::Files};

constexpr Option common[] = {
    {.name = "library",
     .value = "FILE",
     .help = "Use this database instead of your own.",
     .completion = Completion::Files},
    {.name = "folder",
     .value = "DIR",
     .help = "Use this music folder; may be given several times.",
     .completion = Completion::Folders},
    {.name = "help", .help = "Show this text.", .letter = 'h'},
};

constexpr Option ofInformation[] = {
    {.name = "more", .help = "Show the further rows too."},
    {.name = "lyrics", .help = "Print the lyrics instead."},
    {.name = "json", .help = "Print the record and its rows as JSON."},
};
constexpr Option ofScan[] = {
    {.name = "all", .help = "Read every file again, not only what is new or has changed."}};
constexpr Option ofStatus[] = {{.name = "json", .help = "Print one line of JSON."}};
constexpr Option ofSearch[] = {{.name = "json", .help = "Print a line of JSON for each song."}};
constexpr Option ofProblems[] = {{.name = "json", .help = "Print a line of JSON for each file."}};

constexpr Command table[] = {
    {CommandName::Information, Completion::Files, "", "info", "FILE|ID|WORDS", 1, 1, ofInformation,
     "what is known about one song",
     "Shows what is known about one song: a file, a song of the library by its identifier (16 hexadecimal "
     "digits), or the one that fits the words best."},
    {CommandName::Scan, Completion::Nothing, "library", "scan", "", 0, 0, ofScan,
     "bring the library up to date", "Brings the library up to date with the music folders."},
    {CommandName::Status, Completion::Nothing, "library", "status", "", 0, 0, ofStatus,
     "where it is and what it holds", "Shows where the library is and how many songs it holds."},
    {CommandName::Search, Completion::Nothing, "library", "search", "WORDS", 1, anyNumber, ofSearch,
     "songs that fit", "Lists the songs that fit the words, best first: identifier, title and artist."},
    {CommandName::Problems, Completion::Nothing, "library", "problems", "", 0, 0, ofProblems,
     "files that could not be read", "Lists the files that look like music and could not be read, and why."},
    {CommandName::Export,
     Completion::Nothing,
     "library",
     "export",
     "",
     0,
     0,
     {},
     "every song, a line of JSON each",
     "Prints a line of JSON for each song of the library, with everything that is known about it."},
};

} // namespace

std::span<const Option> startOptions()
{
    return start;
}

const Option &startOperand()
{
    return address;
}

std::span<const Command> commands()
{
    return table;
}

std::span<const Option> commonOptions()
{
    return common;
}

} // namespace trackwise::cli
