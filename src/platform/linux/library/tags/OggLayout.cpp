// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/ContainerLayouts.h"

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
    std::uint64_t position = 0;
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
};

std::optional<Codec> codecOf(MusicFile::Bytes packet)
{
    if (stands(packet, 0, "\x01vorbis"))
        return Codec{Container::OggVorbis, 3};
    if (stands(packet, 0, "OpusHead"))
        return Codec{Container::OggOpus, 2};
    if (stands(packet, 0, "Speex   "))
        return Codec{Container::OggSpeex, 2 + static_cast<int>(littleEndian(packet, 68, 2) & 0xff)};
    if (stands(packet, 0,
               "\x7f"
               "FLAC")) // 16 bits tell how many packets follow, 0 when that is unknown
        return Codec{Container::OggFlac, 1 + std::max(1, static_cast<int>(bigEndian(packet, 7, 2)))};
    return std::nullopt;
}

/// Payload from @p begin on, at most a piece of it. @p reached tells where it stopped.
std::vector<AudioExtent> leadingPayload(MusicFile &file, qint64 begin, qint64 end, qint64 limit,
                                        qint64 &reached)
{
    std::vector<AudioExtent> payload;
    reached = begin;
    for (auto page = pageAt(file, begin, end); page && limit > 0; page = pageAt(file, page->end, end)) {
        const auto size = std::min(page->end - page->payload, limit);
        payload.push_back({page->payload, size});
        limit -= size;
        reached = page->end;
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

} // namespace

Result<MusicLayout> oggLayout(MusicFile &file, qint64 begin, qint64 end)
{
    auto page = pageAt(file, begin, end);
    if (!page)
        return Failure{FailureKind::Malformed, QStringLiteral("the Ogg file is cut off")};
    const auto codec = codecOf(file.view(page->payload, page->end - page->payload));
    if (!codec)
        return Failure{FailureKind::Unsupported, QStringLiteral("an Ogg file of a kind that is not known")};

    const auto serial = page->serial;
    auto headersLeft = codec->headerPackets - page->packetsEnded;
    for (int pages = 0; headersLeft > 0; ++pages) {
        page = pageAt(file, page->end, end);
        if (!page || pages == mostHeaderPages)
            return Failure{FailureKind::Malformed, QStringLiteral("the Ogg headers are cut off")};
        if (page->serial == serial)
            headersLeft -= page->packetsEnded;
    }

    MusicLayout layout{codec->container, {}};
    qint64 reached = 0;
    layout.sound = leadingPayload(file, page->end, end, 3 * pieceSize, reached);
    if (layout.sound.empty())
        return Failure{FailureKind::Malformed, QStringLiteral("Ogg file without sound")};
    if (pageAt(file, reached, end)) { // more than that: its start and its end have to do
        const auto tail = lastPages(file, reached, end);
        layout.sound = leadingPayload(file, page->end, end, pieceSize, reached);
        appendTrailingPayload(layout.sound, tail);
        layout.soundSalt = tail.empty() ? 0 : tail.back().position;
    }
    return layout;
}

} // namespace trackwise
