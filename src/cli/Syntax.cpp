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
constexpr Option ofIdentify[] = {
    {.name = "listen", .help = "Listen to the microphone instead of files."},
    {.name = "json", .help = "Print a line of JSON for each file, as soon as it is known."}};
constexpr Option ofCatalogStatus[] = {{.name = "json", .help = "Print one line of JSON."}};

constexpr Command table[] = {
    {CommandName::Information, Completion::Files, "", "info", "FILE|ID|WORDS", 1, 1, ofInformation,
     "what is known about one song",
     "Shows what is known about one song: a file, a song of the library by its identifier (16 hexadecimal "
     "digits), or the one that fits the words best."},
    {CommandName::Identify, Completion::Files, "", "identify", "FILE...|-", 1, anyNumber, ofIdentify,
     "which song of the library is heard",
     "Names the song of the library, or of an added catalog, that is heard in each file, or in what comes "
     "from standard input (-): by its first 15 seconds, or where those are of no known song by what follows, "
     "up to two minutes. With --listen it names what is heard by the input that was chosen in the settings, "
     "or else by the system's default one; that takes 13 seconds at most. It ends with 0 where all were "
     "recognised, with 3 where one was not, with 1 where one could not be read. With --json each line has "
     "file (null for the microphone), match, path, "
     "persistentID, title, artist, offset_s (the place in the song, in seconds, at which the file or the "
     "listening begins; below zero where the song begins later), score, threshold (the score of a match) and "
     "ms (the time it took), or file and error."},
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
    {CommandName::CatalogStatus, Completion::Nothing, "catalog", "status", "", 0, 0, ofCatalogStatus,
     "how many songs are known by their sound",
     "Shows where the catalog of sounds is, by which songs are recognised, how many songs of the library it "
     "knows, and which catalogs were added."},
    {CommandName::CatalogBuild,
     Completion::Nothing,
     "catalog",
     "build",
     "",
     0,
     0,
     {},
     "listen to the songs that are not known yet",
     "Brings the library up to date, and listens to all its songs that the catalog does not know yet; the "
     "window does so by itself, in the background, and waits while this does. A library that is named with "
     "--library is taken as it is, unless its music folder is named too. It may be stopped: what was done is "
     "kept."},
    {CommandName::CatalogExport,
     Completion::Files,
     "catalog",
     "export",
     "FILE",
     1,
     1,
     {},
     "the songs' sounds and names, for others",
     "Writes the catalog of the library into one file, which others can add to theirs. The songs can be "
     "recognised by it; their sound is not in it."},
    {CommandName::CatalogAdd,
     Completion::Files,
     "catalog",
     "add",
     "FILE",
     1,
     1,
     {},
     "take over a catalog of others",
     "Copies a catalog that was exported elsewhere: its songs are recognised too, and named as they are "
     "named "
     "there. One that was added from a file of the same name is replaced."},
    {CommandName::CatalogRemove,
     Completion::Nothing,
     "catalog",
     "remove",
     "NAME",
     1,
     1,
     {},
     "let go of such a catalog",
     "Removes a catalog that was added, by the name that the status shows."},
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
