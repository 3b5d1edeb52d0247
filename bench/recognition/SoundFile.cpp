// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/SoundFile.h"

#include "device/audio/SoundDecoder.h"

namespace trackwise::bench {

std::vector<float> soundOf(const std::string &path)
{
    Result<SoundDecoder> decoder = SoundDecoder::open(QByteArray::fromStdString(path));
    std::vector<float> sound;
    if (!decoder)
        return sound;
    for (auto piece = decoder->next(); !piece.empty(); piece = decoder->next())
        sound.insert(sound.end(), piece.begin(), piece.end());
    return sound;
}

} // namespace trackwise::bench
