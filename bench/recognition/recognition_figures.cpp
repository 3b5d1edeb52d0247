// SPDX-License-Identifier: GPL-3.0-or-later
//
// recognition_figures CATALOG CLIPS ANSWERS: asks for the first 3, 5 and 10 s of each WAV file below the
// folder CLIPS. A line for each question goes to the file ANSWERS, with tabs: the clip's path below CLIPS,
// its seconds, the title of the song or NONE, the score, the milliseconds of processor time it took, and the
// time in the song where the clip begins.
#include "fingerprint/Matcher.h"
#include "recognition/SoundFile.h"
#include "support/Figures.h"

#include <algorithm>
#include <cstdio>

using namespace trackwise;
using namespace trackwise::fingerprint;

namespace {

std::vector<std::filesystem::path> clipsBelow(const char *folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".wav")
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// Writes what is said of the first @p seconds of @p sound.
void ask(const Catalog &catalog, std::span<const float> sound, int seconds, const std::string &clip,
         std::FILE *answers)
{
    const auto piece = sound.first(std::min(sound.size(), std::size_t(seconds) * sampleRateHz));
    const double start = threadCpuSeconds();
    Matcher matcher(catalog);
    matcher.push(piece);
    const auto match = matcher.look(Query::Ending::Final);
    const double milliseconds = (threadCpuSeconds() - start) * 1000;
    std::string song = "NONE";
    if (match) {
        song = catalog.song(match->song).title;
        if (song.empty())
            song = "made-up";
    }
    std::fprintf(answers, "%s\t%d\t%s\t%.3f\t%.2f\t%.2f\n", clip.c_str(), seconds, song.c_str(),
                 double(match ? match->score : 0), milliseconds,
                 double(match ? matcher.beginning(*match) : 0));
}

} // namespace

int main(int count, char **arguments)
{
    std::FILE *answers = count == 4 ? std::fopen(arguments[3], "w") : nullptr;
    if (answers == nullptr) {
        std::fprintf(stderr, "usage: recognition_figures CATALOG CLIPS ANSWERS\n");
        return 2;
    }
    const auto segment = Segment::ofFile(arguments[1]);
    if (const auto *failure = std::get_if<CatalogFailure>(&segment)) {
        std::fprintf(stderr, "recognition_figures: %s\n", failure->detail.c_str());
        return 1;
    }
    const Catalog catalog({{std::get<Segment::Ptr>(segment), {}, {}}});
    for (const auto &clip : clipsBelow(arguments[2])) {
        const std::vector<float> sound = bench::soundOf(clip.string());
        const std::string name = std::filesystem::relative(clip, arguments[2]).string();
        for (const int seconds : {3, 5, 10})
            ask(catalog, sound, seconds, name, answers);
    }
    return std::fclose(answers) == 0 ? 0 : 1;
}
