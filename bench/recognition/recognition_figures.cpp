// SPDX-License-Identifier: GPL-3.0-or-later
//
// recognition_figures SONGS CLIPS: indexes the sound files of one folder and asks for those of another,
// folders within it included. Standard output has a line for each clip, with tabs: its path below CLIPS, the
// name of the song's file or NONE, the score, the milliseconds it took, and how far the song is ahead of the
// clip in seconds. Figures of the index go to standard error.
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

std::vector<std::filesystem::path> filesBelow(const char *folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file())
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
    std::fprintf(stderr, "songs\t%zu\nminutes\t%.1f\n", index.songCount(), heard / 60);
    std::fprintf(stderr, "extraction\t%.0f\ttimes real time\n", heard / extracting);
    std::fprintf(stderr, "with decoding\t%.0f\ttimes real time\n", heard / (extracting + decoding));
    std::fprintf(stderr, "index\t%.2f\tkB a song-minute\n", double(index.memoryBytes()) / heard * 60 / 1000);
    return index;
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: recognition_figures SONGS CLIPS\n");
        return 2;
    }
    const auto songs = filesBelow(arguments[1]);
    const SongIndex index = indexOf(songs);
    Matcher matcher(index);
    for (const auto &clip : filesBelow(arguments[2])) {
        const std::vector<float> sound = bench::soundOf(clip.string());
        if (sound.empty())
            continue;
        const auto start = Clock::now();
        const Query query = Query::of(sound);
        const auto match = matcher.match(query);
        const double milliseconds = secondsSince(start) * 1000;
        const std::string name = std::filesystem::relative(clip, arguments[2]).string();
        if (!match) {
            std::printf("%s\tNONE\t0\t%.2f\t0\n", name.c_str(), milliseconds);
            continue;
        }
        const float beginning = match->playing.middle - query.middle() * match->playing.tempo;
        std::printf("%s\t%s\t%.3f\t%.2f\t%.2f\n", name.c_str(), songs[match->song].filename().c_str(),
                    double(match->score), milliseconds, double(beginning / framesPerSecond));
    }
    return 0;
}
