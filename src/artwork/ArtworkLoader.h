// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkAddress.h"
#include "artwork/ArtworkCache.h"

#include <QHash>
#include <QImage>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>

namespace trackwise {

/// Set from any thread by whoever does not want a picture any more.
using CancelFlag = std::shared_ptr<std::atomic<bool>>;

/// Finds, decodes and keeps the covers of all windows. One for the process; it must outlive the engines
/// whose views it feeds. Decoded covers take at most ArtworkCache::defaultLimit; while one is being
/// decoded, DecodeLimits bound what that takes.
class ArtworkLoader
{
public:
    /// Looks up the artwork of a song of the library. Called on worker threads.
    using Resolver = std::function<ArtworkPtr(PersistentID)>;

    explicit ArtworkLoader(Resolver resolver, qsizetype cacheBytes = ArtworkCache::defaultLimit);
    ~ArtworkLoader();

    /// The address of a song's artwork for a view, empty when it has none. The picture of a song outside
    /// the library can be had by that address as long as a copy of the song is kept. Any thread.
    [[nodiscard]] QString address(const MediaItem &song);

    /// The cover's middle square, at most @p side pixels wide; null when there is none, when it cannot be
    /// decoded, or when nobody wants it any more. Worker threads only: reads files and decodes.
    [[nodiscard]] QImage square(const ArtworkReference &reference, int side, const CancelFlag &cancelled);

    /// Where to call square(). What was asked for last is best started first, with a rising priority.
    [[nodiscard]] QThreadPool &pool() { return m_pool; }
    /// For QThreadPool::start(): higher than any number given before.
    [[nodiscard]] int nextPriority() { return m_priority.fetch_add(1, std::memory_order_relaxed); }
    [[nodiscard]] const ArtworkCache &cache() const { return m_cache; }

private:
    [[nodiscard]] ArtworkPtr find(const ArtworkReference &reference) const;

    Resolver m_resolver;
    mutable QMutex m_knownMutex;
    QHash<QByteArray, std::weak_ptr<const ArtworkSource>> m_known; ///< by key
    ArtworkCache m_cache;
    std::atomic<int> m_priority{0};
    QThreadPool m_pool;
};

} // namespace trackwise
