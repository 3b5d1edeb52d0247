// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogSong.h"
#include "fingerprint/Peak.h"

#include <vector>

namespace trackwise::fingerprint {

struct SomeSong
{
    CatalogSong song;
    std::vector<Peak> peaks;
};

/// Peaks at random times and bins.
std::vector<Peak> somePeaks(unsigned seed, int count, float framesBetween, unsigned highestBin = 320);
/// Songs with such peaks; different ones for each @p seed.
std::vector<SomeSong> someSongs(unsigned seed, int songs, int peaksOfEach, unsigned highestBin = 320);

} // namespace trackwise::fingerprint
