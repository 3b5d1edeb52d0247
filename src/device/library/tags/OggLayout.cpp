// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerLayouts.h"

#include <algorithm>
#include <optional>

namespace trackwise {

namespace {

constexpr qint64 pageHeaderSize = 27;
constexpr int mostHeaderPages = 20'000; ///< a 64 MiB cover in pages of 4 KiB is 22,000
constexpr qint64 pieceSize = qint64{16} * 1024;

/// A page's header (RFC 3533, section 6): sequence number and checksum change when tags are written, the
/// payload of the sound's pages does not.
struct OggPage
{
    qint64 begin = 0;
    qint64 payload = 0;
    qint64 end = 0;
    int packetsEnded = 0;
    bool isFirst = false;       ///< of its stream
    std::uint64_t position = 0; ///< of the sound at its end
    std::uint64_t serial = 0;
};

std::optional<OggPage> pageAt(MusicFile &file, qint64 at, qint64 end)
{
    const auto header = file.view(at, pageHeaderSize + 255);
    if (static_cast<qint64>(header.size()) < pageHeaderSize || !stands(header, 0, "OggS") || header[4] != 0)
        return std::nullopt;
    const auto segments = header[26];
    OggPage page{.begin = at,
                 .payload = at + pageHeaderSize + segments,
                 .isFirst = (header[5] & 0x02) != 0,
                 .position = littleEndian(header, 6, 8),
                 .serial = littleEndian(header, 14, 4)};
    if (page.payload > end || header.size() < static_cast<std::size_t>(pageHeaderSize) + segments)
        return std::nullopt;
    page.end = page.payload;
    for (const auto lacing : header.subspan(pageHeaderSize, segments)) {
        page.end += lacing;
        page.packetsEnded += lacing < 255 ? 1 : 0;
    }
    return page.end <= end ? std::optional(page) : std::nullopt;
}

struct Codec
{
    Container container;
    int headerPackets;
    std::uint64_t hertz;    ///< that positions count in
    std::uint64_t lead = 0; ///< samples before the first that is heard
};

std::optional<Codec> codecOf(MusicFile::Bytes packet)
{
    if (stands(packet, 0, "\x01vorbis"))
        return Codec{Container::OggVorbis, 3, littleEndian(packet, 12, 4)};
    if (stands(packet, 0, "OpusHead"))
        return Codec{Container::OggOpus, 2, 48000, littleEndian(packet, 10, 2)};
    if (stands(packet, 0, "Speex   "))
        return Codec{Container::OggSpeex, 2 + static_cast<int>(littleEndian(packet, 68, 2) & 0xff),
                     littleEndian(packet, 36, 4)};
    if (stands(packet, 0,
               "\x7f"
               "FLAC")) // 16 bits tell how many packets follow, 0 when that is unknown
        return Codec{Container::OggFlac, 1 + std::max(1, static_cast<int>(bigEndian(packet, 7, 2))),
                     bigEndian(packet, 27, 3) >> 4};
    return std::nullopt;
}

/// Streams that lie beside each other begin one page after the other: there may be a video before the sound.
struct Stream
{
    OggPage page;
    Codec codec;
};

std::optional<Stream> soundStream(MusicFile &file, qint64 begin, qint64 end)
{
    for (auto page = pageAt(file, begin, end); page && page->isFirst; page = pageAt(file, page->end, end)) {
        if (const auto codec = codecOf(file.view(page->payload, page->end - page->payload)))
            return Stream{*page, *codec};
    }
    return std::nullopt;
}

/// Adds what the page holds of the stream's packet number @p wanted, when @p before of them have ended before
/// it.
void addPieces(std::vector<AudioExtent> &pieces, MusicFile &file, const OggPage &page, int before, int wanted)
{
    const auto table = page.payload - page.begin - pageHeaderSize;
    auto at = page.payload;
    for (const auto lacing : file.view(page.begin + pageHeaderSize, table)) {
        if (before == wanted && lacing > 0) {
            if (!pieces.empty() && pieces.back().offset + pieces.back().size == at)
                pieces.back().size += lacing;
            else
                pieces.push_back({at, lacing});
        }
        at += lacing;
        before += lacing < 255 ? 1 : 0;
    }
}

/// Payload of the stream from @p begin on, at most @p limit of it. @p reached tells where it stopped.
std::vector<AudioExtent> leadingPayload(MusicFile &file, qint64 begin, qint64 end, std::uint64_t serial,
                                        qint64 limit, qint64 &reached)
{
    constexpr int mostPages = 4096;
    std::vector<AudioExtent> payload;
    reached = begin;
    int count = 0;
    for (auto page = pageAt(file, begin, end); page && limit > 0 && count < mostPages;
         page = pageAt(file, page->end, end), ++count) {
        reached = page->end;
        if (page->serial != serial)
            continue;
        const auto size = std::min(page->end - page->payload, limit);
        payload.push_back({page->payload, size});
        limit -= size;
    }
    return payload;
}

/// Where a page begins in the window, from @p from on, with pages behind it; empty when nowhere.
std::vector<OggPage> pagesFrom(MusicFile &file, qint64 from, qint64 end)
{
    static constexpr std::string_view capture = "OggS";
    for (;;) {
        const auto window = file.view(from, MusicFile::windowSize);
        const auto found = std::search(window.begin(), window.end(), capture.begin(), capture.end());
        if (found == window.end())
            return {};
        from += found - window.begin();
        std::vector<OggPage> pages;
        for (auto page = pageAt(file, from, end); page; page = pageAt(file, page->end, end))
            pages.push_back(*page);
        if (!pages.empty())
            return pages;
        ++from; // the four letters stood there by chance
    }
}

/// The pages that end the file. One page can have 64 KiB, more than a window.
std::vector<OggPage> lastPages(MusicFile &file, qint64 begin, qint64 end)
{
    for (const auto distance : {2 * pieceSize, MusicFile::windowSize, 2 * MusicFile::windowSize}) {
        auto pages = pagesFrom(file, std::max(begin, end - distance), end);
        if (!pages.empty())
            return pages;
    }
    return {};
}

void appendTrailingPayload(std::vector<AudioExtent> &sound, const std::vector<OggPage> &pages)
{
    const auto first = sound.size();
    auto limit = pieceSize;
    for (auto page = pages.rbegin(); page != pages.rend() && limit > 0; ++page) {
        const auto size = std::min(page->end - page->payload, limit);
        sound.push_back({page->end - size, size});
        limit -= size;
    }
    std::reverse(sound.begin() + static_cast<std::ptrdiff_t>(first), sound.end());
}

/// 0 when the last pages do not tell.
double secondsUntil(const std::vector<OggPage> &pages, const Stream &stream)
{
    constexpr std::uint64_t mostSamples = std::uint64_t{1} << 48; // also no position at all, which is -1
    const auto last = std::find_if(pages.rbegin(), pages.rend(), [&stream](const OggPage &page) {
        return page.serial == stream.page.serial && page.position < mostSamples;
    });
    if (last == pages.rend() || stream.codec.hertz == 0 || last->position < stream.codec.lead)
        return 0;
    return static_cast<double>(last->position - stream.codec.lead) / static_cast<double>(stream.codec.hertz);
}

} // namespace

Result<MusicLayout> oggLayout(MusicFile &file, qint64 begin, qint64 end)
{
    if (!pageAt(file, begin, end))
        return Failure{FailureKind::Malformed, QStringLiteral("the Ogg file is cut off")};
    const auto stream = soundStream(file, begin, end);
    if (!stream)
        return Failure{FailureKind::Unsupported, QStringLiteral("an Ogg file of a kind that is not known")};

    MusicLayout layout{stream->codec.container, {}};
    constexpr int comment = 1;
    const auto serial = stream->page.serial;
    auto page = std::optional(stream->page);
    addPieces(layout.comment, file, *page, 0, comment);
    auto headers = page->packetsEnded;
    for (int pages = 0; headers < stream->codec.headerPackets; ++pages) {
        page = pageAt(file, page->end, end);
        if (!page || pages == mostHeaderPages)
            return Failure{FailureKind::Malformed, QStringLiteral("the Ogg headers are cut off")};
        if (page->serial != serial)
            continue;
        if (headers <= comment)
            addPieces(layout.comment, file, *page, headers, comment);
        headers += page->packetsEnded;
    }

    qint64 reached = 0;
    layout.sound = leadingPayload(file, page->end, end, serial, 3 * pieceSize, reached);
    if (layout.sound.empty())
        return Failure{FailureKind::Malformed, QStringLiteral("Ogg file without sound")};
    const auto tail = lastPages(file, page->end, end);
    layout.soundSeconds = secondsUntil(tail, *stream);
    if (pageAt(file, reached, end)) { // more than that: its start and its end have to do
        layout.sound = leadingPayload(file, page->end, end, serial, pieceSize, reached);
        appendTrailingPayload(layout.sound, tail);
        layout.soundSalt = tail.empty() ? 0 : tail.back().position;
    }
    return layout;
}

} // namespace trackwise
