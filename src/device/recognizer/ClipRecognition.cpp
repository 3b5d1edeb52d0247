// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/ClipRecognition.h"

#include "device/audio/SoundDecoder.h"
#include "fingerprint/Matcher.h"

#include <algorithm>
#include <unistd.h>
#include <vector>

namespace trackwise {

namespace {

/// The beginning of what a file sounds like, as much as is asked for.
Result<std::vector<float>> beginningOf(const QByteArray &path)
{
    auto decoder = path == "-" ? SoundDecoder::openStream(STDIN_FILENO, {}) : SoundDecoder::open(path);
    if (!decoder)
        return decoder.failure();
    std::vector<float> sound;
    while (sound.size() < fingerprint::longestQuery) {
        const auto piece = decoder->next();
        if (piece.empty())
            break;
        sound.insert(sound.end(), piece.begin(), piece.end());
    }
    if (decoder->failure())
        return *decoder->failure();
    if (sound.empty())
        return Failure{FailureKind::Malformed, QStringLiteral("there is no sound in it")};
    sound.resize(std::min(sound.size(), fingerprint::longestQuery));
    return sound;
}

ClipMatch matched(const fingerprint::Catalog &catalog, fingerprint::SongNumber number)
{
    const fingerprint::CatalogSong song = catalog.song(number);
    ClipMatch match{.title = QString::fromStdString(song.title),
                    .artist = QString::fromStdString(song.artist)};
    if (catalog.originOf(number).empty())
        match.librarySong = PersistentID{song.persistentID};
    return match;
}

} // namespace

Result<ClipAnswer> recognizeClip(const fingerprint::Catalog &catalog, const QByteArray &path)
{
    const auto sound = beginningOf(path);
    if (!sound)
        return sound.failure();
    using namespace fingerprint;
    Matcher matcher(catalog);
    matcher.push(*sound);
    ClipAnswer answer{.threshold = certainScore};
    const auto match = matcher.look(Query::Ending::Final);
    if (!match)
        return answer;
    answer.score = double(match->score);
    if (match->score < certainScore)
        return answer;
    answer.match = matched(catalog, match->song);
    answer.match->offsetSeconds = double(matcher.beginning(*match));
    return answer;
}

} // namespace trackwise
