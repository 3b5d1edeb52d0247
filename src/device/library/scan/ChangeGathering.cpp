// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/ChangeGathering.h"

#include <algorithm>
#include <utility>

namespace trackwise {

namespace {
using namespace std::chrono_literals;
using Duration = ChangeGathering::Duration;

// The longest pause leaves an edit enough of a second to be read and shown.
constexpr Duration shortestPause = 120ms;
constexpr Duration longestPause = 600ms;
constexpr Duration firstLongest = 8s;
constexpr Duration lastLongest = 30s;
constexpr int mostPatience = 30; ///< times that for a stalled writer
constexpr Duration calm = 2s;    ///< changes that come later have nothing to do with those before
} // namespace

void ChangeGathering::add(const ScanPart &part, Time now)
{
    if (m_changed.isEmpty()) {
        const bool isGoingOn = m_lastHandedOn && now - *m_lastHandedOn < calm;
        m_pause = isGoingOn ? std::min(2 * m_pause, longestPause) : shortestPause;
        m_longest = isGoingOn ? std::min(2 * m_longest, lastLongest) : firstLongest;
        m_firstChange = now;
    }
    m_lastChange = now;
    m_changed.add(part);
}

void ChangeGathering::addGrowing(const FileName &file, Time now)
{
    Growing &growing = m_growing[file.path()];
    if (growing.isTaken || growing.patience == Duration{})
        growing.patience = growing.isTaken ? std::min(2 * growing.patience, mostPatience * m_stalledWriter)
                                           : m_stalledWriter;
    growing.file = file;
    growing.last = now;
    growing.isTaken = false;
}

void ChangeGathering::addChanged(const FileName &file, Time now)
{
    m_growing.erase(file.path());
    ScanPart part;
    part.addFolder(file.folder);
    add(part, now);
}

bool ChangeGathering::isGrowing(const FileName &file) const
{
    const auto growing = m_growing.find(file.path());
    return growing != m_growing.end() && !growing->second.isTaken;
}

void ChangeGathering::clear()
{
    m_growing.clear();
    m_changed = {};
}

ChangeGathering::Time ChangeGathering::due() const
{
    return std::min(m_lastChange + m_pause, m_firstChange + m_longest);
}

std::optional<ChangeGathering::Time> ChangeGathering::nextDue() const
{
    std::optional<Time> next;
    if (!m_changed.isEmpty())
        next = due();
    for (const auto &[path, growing] : m_growing) {
        if (!growing.isTaken)
            next = std::min(next.value_or(Time::max()), growing.last + growing.patience);
    }
    return next;
}

ScanPart ChangeGathering::takeDue(Time now)
{
    std::erase_if(m_growing, [&](const auto &entry) { // to be forgotten, since it grows no more
        return entry.second.isTaken && entry.second.last + 2 * mostPatience * m_stalledWriter < now;
    });
    ScanPart stalled;
    for (auto &[path, growing] : m_growing) {
        if (!growing.isTaken && growing.last + growing.patience <= now) {
            growing.isTaken = true;
            stalled.addFolder(growing.file.folder);
        }
    }
    if (!stalled.isEmpty())
        add(stalled, now);
    if (m_changed.isEmpty() || now < due())
        return {};
    m_lastHandedOn = now;
    return std::exchange(m_changed, {});
}

} // namespace trackwise
