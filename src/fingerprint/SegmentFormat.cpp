// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SegmentFormat.h"

#include "fingerprint/Bits.h"

#include <algorithm>
#include <xxhash.h>

namespace trackwise::fingerprint {

namespace {

/// Not text, and told from text whose line ends or eighth bits were changed on the way.
constexpr std::array<std::uint8_t, 8> magic{0x93, 'T', 'W', 'C', '\r', '\n', 0x1a, '\n'};
constexpr std::uint32_t version = 1;

/// Takes number after number.
class Fields
{
public:
    explicit Fields(const std::uint8_t *bytes)
        : m_next(bytes)
    {}
    template <typename T>
    void take(T &value)
    {
        value = loadLittle<T>(m_next);
        m_next += sizeof(T);
    }

private:
    const std::uint8_t *m_next;
};

bool liesIn(const SegmentHeader::Extent &extent, std::uint64_t fileSize)
{
    return extent.offset >= SegmentHeader::size && extent.offset <= fileSize &&
           extent.size <= fileSize - extent.offset && fileSize - extent.offset - extent.size >= bitPadding;
}

} // namespace

std::vector<std::uint8_t> SegmentHeader::bytes() const
{
    std::vector<std::uint8_t> result(magic.begin(), magic.end());
    appendLittle(result, version);
    appendLittle(result, std::uint32_t(size));
    appendLittle(result, fileSize);
    appendLittle(result, pairCount);
    appendLittle(result, songCount);
    appendLittle(result, lineLength);
    appendLittle(result, groupShift);
    appendLittle(result, directoryBits);
    for (const Extent &part : parts) {
        appendLittle(result, part.offset);
        appendLittle(result, part.size);
        appendLittle(result, part.checksum);
    }
    result.resize(size - sizeof(std::uint64_t));
    appendLittle(result, checksumOf(result));
    return result;
}

CatalogResult<SegmentHeader> SegmentHeader::of(std::span<const std::uint8_t> first, std::uint64_t fileSize)
{
    using Kind = CatalogFailure::Kind;
    const std::size_t compared = std::min(first.size(), magic.size());
    if (first.empty() || !std::equal(magic.begin(), magic.begin() + std::ptrdiff_t(compared), first.begin()))
        return CatalogFailure{Kind::NotACatalog, "the first bytes are those of something else"};
    if (first.size() < size)
        return CatalogFailure{Kind::Truncated, "not even the header is whole"};
    Fields fields(first.data() + magic.size());
    std::uint32_t itsVersion = 0;
    std::uint32_t itsSize = 0;
    fields.take(itsVersion);
    fields.take(itsSize);
    if (itsVersion > version)
        return CatalogFailure{Kind::NewerVersion, "made as version " + std::to_string(itsVersion)};
    const auto checksum = loadLittle<std::uint64_t>(first.data() + size - sizeof(std::uint64_t));
    if (itsVersion != version || itsSize != size ||
        checksum != checksumOf(first.first(size - sizeof(std::uint64_t))))
        return CatalogFailure{Kind::Damaged, "the header does not have its checksum"};
    SegmentHeader header;
    fields.take(header.fileSize);
    fields.take(header.pairCount);
    fields.take(header.songCount);
    fields.take(header.lineLength);
    fields.take(header.groupShift);
    fields.take(header.directoryBits);
    if (fileSize < header.fileSize)
        return CatalogFailure{Kind::Truncated, "has " + std::to_string(fileSize) + " bytes of " +
                                                   std::to_string(header.fileSize)};
    for (Extent &part : header.parts) {
        fields.take(part.offset);
        fields.take(part.size);
        fields.take(part.checksum);
        if (!liesIn(part, fileSize))
            return CatalogFailure{Kind::Damaged, "a part lies beyond the end"};
    }
    if (header.parts[Songs].size != header.songCount * std::uint64_t(SongRow::size))
        return CatalogFailure{Kind::Damaged, "the table of songs has another size than its songs"};
    return header;
}

void SongRow::appendTo(std::vector<std::uint8_t> &bytes) const
{
    appendLittle(bytes, persistentID);
    appendLittle(bytes, stamp);
    appendLittle(bytes, peaksOffset);
    appendLittle(bytes, peaksSize);
    appendLittle(bytes, beginning);
    appendLittle(bytes, textsOffset);
    appendLittle(bytes, pairCount);
    appendLittle(bytes, std::bit_cast<std::uint32_t>(seconds));
    appendLittle(bytes, density);
}

SongRow SongRow::of(const std::uint8_t *bytes)
{
    SongRow row;
    Fields fields(bytes);
    fields.take(row.persistentID);
    fields.take(row.stamp);
    fields.take(row.peaksOffset);
    fields.take(row.peaksSize);
    fields.take(row.beginning);
    fields.take(row.textsOffset);
    fields.take(row.pairCount);
    std::uint32_t seconds = 0;
    fields.take(seconds);
    row.seconds = std::bit_cast<float>(seconds);
    fields.take(row.density);
    return row;
}

std::uint64_t checksumOf(std::span<const std::uint8_t> bytes)
{
    return XXH3_64bits(bytes.data(), bytes.size());
}

} // namespace trackwise::fingerprint
