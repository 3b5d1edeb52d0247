// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicFile.h"

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <vector>

namespace trackwise {

/// A stretch of a file that holds sound and nothing else.
struct AudioExtent
{
    qint64 offset = 0;
    qint64 size = 0;

    friend bool operator==(const AudioExtent &, const AudioExtent &) = default;
};

/// 64 bits that stand for the sound of a file, whatever its tags: XXH3 over the length of the sound and, up
/// to 48 KiB, all of it; of more, 16 KiB each from its start, middle and end. That costs some 10 microseconds
/// and still tells any two recordings apart; two encodings of one recording differ.
/// @p salt goes into it too.
[[nodiscard]] std::uint64_t audioHash(MusicFile &file, const std::vector<AudioExtent> &sound,
                                      std::uint64_t salt = 0);

/// Names a picture by its bytes: XXH3 as 16 hexadecimal digits.
[[nodiscard]] QByteArray pictureKey(QByteArrayView picture);

} // namespace trackwise
