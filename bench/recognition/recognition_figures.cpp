// SPDX-License-Identifier: GPL-3.0-or-later
//
// recognition_figures SONGS CLIPS ANSWERS: indexes the sound files of the folder SONGS and asks for the first
// 3, 5 and 10 s of each WAV file below the folder CLIPS. What indexing costs goes to standard output, one
// line a figure; a line for each question goes to the file ANSWERS, with tabs: the clip's path below CLIPS,
// its seconds, the name of the song's file or NONE, the score, the milliseconds it took, and the time in the
// song where the clip begins.
#include "fingerprint/Matcher.h"
#include "fingerprint/PeakExtractor.h"
#include "recognition/SoundFile.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>

using namespace trackwise;
using namespace trackwise::fingerprint;

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::vector<std::filesystem::path> filesBelow(const char *folder, const std::string &suffix)
{
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && entry.path().string().ends_with(suffix))
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

SongIndex indexOf(const std::vector<std::filesystem::path> &files)
{
    SongIndexBuilder builder;
    double decoding = 0;
    double extracting = 0;
    double heard = 0;
    for (const auto &file : files) {
        const auto start = Clock::now();
        const std::vector<float> sound = bench::soundOf(file.string());
        decoding += secondsSince(start);
        const auto decoded = Clock::now();
        builder.add(peaksOf(sound, songDensity));
        extracting += secondsSince(decoded);
        heard += double(sound.size()) / sampleRateHz;
    }
    SongIndex index = std::move(builder).build();
    std::printf("songs %zu\nminutes %.1f\n", index.songCount(), heard / 60);
    std::printf("extraction %.0f times real time\n", heard / extracting);
    std::printf("indexing %.0f times real time\n", heard / (extracting + decoding));
    std::printf("index %.2f kB a song-minute\n", double(index.memoryBytes()) / heard * 60 / 1000);
    return index;
}

/// Writes what the matcher says of the first @p seconds of @p sound.
void ask(Matcher &matcher, std::span<const float> sound, int seconds, const std::string &clip,
         const std::vector<std::filesystem::path> &songs, std::FILE *answers)
{
    const auto start = Clock::now();
    const Query query = Query::of(sound.first(std::min(sound.size(), std::size_t(seconds) * sampleRateHz)));
    const auto match = matcher.match(query);
    const double milliseconds = secondsSince(start) * 1000;
    const std::string song = match ? songs[match->song].filename().string() : "NONE";
    const float beginning = match ? match->playing.middle - query.middle() * match->playing.tempo : 0;
    std::fprintf(answers, "%s\t%d\t%s\t%.3f\t%.2f\t%.2f\n", clip.c_str(), seconds, song.c_str(),
                 double(match ? match->score : 0), milliseconds, double(beginning / framesPerSecond));
}

} // namespace

int main(int count, char **arguments)
{
    std::FILE *answers = count == 4 ? std::fopen(arguments[3], "w") : nullptr;
    if (answers == nullptr) {
        std::fprintf(stderr, "usage: recognition_figures SONGS CLIPS ANSWERS\n");
        return 2;
    }
    const auto songs = filesBelow(arguments[1], "");
    const SongIndex index = indexOf(songs);
    Matcher matcher(index);
    for (const auto &clip : filesBelow(arguments[2], ".wav")) {
        const std::vector<float> sound = bench::soundOf(clip.string());
        const std::string name = std::filesystem::relative(clip, arguments[2]).string();
        for (const int seconds : {3, 5, 10})
            ask(matcher, sound, seconds, name, songs, answers);
    }
    return std::fclose(answers) == 0 ? 0 : 1;
}
