// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/ClipRecognition.h"

#include "device/audio/SoundDecoder.h"
#include "fingerprint/Matcher.h"

#include <algorithm>
#include <span>
#include <unistd.h>
#include <vector>

namespace trackwise {

namespace {

/// Pieces of longestQuery are looked up, and overlap: a song may begin or end in each.
constexpr std::size_t nextPiece = std::size_t(10) * fingerprint::sampleRateHz;
constexpr std::size_t longestClip = std::size_t(120) * fingerprint::sampleRateHz;
/// What later pieces have to reach besides: the more is looked up, the likelier is chance.
constexpr float laterScore = 2;

/// Adds to @p sound until there is so much of it, or all.
std::optional<Failure> read(SoundDecoder &decoder, std::size_t samples, std::vector<float> &sound)
{
    while (sound.size() < samples) {
        const auto piece = decoder.next();
        if (piece.empty())
            break;
        sound.insert(sound.end(), piece.begin(), piece.end());
    }
    if (sound.empty() && !decoder.failure())
        return Failure{FailureKind::Malformed, QStringLiteral("there is no sound in it")};
    return decoder.failure();
}

/// @p begin: where in the clip the piece begins.
ClipAnswer lookUp(const fingerprint::Catalog &catalog, std::span<const float> piece, std::size_t begin)
{
    using namespace fingerprint;
    Matcher matcher(catalog);
    matcher.push(piece);
    const float threshold = begin == 0 ? certainScore : certainScore + laterScore;
    ClipAnswer answer{.threshold = double(threshold)};
    const auto match = matcher.look(Query::Ending::Final);
    if (!match)
        return answer;
    answer.score = double(match->score);
    if (match->score < threshold)
        return answer;
    const double played = double(begin) / sampleRateHz * double(match->playing.tempo);
    answer.match = trackwise::matchOf(catalog, match->song, double(matcher.beginning(*match)) - played);
    return answer;
}

} // namespace

ClipMatch matchOf(const fingerprint::Catalog &catalog, fingerprint::SongNumber number, double offsetSeconds)
{
    const fingerprint::CatalogSong song = catalog.song(number);
    ClipMatch match{.title = QString::fromStdString(song.title),
                    .artist = QString::fromStdString(song.artist),
                    .offsetSeconds = offsetSeconds};
    if (catalog.originOf(number).empty())
        match.librarySong = PersistentID{song.persistentID};
    return match;
}

Result<ClipAnswer> recognizeClip(const fingerprint::Catalog &catalog, const QByteArray &path)
{
    using fingerprint::longestQuery;
    auto decoder = path == "-" ? SoundDecoder::openStream(STDIN_FILENO, {}) : SoundDecoder::open(path);
    if (!decoder)
        return decoder.failure();
    std::vector<float> sound;
    std::optional<ClipAnswer> best;
    for (std::size_t begin = 0, end = longestQuery; end <= longestClip;
         begin += nextPiece, end += nextPiece) {
        if (auto failure = read(*decoder, end, sound))
            return *std::move(failure);
        const auto heard = std::span(sound).first(std::min(sound.size(), end));
        if (best && heard.size() + nextPiece <= end) // nothing is new
            break;
        const ClipAnswer answer = lookUp(catalog, heard.subspan(begin), begin);
        if (!best || answer.match || answer.score - answer.threshold > best->score - best->threshold)
            best = answer;
        if (best->match)
            break;
    }
    return *std::move(best);
}

} // namespace trackwise
