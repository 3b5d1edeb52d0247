// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerLayouts.h"

#include <array>
#include <cstring>
#include <optional>

namespace trackwise {

namespace {

/// What all frames of a stream have in common, and the size of this one.
struct FrameHeader
{
    Container container;
    unsigned kind; ///< the header bits that do not change from frame to frame
    qint64 size;
    double seconds;
};

constexpr qint64 searchedBytes = qint64{192} * 1024; ///< junk that is skipped before the first frame
constexpr int framesInARow = 3;                      ///< chance makes one, hardly two, never three

/// MPEG audio (ISO 11172-3, 2.4.2.3): sync 11 bits, version 2, layer 2, ..., bit rate 4, sample rate 2,
/// padding 1.
std::optional<FrameHeader> mpegHeader(MusicFile::Bytes bytes)
{
    static constexpr std::array<std::array<int, 16>, 5> kilobits = {{
        {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0}, // version 1, layer I
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0},    // version 1, layer II
        {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},     // version 1, layer III
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0},    // version 2, layer I
        {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0}, // version 2, layers II, III
    }};
    static constexpr std::array<int, 3> hertz = {44100, 48000, 32000};

    const unsigned version = bytes[1] >> 3 & 3; // 3: version 1; 2: version 2; 0: version 2.5
    const unsigned layer = 4 - (bytes[1] >> 1 & 3);
    const unsigned rateIndex = bytes[2] >> 2 & 3;
    if (bytes[0] != 0xff || (bytes[1] & 0xe0) != 0xe0 || version == 1 || layer == 4 || rateIndex == 3)
        return std::nullopt;
    const bool isVersion1 = version == 3;
    const int row = isVersion1 ? static_cast<int>(layer) - 1 : layer == 1 ? 3 : 4;
    const int rate = kilobits[static_cast<std::size_t>(row)][bytes[2] >> 4];
    if (rate == 0)
        return std::nullopt;
    const int samplesPerSecond = hertz[rateIndex] >> (isVersion1 ? 0 : version == 2 ? 1 : 2);
    const int samples = layer == 1 ? 384 : layer == 3 && !isVersion1 ? 576 : 1152;
    const int slot = layer == 1 ? 4 : 1;
    const int slots = samples / 8 / slot * rate * 1000 / samplesPerSecond + (bytes[2] >> 1 & 1);
    return FrameHeader{Container::Mpeg, version << 8 | layer << 4 | rateIndex, qint64{slots} * slot,
                       static_cast<double>(samples) / samplesPerSecond};
}

/// Sample rates by their numbers (ISO 14496-3, table 1.18).
constexpr std::array<int, 13> aacHertz = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                                          22050, 16000, 12000, 11025, 8000,  7350};

/// ADTS (ISO 13818-7, 6.2): sync 12 bits, ..., layer 2 bits of zero, ..., frame length 13 bits from bit 30.
std::optional<FrameHeader> adtsHeader(MusicFile::Bytes bytes)
{
    const unsigned rateIndex = bytes[2] >> 2 & 15;
    const qint64 size = (bytes[3] & 3) << 11 | bytes[4] << 3 | bytes[5] >> 5;
    if (bytes[0] != 0xff || (bytes[1] & 0xf6) != 0xf0 || rateIndex > 12 || size < 8)
        return std::nullopt;
    const int blocks = 1 + (bytes[6] & 3);
    return FrameHeader{Container::Adts, static_cast<unsigned>(bytes[1] << 8 | (bytes[2] & 0xfd)), size,
                       blocks * 1024.0 / aacHertz[rateIndex]};
}

/// AC-3 (ATSC A/52, 5.3 and table 5.18): sync 0x0B77, checksum, sample rate 2 bits, frame size code 6 bits.
std::optional<FrameHeader> ac3Header(MusicFile::Bytes bytes)
{
    static constexpr std::array<int, 19> kilobits = {32,  40,  48,  56,  64,  80,  96,  112, 128, 160,
                                                     192, 224, 256, 320, 384, 448, 512, 576, 640};
    const unsigned rateIndex = bytes[4] >> 6;
    const unsigned sizeCode = bytes[4] & 63;
    if (bytes[0] != 0x0b || bytes[1] != 0x77 || rateIndex == 3 || sizeCode / 2 >= kilobits.size() ||
        (bytes[5] >> 3) > 10)
        return std::nullopt;
    const int rate = kilobits[sizeCode / 2];
    const qint64 words = rateIndex == 0   ? rate * 2
                         : rateIndex == 1 ? rate * 96000 / 44100 + (sizeCode & 1)
                                          : rate * 3;
    static constexpr std::array<int, 3> hertz = {48000, 44100, 32000};
    return FrameHeader{Container::Ac3, rateIndex, words * 2, 1536.0 / hertz[rateIndex]};
}

