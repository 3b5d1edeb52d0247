// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/MadeUpSongs.h"

#include "fingerprint/Row.h"

#include <algorithm>
#include <random>

namespace trackwise::bench {

using namespace fingerprint;

std::vector<Peak> madeUpSong(std::span<const std::vector<Peak>> songs, std::uint32_t number)
{
    std::mt19937 random(number);
    const auto between = [&](float lowest, float highest) {
        return std::uniform_real_distribution(lowest, highest)(random);
    };
    const auto anySong = [&]() -> const std::vector<Peak> & { return songs[random() % songs.size()]; };
    const bool isHigher = random() % 2 == 0;
    const float pitch = isHigher ? between(1.08F, 1.2F) : 1 / between(1.08F, 1.2F);
    const float tempo = isHigher ? 1 / between(1.05F, 1.12F) : between(1.05F, 1.12F);
    const std::vector<Peak> &model = anySong();
    const float length = model.empty() ? 0 : model.back().time / tempo;
    std::vector<Peak> made;
    for (float time = 0; time < length;) {
        const std::vector<Peak> &source = anySong();
        const float piece = between(2, 6) * framesPerSecond;
        const float begin = source.empty() ? 0 : between(0, source.back().time);
        const auto isBefore = [](const Peak &peak, float frame) { return peak.time < frame; };
        for (auto peak = std::lower_bound(source.begin(), source.end(), begin, isBefore);
             peak != source.end() && peak->time < begin + piece; ++peak) {
            const Peak moved{time + (peak->time - begin) / tempo, peak->bin * pitch, peak->strength};
            if (moved.bin >= float(firstPeakBin) && moved.bin <= float(lastPeakBin))
                made.push_back(moved);
        }
        time += piece / tempo;
    }
    return made;
}

} // namespace trackwise::bench
