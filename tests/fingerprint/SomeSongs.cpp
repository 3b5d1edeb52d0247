// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SomeSongs.h"

#include <random>

namespace trackwise::fingerprint {

std::vector<Peak> somePeaks(unsigned seed, int count, float framesBetween, unsigned highestBin)
{
    std::mt19937 random(seed);
    std::exponential_distribution<float> step(1 / framesBetween);
    std::vector<Peak> peaks;
    float time = 0;
    const auto tenths = std::uint_fast32_t(10) * (highestBin - 12);
    for (int i = 0; i < count; ++i) {
        time += step(random);
        peaks.push_back({time, 13 + float(random() % tenths) / 10, float(random() % 1000)});
    }
    return peaks;
}

std::vector<SomeSong> someSongs(unsigned seed, int songs, int peaksOfEach, unsigned highestBin)
{
    std::vector<SomeSong> result;
    for (int i = 0; i < songs; ++i) {
        const auto number = unsigned(i) + seed * 1000;
        result.push_back(
            {{(number * std::uint64_t(77777)) << 20, ~std::uint64_t(number), std::to_string(number),
              "Été " + std::string(number % 4000, 'x'), i % 3 == 0 ? "" : "Künstler", float(number) / 3},
             somePeaks(number, peaksOfEach - i % 3, i % 5 == 0 ? 40 : 4, highestBin)});
    }
    return result;
}

} // namespace trackwise::fingerprint
