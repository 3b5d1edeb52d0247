// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/PackedPlaces.h"

#include <algorithm>

namespace trackwise::fingerprint {

namespace {

/// More would make lookups slow, fewer the directory large.
constexpr std::uint64_t placesOfGroup = 50;

unsigned shiftFor(std::uint64_t places)
{
    unsigned shift = 0;
    while (shift < PlaceCoding::widestGroup && (places << (shift + 1)) / cellCount <= placesOfGroup)
        ++shift;
    return shift;
}

/// Moves @p at behind the next @p ones ones; false where fewer are left before @p end.
bool skipOnes(const std::uint8_t *bytes, std::uint64_t &at, std::uint64_t end, std::uint64_t ones)
{
    while (ones > 0) {
        if (at >= end)
            return false;
        std::uint64_t word = lowestBits(bitsFrom(bytes, at), 56);
        const auto here = unsigned(std::popcount(word));
        if (here < ones) {
            ones -= here;
            at += 56;
            continue;
        }
        for (; ones > 1; --ones)
            word &= word - 1;
        at += unsigned(std::countr_zero(word)) + 1;
        return at <= end;
    }
    return true;
}

} // namespace

PlaceCoding::PlaceCoding(std::uint64_t places, LinePlace lineLength)
    : PlaceCoding(shiftFor(places), lineLength)
{}

PlaceCoding::PlaceCoding(unsigned groupShift, LinePlace lineLength)
    : m_groupShift(std::min(groupShift, widestGroup))
    , m_lineLength(lineLength)
{
    for (std::size_t places = 0; places < m_lowerBits.size(); ++places)
        m_lowerBits[places] = std::uint8_t(computedLowerBits(std::uint32_t(places)));
}

unsigned PlaceCoding::computedLowerBits(std::uint32_t places) const
{
    // Golomb: the rest of a step is 0 for about half of them.
    const std::uint64_t step = m_lineLength / (std::uint64_t(places) + 1);
    return step < 2 ? 0 : unsigned(std::bit_width(step)) - 1;
}

PackedPlaces::PackedPlaces(const PlaceCoding &coding, const Bytes &bytes)
    : m_coding(coding)
    , m_bytes(bytes)
{
    const std::uint32_t groups = coding.groupCount();
    if (bytes.directoryBits <= 32 &&
        bytes.directory.size() >= PlaceDirectory::bytesOf(groups, bytes.directoryBits))
        m_relatives = bytes.directory.data() + PlaceDirectory::bytesOfBases(groups);
}

std::uint64_t PackedPlaces::beginningOf(std::uint32_t group) const
{
    const auto base = loadLittle<std::uint64_t>(m_bytes.directory.data() +
                                                std::size_t(group / PlaceDirectory::groupsTogether) * 8);
    const std::uint64_t at = std::uint64_t(group) * m_bytes.directoryBits;
    return base + lowestBits(bitsFrom(m_relatives, at), m_bytes.directoryBits);
}

PlaceList PackedPlaces::places(Cell cell) const
{
    if (m_relatives == nullptr || cell >= cellCount)
        return {};
    const unsigned shift = m_coding.groupShift();
    const std::uint64_t from = beginningOf(cell >> shift);
    const std::uint64_t end = beginningOf((cell >> shift) + 1);
    if (from >= end || end > std::uint64_t(m_bytes.groups.size()) * 8)
        return {};
    const std::uint8_t *bytes = m_bytes.groups.data();
    GammaReader header(bytes, from + shift, end);
    const std::uint64_t wanted = lowestBits(cell, shift) + 1;
    std::uint64_t left = listCount(from);
    std::uint64_t current = header.next();
    std::uint32_t size = header.next();
    std::uint64_t ones = 0;   // of the lists before
    std::uint64_t lowers = 0; // bits of the lists up to here
    while (--left > 0 && current < wanted) {
        ones += size;
        lowers += std::uint64_t(size) * m_coding.lowerBits(size);
        current += header.next();
        size = header.next();
    }
    if (current != wanted)
        return {};
    const std::uint64_t lowersBefore = lowers;
    const std::uint32_t found = size;
    lowers += std::uint64_t(size) * m_coding.lowerBits(size);
    for (; left > 0; --left) {
        header.next();
        size = header.next();
        lowers += std::uint64_t(size) * m_coding.lowerBits(size);
    }
    std::uint64_t rest = header.at() + lowers;
    if (header.isBeyondEnd() || rest > end || !skipOnes(bytes, rest, end, ones))
        return {};
    return listAt(header.at() + lowersBefore, rest, end, found);
}

std::uint64_t PackedPlaces::listCount(std::uint64_t group) const
{
    return lowestBits(bitsFrom(m_bytes.groups.data(), group), m_coding.groupShift()) + 1;
}

void PackedPlaces::listsOf(std::uint32_t group, std::vector<CellPlaces> &out) const
{
    out.clear();
    const Cell first = group << m_coding.groupShift();
    if (m_relatives == nullptr || first >= cellCount)
        return;
    const std::uint64_t from = beginningOf(group);
    const std::uint64_t end = beginningOf(group + 1);
    if (from >= end || end > std::uint64_t(m_bytes.groups.size()) * 8)
        return;
    GammaReader header(m_bytes.groups.data(), from + m_coding.groupShift(), end);
    std::uint64_t cell = std::uint64_t(first) - 1;
    std::uint64_t lowers = 0;
    for (std::uint64_t left = listCount(from); left > 0; --left) {
        cell += header.next();
        const std::uint32_t size = header.next();
        lowers += std::uint64_t(size) * m_coding.lowerBits(size);
        out.push_back({Cell(cell), {}});
        out.back().places.m_size = size;
    }
    std::uint64_t lower = header.at();
    std::uint64_t rest = header.at() + lowers;
    const bool isWhole = !header.isBeyondEnd() && rest <= end && cell < cellCount;
    for (auto &[itsCell, places] : out) {
        const std::uint32_t size = places.size();
        places = isWhole ? listAt(lower, rest, end, size) : PlaceList();
        lower += std::uint64_t(size) * m_coding.lowerBits(size);
        if (!isWhole || !skipOnes(m_bytes.groups.data(), rest, end, size)) {
            out.clear(); // a damaged group
            return;
        }
    }
}

PlaceList PackedPlaces::listAt(std::uint64_t lower, std::uint64_t rest, std::uint64_t end,
                               std::uint32_t size) const
{
    const std::uint8_t *bytes = m_bytes.groups.data();
    PlaceList list;
    list.m_lowers = bytes + lower / 8;
    list.m_firstLower = std::uint8_t(lower % 8);
    list.m_rests = bytes + rest / 8;
    list.m_firstRest = std::uint8_t(rest % 8);
    list.m_end = bytes + (end + 7) / 8;
    list.m_size = size;
    list.m_lowerBits = std::uint8_t(m_coding.lowerBits(size));
    list.m_lineLength = m_coding.lineLength();
    return list;
}

void PlaceDirectory::add(std::uint64_t beginning)
{
    if (m_relatives.size() % groupsTogether == 0)
        m_bases.push_back(beginning);
    m_relatives.push_back(std::uint32_t(beginning - m_bases.back()));
}

PlaceDirectory::Packed PlaceDirectory::packed() const
{
    std::uint32_t most = 0;
    for (const std::uint32_t relative : m_relatives)
        most = std::max(most, relative);
    Packed result;
    result.bits = unsigned(std::bit_width(most));
    for (const std::uint64_t base : m_bases)
        appendLittle(result.bytes, base);
    BitWriter relatives;
    for (const std::uint32_t relative : m_relatives)
        relatives.put(relative, result.bits);
    const auto packed = relatives.takeAll();
    result.bytes.insert(result.bytes.end(), packed.begin(), packed.end());
    return result;
}

std::size_t PlaceDirectory::bytesOfBases(std::uint32_t groups)
{
    return (std::size_t(groups) / groupsTogether + 1) * 8; // with the end there is one group more
}

std::size_t PlaceDirectory::bytesOf(std::uint32_t groups, unsigned bits)
{
    return bytesOfBases(groups) + ((std::size_t(groups) + 1) * bits + 7) / 8;
}

PlacePacker::PlacePacker(const PlaceCoding &coding)
    : m_coding(coding)
{}

void PlacePacker::add(Cell cell, std::span<const LinePlace> places)
{
    if (places.empty())
        return;
    while (m_group < cell >> m_coding.groupShift())
        closeGroup();
    m_lists.push_back({cell, std::uint32_t(places.size())});
    m_places.insert(m_places.end(), places.begin(), places.end());
}

std::vector<std::uint8_t> PlacePacker::finish()
{
    while (m_group < m_coding.groupCount())
        closeGroup();
    m_directory.add(m_groups.bitCount());
    return m_groups.takeAll();
}

void PlacePacker::closeGroup()
{
    m_directory.add(m_groups.bitCount());
    ++m_group;
    if (m_lists.empty())
        return;
    const unsigned shift = m_coding.groupShift();
    m_groups.put(m_lists.size() - 1, shift);
    Cell before = ((m_group - 1) << shift) - 1;
    for (const auto &[cell, size] : m_lists) {
        m_groups.putGamma(cell - before);
        m_groups.putGamma(size);
        before = cell;
    }
    const auto forEachStep = [&](auto &&take) {
        const LinePlace *place = m_places.data();
        for (const auto &[cell, size] : m_lists) {
            const unsigned bits = m_coding.lowerBits(size);
            LinePlace last = 0;
            for (std::uint32_t i = 0; i < size; ++i, ++place) {
                take(*place - last, bits);
                last = *place;
            }
        }
    };
    forEachStep([&](LinePlace step, unsigned bits) { m_groups.put(lowestBits(step, bits), bits); });
    forEachStep([&](LinePlace step, unsigned bits) { m_groups.putUnary(step >> bits); });
    m_lists.clear();
    m_places.clear();
}

} // namespace trackwise::fingerprint
