// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/LibraryScanner.h"
#include "device/library/store/SongStore.h"

#include <chrono>
#include <functional>
#include <variant>
#include <vector>

namespace trackwise {

/// What was there when the walk came by, and is not any more or is something else: the next scan's matter.
struct HasMoved
{
    FileName file;
};
/// What has become of something that the walk has found.
using Outcome = std::variant<ScannedSong, FolderImage, ScanProblem, HasMoved>;

/// Gathers what was read and writes it in batches, each after it was found out what other files sound like on
/// which the identity of its songs hangs. One thread.
class BatchWriter
{
public:
    /// What the file at this path sounds like, see HeardSounds.
    using Listening = std::function<std::uint64_t(const QByteArray &path)>;

    BatchWriter(SongStore &store, Listening listen, ScanMonitor &monitor)
        : m_store(store)
        , m_listen(std::move(listen))
        , m_monitor(monitor)
    {}

    void gather(Outcome outcome);
    /// Writes what was gathered if it is much, or has waited for long.
    [[nodiscard]] Result<Done> writeIfDue();
    [[nodiscard]] Result<Done> write();
    /// To be called last, when it is known how many albums a folder holds.
    [[nodiscard]] Result<Done> writeImages();
    /// Takes what was written into the full-text index, and brings its old texts up to date.
    [[nodiscard]] Result<Done> finishIndex(const std::stop_token &stop);

    [[nodiscard]] ScanSummary &summary() { return m_summary; }

private:
    [[nodiscard]] Result<Done> index(const std::stop_token &stop);

    SongStore &m_store;
    Listening m_listen;
    ScanMonitor &m_monitor;
    std::vector<ScannedSong> m_songs;
    std::vector<ScanProblem> m_problems;
    std::vector<FolderImage> m_images;
    ScanSummary m_summary;
    qsizetype m_sinceIndexing = 0; ///< songs
    std::chrono::steady_clock::time_point m_lastWrite = std::chrono::steady_clock::now();
};

} // namespace trackwise
