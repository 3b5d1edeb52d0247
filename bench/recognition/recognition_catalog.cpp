// SPDX-License-Identifier: GPL-3.0-or-later
//
// recognition_catalog SONGS FILE COUNT: indexes the sound files of the folder SONGS, adds songs that are made
// up of them until there are COUNT, and writes the catalog FILE. Each song's title is the name of its file;
// made-up ones have none. What it costs goes to standard output, one line a figure; the size of a catalog is
// that of the real songs.
#include "fingerprint/PeakExtractor.h"
#include "fingerprint/SegmentBuilder.h"
#include "fingerprint/SegmentMerge.h"
#include "fingerprint/SegmentOutputs.h"
#include "recognition/MadeUpSongs.h"
#include "recognition/SoundFile.h"
#include "support/Figures.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace trackwise;
using namespace trackwise::fingerprint;

namespace {

using Songs = std::vector<std::vector<Peak>>;

std::vector<std::filesystem::path> filesIn(const char *folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

/// The catalog of the real songs; their peaks go to @p peaks.
Segment::Ptr realSongs(const char *folder, PairDensity density, Songs &peaks)
{
    SegmentBuilder builder(density);
    double decoding = 0;
    double extracting = 0;
    double heard = 0;
    const double start = cpuSeconds();
    for (const auto &file : filesIn(folder)) {
        const double opened = cpuSeconds();
        const std::vector<float> sound = bench::soundOf(file.string());
        const double decoded = cpuSeconds();
        peaks.push_back(peaksOf(sound, songDensity));
        extracting += cpuSeconds() - decoded;
        decoding += decoded - opened;
        CatalogSong song;
        song.title = file.filename().string();
        builder.add(peaks.back(), song);
        heard += double(sound.size()) / sampleRateHz;
    }
    Segment::Ptr segment = std::move(builder).build();
    const double indexing = cpuSeconds() - start;
    printFigure("songs", double(peaks.size()), "");
    printFigure("minutes", heard / 60, "");
    printFigure("decoding", heard / decoding, "times real time");
    printFigure("extraction", heard / extracting, "times real time");
    printFigure("indexing", heard / indexing, "times real time");
    printFigure("catalog", double(segment->byteCount()) / heard * 60 / 1000, "kB a song-minute");
    return segment;
}

/// Adds segments of made-up songs until there are @p count; they are kept in files beside @p catalog.
void addMadeUpSongs(const Songs &real, PairDensity density, std::size_t count,
                    const std::filesystem::path &catalog, std::vector<MergeInput> &segments)
{
    constexpr std::size_t songsOfSegment = 5000;
    for (std::size_t begin = real.size(); begin < count; begin += songsOfSegment) {
        SegmentBuilder builder(density);
        for (std::size_t song = begin; song < std::min(begin + songsOfSegment, count); ++song)
            builder.add(bench::madeUpSong(real, std::uint32_t(song)));
        const std::filesystem::path part = catalog.string() + ".part";
        FileOutput output(part);
        output.append(std::move(builder).bytes());
        output.finish();
        segments.push_back({std::get<Segment::Ptr>(Segment::ofFile(part)), {}});
        std::filesystem::remove(part); // it is still there for whoever has it open
    }
}

} // namespace

int main(int count, char **arguments)
{
    const bool isCompact = count == 5 && std::strcmp(arguments[4], "compact") == 0;
    if (count != 4 && !isCompact) {
        std::fprintf(stderr, "usage: recognition_catalog SONGS FILE COUNT [compact]\n");
        return 2;
    }
    const PairDensity density = isCompact ? PairDensity::Compact : PairDensity::Full;
    Songs real;
    std::vector<MergeInput> segments{{realSongs(arguments[1], density, real), {}}};
    addMadeUpSongs(real, density, std::strtoul(arguments[3], nullptr, 10), arguments[2], segments);
    FileOutput output(arguments[2], FileOutput::Readers::All);
    mergeSegments(segments, output);
    if (const auto failure = output.finish()) {
        std::fprintf(stderr, "recognition_catalog: %s\n", failure->detail.c_str());
        return 1;
    }
    printFigure("catalog_file", double(std::filesystem::file_size(arguments[2])) / 1e6, "MB");
    return 0;
}
