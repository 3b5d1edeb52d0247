// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkCache.h"

namespace trackwise {

namespace {
constexpr qsizetype entryBytes = 256; // key, image header and hash node, roughly
}

size_t qHash(const ArtworkCacheKey &key, size_t seed)
{
    return qHashMulti(seed, key.contentKey, key.side);
}

ArtworkCache::ArtworkCache(qsizetype limitBytes)
    : m_images(limitBytes)
{}

std::optional<QImage> ArtworkCache::find(const ArtworkCacheKey &key) const
{
    const QMutexLocker lock(&m_mutex);
    const QImage *image = m_images.object(key);
    return image ? std::optional(*image) : std::nullopt;
}

void ArtworkCache::insert(const ArtworkCacheKey &key, const QImage &image)
{
    const QMutexLocker lock(&m_mutex);
    m_images.insert(key, new QImage(image), image.sizeInBytes() + entryBytes); // the cache owns it
}

qsizetype ArtworkCache::usedBytes() const
{
    const QMutexLocker lock(&m_mutex);
    return m_images.totalCost();
}

} // namespace trackwise
