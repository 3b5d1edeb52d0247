// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Catalog.h"

#include <algorithm>
#include <limits>

namespace trackwise::fingerprint {

namespace {

bool isRemovedOf(const Catalog::Part &part, SongNumber number)
{
    return number < part.removed.size() && part.removed[number];
}

} // namespace

Catalog::Catalog(std::vector<Part> parts)
{
    for (Part &part : parts) {
        const Segment &segment = *part.segment;
        if (segment.lineLength() > longestLine - m_lineLength ||
            segment.songCount() > std::numeric_limits<SongNumber>::max() - m_songCount)
            continue;
        m_placed.push_back({&segment.packedPlaces(), m_lineLength, m_songCount});
        m_lineLength += segment.lineLength();
        m_songCount += segment.songCount();
        m_parts.push_back(std::move(part));
    }
}

std::optional<SongTime> Catalog::songAt(double place) const
{
    if (!(place >= 0))
        return std::nullopt;
    const auto next = std::upper_bound(m_placed.begin(), m_placed.end(), place,
                                       [](double at, const Placed &placed) { return at < placed.base; });
    if (next == m_placed.begin())
        return std::nullopt;
    const auto index = std::size_t(next - m_placed.begin() - 1);
    auto found = m_parts[index].segment->songAt(place - m_placed[index].base);
    if (!found || isRemovedOf(m_parts[index], found->song))
        return std::nullopt;
    found->song += m_placed[index].firstSong;
    return found;
}

void Catalog::peaks(SongNumber number, float first, float last, std::vector<KeptPeak> &out) const
{
    const std::size_t part = partOf(number);
    m_parts[part].segment->peaks(number - m_placed[part].firstSong, first, last, out);
}

CatalogSong Catalog::song(SongNumber number) const
{
    const std::size_t part = partOf(number);
    return m_parts[part].segment->song(number - m_placed[part].firstSong);
}

std::string_view Catalog::originOf(SongNumber number) const
{
    return m_parts[partOf(number)].origin;
}

bool Catalog::isRemoved(SongNumber number) const
{
    const std::size_t part = partOf(number);
    return isRemovedOf(m_parts[part], number - m_placed[part].firstSong);
}

std::size_t Catalog::partOf(SongNumber number) const
{
    const auto next = std::upper_bound(m_placed.begin(), m_placed.end(), number,
                                       [](SongNumber n, const Placed &p) { return n < p.firstSong; });
    return std::size_t(next - m_placed.begin() - 1);
}

} // namespace trackwise::fingerprint
