// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Query.h"
#include "fingerprint/SongLine.h"

#include <limits>

namespace trackwise::fingerprint {

/// How a song may be playing: which of its frames is heard in the middle of the query, and how much faster
/// and higher than it was recorded.
struct Playing
{
    float middle = 0; ///< frames of the song
    float tempo = 1;
    float pitch = 1;
};

/// What speaks for a song that is playing in some way. Songs that are not heard rarely score above 2.
struct Agreement
{
    float score = -std::numeric_limits<float>::infinity(); ///< this where nothing can be said
    Playing playing;
};

/// How well the sound of @p query agrees with a song that has @p peaks and is @p playing: whether much stands
/// out in the query where the song has its peaks. Chance is known from the same places in the query shifted
/// by up to 1.3 s. The middle of the answer is corrected by up to 64 ms.
[[nodiscard]] Agreement agreement(const QueryRows &query, std::span<const KeptPeak> peaks,
                                  const Playing &playing);

/// How many speeds are tried: three that differ by 1 %, which tell what is worth more, or seven by 0.5 %.
enum class Speeds { Few, All };

/// The same for the best of speeds that differ by up to 1.5 %, which is how exactly players and their clocks
/// keep to it.
[[nodiscard]] Agreement bestSpeed(const QueryRows &query, std::span<const KeptPeak> peaks,
                                  const Playing &playing, Speeds speeds);

/// The same for the best of tempos that differ by up to 5 % at the same pitch, as from a player that keeps
/// it.
[[nodiscard]] Agreement bestTempo(const QueryRows &query, std::span<const KeptPeak> peaks,
                                  const Playing &playing);

/// What of the score of a song that is @p playing is the beat's: what it would score at other pitches. A drum
/// sounds at all of them, so that a song of the same beat agrees without a note in common. Nothing where the
/// notes alone leave no doubt.
[[nodiscard]] float scoreOfBeat(const QueryRows &query, std::span<const KeptPeak> peaks,
                                const Playing &playing);

} // namespace trackwise::fingerprint
