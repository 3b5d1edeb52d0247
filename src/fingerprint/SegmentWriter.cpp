// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SegmentWriter.h"

#include "fingerprint/SegmentTexts.h"

#include <xxhash.h>

namespace trackwise::fingerprint {

namespace {

constexpr std::size_t bytesAtOnce = std::size_t(1) << 20;

} // namespace

SegmentWriter::SegmentWriter(SegmentOutput &output)
    : m_output(output)
    , m_checksum(XXH3_createState(), [](XXH3_state_s *state) { XXH3_freeState(state); })
{
    XXH3_64bits_reset(m_checksum.get());
    m_output.append(std::vector<std::uint8_t>(SegmentHeader::size)); // known at the end
    m_written = SegmentHeader::size;
}

SegmentWriter::~SegmentWriter() = default;

LinePlace SegmentWriter::addSong(const CatalogSong &song, const Sound &sound)
{
    SongRow row;
    row.persistentID = song.persistentID;
    row.stamp = song.stamp;
    row.peaksOffset = m_written - m_partBegin;
    row.peaksSize = std::uint32_t(sound.packedPeaks.size());
    row.beginning = m_header.lineLength + lineMargin;
    row.textsOffset = std::uint32_t(m_texts.size());
    row.pairCount = sound.pairCount;
    row.seconds = song.seconds;
    row.density = std::uint32_t(sound.density);
    row.appendTo(m_rows);
    appendTexts(m_texts, song);
    append(sound.packedPeaks);
    m_header.lineLength = row.beginning + sound.length + lineMargin;
    m_header.pairCount += sound.pairCount;
    ++m_header.songCount;
    return row.beginning;
}

void SegmentWriter::addPlaces(Cell cell, std::span<const LinePlace> places)
{
    packer().add(cell, places);
    if (packer().bytesWaiting() >= bytesAtOnce)
        append(packer().takeBytes());
}

void SegmentWriter::finish()
{
    append(packer().finish());
    endPart(SegmentHeader::Groups);
    const auto directory = packer().directory();
    m_header.directoryBits = directory.bits;
    putPart(SegmentHeader::Directory, directory.bytes);
    putPart(SegmentHeader::Songs, m_rows);
    putPart(SegmentHeader::Texts, m_texts);
    m_header.fileSize = m_written;
    m_output.putFirst(m_header.bytes());
}

void SegmentWriter::append(std::span<const std::uint8_t> bytes)
{
    XXH3_64bits_update(m_checksum.get(), bytes.data(), bytes.size());
    m_output.append(bytes);
    m_written += bytes.size();
}

void SegmentWriter::endPart(SegmentHeader::Part part)
{
    m_header.parts[part] = {m_partBegin, m_written - m_partBegin, XXH3_64bits_digest(m_checksum.get())};
    // Reading bits goes a little beyond what is read; numbers lie at multiples of 8.
    append(std::vector<std::uint8_t>(bitPadding + (8 - m_written % 8) % 8));
    XXH3_64bits_reset(m_checksum.get());
    m_partBegin = m_written;
}

void SegmentWriter::putPart(SegmentHeader::Part part, std::span<const std::uint8_t> bytes)
{
    append(bytes);
    endPart(part);
}

PlacePacker &SegmentWriter::packer()
{
    if (!m_packer) {
        endPart(SegmentHeader::Peaks);
        m_header.groupShift = PlaceCoding(m_header.pairCount, m_header.lineLength).groupShift();
        m_packer.emplace(PlaceCoding(m_header.groupShift, m_header.lineLength));
    }
    return *m_packer;
}

} // namespace trackwise::fingerprint
