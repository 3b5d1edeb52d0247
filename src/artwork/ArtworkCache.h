// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCache>
#include <QImage>
#include <QMutex>

#include <optional>

namespace trackwise {

/// A decoded picture's name: whose content, and how large.
struct ArtworkCacheKey
{
    QByteArray contentKey;
    int side = 0; ///< pixels

    friend bool operator==(const ArtworkCacheKey &, const ArtworkCacheKey &) = default;
};

[[nodiscard]] size_t qHash(const ArtworkCacheKey &key, size_t seed = 0);

/// Decoded covers, those used last, up to a number of bytes. A null image stands for a cover that cannot be
/// decoded, so that it is not tried again. Any thread.
class ArtworkCache
{
public:
    static constexpr qsizetype defaultLimit = qsizetype{64} << 20;

    explicit ArtworkCache(qsizetype limitBytes = defaultLimit);

    [[nodiscard]] std::optional<QImage> find(const ArtworkCacheKey &key) const;
    void insert(const ArtworkCacheKey &key, const QImage &image);
    [[nodiscard]] qsizetype usedBytes() const;

private:
    mutable QMutex m_mutex;
    QCache<ArtworkCacheKey, QImage> m_images;
};

} // namespace trackwise
