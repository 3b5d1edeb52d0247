// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/ScanPart.h"
#include "device/library/store/SongRecord.h"

#include <chrono>
#include <map>
#include <optional>

namespace trackwise {

/// Makes few scans of many changes. A single change is handed on almost at once; while changes keep coming,
/// they are gathered until there is a pause, or for a while that grows. Files that are being written are
/// waited for. Asks nobody for the time. One thread at a time.
class ChangeGathering
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    /// @p stalledWriter: after that time a file whose writer has not closed it, and writes nothing, is taken
    /// as it is, for now.
    explicit ChangeGathering(Duration stalledWriter = std::chrono::seconds(2))
        : m_stalledWriter(stalledWriter)
    {}

    /// Something has changed that @p part holds.
    void add(const ScanPart &part, Time now);
    /// The file is longer than before, or new; what is written of it may be a part. One that is taken and
    /// then grows again is waited for longer each time.
    void addGrowing(const FileName &file, Time now);
    /// The file is complete, has changed otherwise, or is gone.
    void addChanged(const FileName &file, Time now);
    [[nodiscard]] bool hasGrowing() const { return !m_growing.empty(); }
    [[nodiscard]] bool isGrowing(const FileName &file) const;

    void clear();

    /// When takeDue() is to be asked next; nothing: only after further changes.
    [[nodiscard]] std::optional<Time> nextDue() const;
    /// What is to be scanned now; empty: nothing yet.
    [[nodiscard]] ScanPart takeDue(Time now);

private:
    [[nodiscard]] Time due() const;

    struct Growing
    {
        FileName file;
        Time last;
        Duration patience{};
        bool isTaken = false; ///< as it was; known on, in case that it grows again
    };
    Duration m_stalledWriter;
    std::map<QByteArray, Growing> m_growing;
    ScanPart m_changed;
    Time m_firstChange;
    Time m_lastChange;
    std::optional<Time> m_lastHandedOn;
    Duration m_pause{};   ///< without changes, that ends the gathering
    Duration m_longest{}; ///< of the gathering
};

} // namespace trackwise
