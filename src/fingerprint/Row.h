// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <span>

namespace trackwise::fingerprint {

/// What the engine hears: mono sound of this rate, full scale ±1. It carries what survives small speakers and
/// rooms (200 Hz to 5 kHz), with room for pitch that is off by some per cent.
inline constexpr int sampleRateHz = 16000;

/// The samples of one spectrum: 64 ms, which tells tones apart that are 15.6 Hz from one another.
inline constexpr int frameLength = 1024;

/// From one spectrum to the next: 16 ms in a song, the unit of time of all that is kept of it. A query is
/// looked at twice as often, as nothing is known about where its frames lie between those of the song.
inline constexpr int songHop = 256;
inline constexpr int queryHop = songHop / 2;
inline constexpr float framesPerSecond = float(sampleRateHz) / songHop;

/// The bins of a spectrum that are kept, from 0 Hz to 5.6 kHz: the highest peak (bin 320) in sound that is
/// played 4 % too fast, and the surroundings that it is compared with.
inline constexpr int binCount = 361;
inline constexpr float hertzPerBin = float(sampleRateHz) / frameLength;

/// One value for each bin of one moment.
using Row = std::span<const float, binCount>;
/// Is handed rows in the order of time; a row is valid during the call.
using RowSink = std::function<void(Row)>;

} // namespace trackwise::fingerprint