/// E-AC-3 (ATSC A/52, E.1.2): sync 0x0B77, kind of stream 2 bits, its number 3, size in words less one 11,
/// sample rate 2, blocks 2; the lowest sample rates have six blocks, and the rate stands in the blocks'
/// place.
std::optional<FrameHeader> enhancedAc3Header(MusicFile::Bytes bytes)
{
    static constexpr std::array<int, 3> hertz = {48000, 44100, 32000};
    static constexpr std::array<int, 4> blocks = {1, 2, 3, 6};
    constexpr unsigned dependent = 1; // more channels of the frame before
    const unsigned kind = bytes[2] >> 6;
    const unsigned rateIndex = bytes[4] >> 6;
    const unsigned second = bytes[4] >> 4 & 3;
    const unsigned version = bytes[5] >> 3;
    if (bytes[0] != 0x0b || bytes[1] != 0x77 || version < 11 || version > 16 || kind == 3 ||
        (rateIndex == 3 && second == 3))
        return std::nullopt;
    const int rate = rateIndex == 3 ? hertz[second] / 2 : hertz[rateIndex];
    const int samples = 256 * (rateIndex == 3 ? 6 : blocks[second]);
    const bool isFirst = kind != dependent && (bytes[2] >> 3 & 7) == 0;
    return FrameHeader{Container::Ac3, 0x100 | rateIndex, 2 * (((bytes[2] & 7) << 8 | bytes[3]) + qint64{1}),
                       isFirst ? static_cast<double>(samples) / rate : 0};
}

/// LATM in a stream of its own (ISO 14496-3, 1.7): sync 11 bits, size 13; then, in frames that tell what they
/// hold: a zero, version 1 bit, timing 1, frames within 6, programs 4, layers 3, kind of sound 5, sample
/// rate 4.
std::optional<FrameHeader> latmHeader(MusicFile::Bytes bytes)
{
    if (bytes[0] != 0x56 || (bytes[1] & 0xe0) != 0xe0)
        return std::nullopt;
    const qint64 size = 3 + ((bytes[1] & 0x1f) << 8 | bytes[2]);
    FrameHeader header{Container::Latm, 0, size, 0};
    const bool tells = (bytes[3] & 0xc0) == 0;
    const auto rateIndex = static_cast<std::size_t>((bytes[5] & 7) << 1 | bytes[6] >> 7);
    if (tells && rateIndex < aacHertz.size())
        header.seconds = (1 + ((bytes[3] & 0x1f) << 1 | bytes[4] >> 7)) * 1024.0 / aacHertz[rateIndex];
    return size > 7 ? std::optional(header) : std::nullopt;
}

std::optional<FrameHeader> frameHeader(MusicFile::Bytes bytes)
{
    if (bytes.size() < 7)
        return std::nullopt;
    if (bytes[0] == 0x0b) {
        const auto header = ac3Header(bytes);
        return header ? header : enhancedAc3Header(bytes);
    }
    if (bytes[0] == 0x56)
        return latmHeader(bytes);
    if (auto header = mpegHeader(bytes))
        return header;
    return adtsHeader(bytes);
}

/// Whether a run of like frames begins at @p at. The last of them may be cut off by the end of the file,
/// but not the first.
bool isRun(MusicFile &file, qint64 at, qint64 end, const FrameHeader &first)
{
    qint64 next = at + first.size;
    for (int frame = 1; frame < framesInARow; ++frame) {
        if (next >= end - 8)
            return frame > 1 && next >= end - 8;
        const auto header = frameHeader(file.view(next, 8));
        if (!header || header->container != first.container || header->kind != first.kind)
            return false;
        next += header->size;
    }
    return true;
}

/// Nothing but the frames themselves tells how long such a stream is.
double secondsOfFrames(MusicFile &file, qint64 at, qint64 end, const FrameHeader &first)
{
    double seconds = 0;
    double last = 0; // a frame of LATM can leave out what was said before
    while (at < end) {
        const auto header = frameHeader(file.view(at, 8));
        if (!header || header->container != first.container)
            break;
        last = header->seconds > 0 || first.container != Container::Latm ? header->seconds : last;
        seconds += last;
        at += header->size;
    }
    return seconds;
}

MusicLayout layoutFrom(MusicFile &file, qint64 at, qint64 end, const FrameHeader &first)
{
    MusicLayout layout{first.container, {{at, end - at}}};
    if (first.container != Container::Mpeg)
        layout.soundSeconds = secondsOfFrames(file, at, end, first);
    return layout;
}

} // namespace

std::optional<MusicLayout> frameLayout(MusicFile &file, qint64 begin, qint64 end)
{
    constexpr qint64 step = 4096;
    for (qint64 at = begin; at < end && at < begin + searchedBytes; at += step) {
        // A header can begin in one step and end in the next; isRun moves the window, so look it up again.
        for (std::size_t i = 0; i < step; ++i) {
            const auto bytes = file.view(at, step + 8);
            const auto sync =
                std::find_if(bytes.begin() + std::min(i, bytes.size()), bytes.end(),
                             [](auto byte) { return byte == 0xff || byte == 0x0b || byte == 0x56; });
            i = static_cast<std::size_t>(sync - bytes.begin());
            if (i >= step || i + 8 > bytes.size())
                break;
            const auto header = frameHeader(bytes.subspan(i));
            const auto found = at + static_cast<qint64>(i);
            if (header && isRun(file, found, end, *header))
                return layoutFrom(file, found, end, *header);
        }
    }
    return std::nullopt;
}

} // namespace trackwise
