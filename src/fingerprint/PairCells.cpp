// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/PairCells.h"

#include "fingerprint/Row.h"

#include <algorithm>

namespace trackwise::fingerprint {

namespace {

constexpr float finestHertz = 10;
constexpr float widestShare = 0.006F;
/// What puts the lowest peak, and one that is half a cell lower for the speed, into the first cells: the
/// scale is at 20.3 there.
constexpr float firstPitch = 19;

/// The nearest cell of a scale; below 0 where the place is below the scale. Queries ask for hundreds of
/// thousands, and this is a few times as fast as the rounding of the library.
int nearest(float place)
{
    return int(std::max(place, -1.0F) + 1.5F) - 1;
}

bool isOnScale(int first, int second, int delay)
{
    return first >= 0 && first < pitchCells && second >= 0 && second < pitchCells && delay >= 0 &&
           delay < delayCells;
}

Cell cellAt(int first, int second, int delay)
{
    return (Cell(first) * pitchCells + Cell(second)) * delayCells + Cell(delay);
}

} // namespace

float pitchScale(float bin)
{
    // Its derivative is 1 / √(finestHertz² + (widestShare · f)²): the cells are as wide as that root.
    return std::asinh(widestShare / finestHertz * bin * hertzPerBin) / widestShare - firstPitch;
}

std::optional<Cell> cellOf(const PeakPair &pair)
{
    const int first = nearest(pair.first);
    const int second = nearest(pair.second);
    const int delay = nearest(pair.delay);
    if (!isOnScale(first, second, delay))
        return std::nullopt;
    return cellAt(first, second, delay);
}

std::vector<SongPair> pairsOfSong(std::span<const Peak> peaks, PairDensity density)
{
    std::vector<SongPair> pairs;
    std::vector<std::size_t> partners;
    for (std::size_t first = 0; first < peaks.size(); ++first) {
        partners.clear();
        forEachPartner(peaks, first, 0, [&](std::size_t second) { partners.push_back(second); });
        const std::size_t most = (std::size_t(density) + first % 2) / 2;
        const std::size_t kept = std::min(most, partners.size());
        std::partial_sort(
            partners.begin(), partners.begin() + std::ptrdiff_t(kept), partners.end(),
            [&](std::size_t a, std::size_t b) { return peaks[a].strength > peaks[b].strength; });
        const Peak &peak = peaks[first];
        for (std::size_t i = 0; i < kept; ++i) {
            const Peak &partner = peaks[partners[i]];
            if (const auto cell =
                    cellOf({pitchScale(peak.bin), pitchScale(partner.bin), partner.time - peak.time}))
                pairs.push_back({*cell, peak.time});
        }
    }
    return pairs;
}

} // namespace trackwise::fingerprint
