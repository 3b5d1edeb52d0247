// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/AudioHash.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <xxhash.h>

namespace trackwise {

namespace {

constexpr qint64 pieceSize = qint64{16} * 1024;
constexpr qint64 pieces = 3;

/// Copies a stretch of the extents taken as one; answers how much there was.
qint64 copyJoined(MusicFile &file, const std::vector<AudioExtent> &extents, qint64 from, qint64 length,
                  char *to)
{
    qint64 done = 0;
    for (const auto &extent : extents) {
        if (from >= extent.size) {
            from -= extent.size;
            continue;
        }
        const auto count = std::min(extent.size - from, length - done);
        const auto bytes = file.view(extent.offset + from, count);
        std::memcpy(to + done, bytes.data(), bytes.size());
        done += static_cast<qint64>(bytes.size());
        from = 0;
        if (done == length || static_cast<qint64>(bytes.size()) < count)
            break;
    }
    return done;
}

} // namespace

std::uint64_t audioHash(MusicFile &file, const std::vector<AudioExtent> &sound, std::uint64_t salt)
{
    qint64 length = 0;
    for (const auto &extent : sound)
        length += extent.size;

    std::array<char, pieceSize * pieces> bytes;
    qint64 count = 0;
    if (length <= pieceSize * pieces) {
        count = copyJoined(file, sound, 0, length, bytes.data());
    } else {
        for (const auto from : {qint64(0), (length - pieceSize) / 2, length - pieceSize})
            count += copyJoined(file, sound, from, pieceSize, bytes.data() + count);
    }
    return XXH3_64bits_withSeed(bytes.data(), static_cast<size_t>(count),
                                static_cast<XXH64_hash_t>(length) ^ salt);
}

QByteArray pictureKey(QByteArrayView picture)
{
    const auto hash = XXH3_64bits(picture.data(), static_cast<size_t>(picture.size()));
    return QByteArray::number(static_cast<qulonglong>(hash), 16).rightJustified(16, '0');
}

} // namespace trackwise
