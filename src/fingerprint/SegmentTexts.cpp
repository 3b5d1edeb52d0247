// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SegmentTexts.h"

#include "fingerprint/Bits.h"

#include <string_view>

namespace trackwise::fingerprint {

namespace {

constexpr std::size_t longestText = 4096;

std::string_view shortened(std::string_view text)
{
    if (text.size() <= longestText)
        return text;
    std::size_t end = longestText;
    while (end > 0 && (std::uint8_t(text[end]) & 0xC0) == 0x80) // within a character
        --end;
    return text.substr(0, end);
}

void appendText(std::vector<std::uint8_t> &bytes, std::string_view text)
{
    const std::string_view kept = shortened(text);
    appendLittle(bytes, std::uint16_t(kept.size()));
    bytes.insert(bytes.end(), kept.begin(), kept.end());
}

std::span<const std::uint8_t> takeText(std::span<const std::uint8_t> bytes, std::string &text)
{
    if (bytes.size() < sizeof(std::uint16_t))
        return {};
    const std::size_t length = loadLittle<std::uint16_t>(bytes.data());
    bytes = bytes.subspan(sizeof(std::uint16_t));
    if (length > bytes.size())
        return {};
    text.assign(bytes.begin(), bytes.begin() + std::ptrdiff_t(length));
    return bytes.subspan(length);
}

} // namespace

void appendTexts(std::vector<std::uint8_t> &bytes, const CatalogSong &song)
{
    appendText(bytes, song.title);
    appendText(bytes, song.artist);
    appendText(bytes, song.catalogID);
}

std::span<const std::uint8_t> takeTexts(std::span<const std::uint8_t> bytes, CatalogSong &song)
{
    for (std::string *text : {&song.title, &song.artist, &song.catalogID})
        bytes = takeText(bytes, *text);
    return bytes;
}

} // namespace trackwise::fingerprint
