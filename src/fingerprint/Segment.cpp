// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Segment.h"

#include "fingerprint/PackedPeaks.h"
#include "fingerprint/SegmentTexts.h"

#include <algorithm>
#include <cmath>

namespace trackwise::fingerprint {

namespace {

std::span<const std::uint8_t> partOf(std::span<const std::uint8_t> file, const SegmentHeader::Extent &extent)
{
    return file.subspan(extent.offset, extent.size);
}

} // namespace

CatalogResult<Segment::Ptr> Segment::of(SegmentBytes bytes)
{
    const auto header = SegmentHeader::of(bytes.all(), bytes.all().size());
    if (const auto *failure = std::get_if<CatalogFailure>(&header))
        return *failure;
    const std::shared_ptr<const Segment> segment(
        new Segment(std::move(bytes), std::get<SegmentHeader>(header)));
    for (const auto part : {SegmentHeader::Directory, SegmentHeader::Songs, SegmentHeader::Texts}) {
        if (const auto failure = segment->verify(part))
            return *failure;
    }
    if (!segment->rowsAreSound())
        return CatalogFailure{CatalogFailure::Kind::Damaged, "the table of songs contradicts itself"};
    return segment;
}

CatalogResult<Segment::Ptr> Segment::ofFile(const std::filesystem::path &path)
{
    auto bytes = SegmentBytes::ofFile(path);
    if (const auto *failure = std::get_if<CatalogFailure>(&bytes))
        return *failure;
    auto segment = of(std::get<SegmentBytes>(std::move(bytes)));
    if (auto *failure = std::get_if<CatalogFailure>(&segment))
        failure->detail = path.string() + ": " + failure->detail;
    return segment;
}

Segment::Segment(SegmentBytes bytes, const SegmentHeader &header)
    : m_bytes(std::move(bytes))
    , m_header(header)
    , m_places(PlaceCoding(header.groupShift, header.lineLength),
               {part(SegmentHeader::Groups), part(SegmentHeader::Directory), header.directoryBits})
{}

std::optional<CatalogFailure> Segment::verify() const
{
    for (int part = 0; part < SegmentHeader::PartCount; ++part) {
        if (auto failure = verify(SegmentHeader::Part(part)))
            return failure;
    }
    return std::nullopt;
}

std::optional<CatalogFailure> Segment::verify(SegmentHeader::Part part) const
{
    if (checksumOf(this->part(part)) == m_header.parts[part].checksum)
        return std::nullopt;
    return CatalogFailure{CatalogFailure::Kind::Damaged,
                          "part " + std::to_string(int(part)) + " does not have its checksum"};
}

bool Segment::rowsAreSound() const
{
    const std::size_t peaksSize = part(SegmentHeader::Peaks).size();
    if (m_header.lineLength > longestLine)
        return false;
    LinePlace free = 0; // of the line from here on
    for (SongNumber number = 0; number < songCount(); ++number) {
        const SongRow row = this->row(number);
        if (row.beginning < free || row.beginning - free < lineMargin ||
            m_header.lineLength - row.beginning < lineMargin || row.beginning > m_header.lineLength ||
            row.peaksOffset > peaksSize || row.peaksSize > peaksSize - row.peaksOffset)
            return false;
        free = row.beginning + lineMargin;
    }
    return true;
}

std::optional<SongTime> Segment::songAt(double place) const
{
    if (!(place >= 0) || place >= m_header.lineLength)
        return std::nullopt;
    // The line between two songs belongs half to the one and half to the other.
    SongNumber begin = 0;
    for (SongNumber behind = songCount(); begin < behind;) {
        const SongNumber middle = begin + (behind - begin) / 2;
        if (row(middle).beginning <= place + lineMargin)
            begin = middle + 1;
        else
            behind = middle;
    }
    if (begin == 0)
        return std::nullopt;
    const double inSong = place - row(begin - 1).beginning;
    return SongTime{begin - 1, float(inSong * framesPerPlace)};
}

CatalogSong Segment::song(SongNumber number) const
{
    const SongRow row = this->row(number);
    CatalogSong song;
    song.persistentID = row.persistentID;
    song.stamp = row.stamp;
    song.seconds = std::isfinite(row.seconds) ? row.seconds : 0;
    const auto texts = part(SegmentHeader::Texts);
    takeTexts(texts.subspan(std::min<std::size_t>(row.textsOffset, texts.size())), song);
    return song;
}

SongRow Segment::row(SongNumber number) const
{
    return SongRow::of(part(SegmentHeader::Songs).data() + number * SongRow::size);
}

LinePlace Segment::lengthOf(SongNumber number) const
{
    const bool isLast = number + 1 == songCount();
    const LinePlace behind = isLast ? m_header.lineLength : row(number + 1).beginning - lineMargin;
    return behind - lineMargin - row(number).beginning;
}

void Segment::peaks(SongNumber number, float first, float last, std::vector<KeptPeak> &out) const
{
    unpackPeaks(packedPeaks(number), first, last, out);
}

std::span<const std::uint8_t> Segment::packedPeaks(SongNumber number) const
{
    const SongRow row = this->row(number);
    return part(SegmentHeader::Peaks).subspan(row.peaksOffset, row.peaksSize);
}

std::span<const std::uint8_t> Segment::part(SegmentHeader::Part part) const
{
    return partOf(m_bytes.all(), m_header.parts[part]);
}

} // namespace trackwise::fingerprint
