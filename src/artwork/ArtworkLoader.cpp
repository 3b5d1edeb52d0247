// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkLoader.h"

#include "artwork/ArtworkDecoder.h"

#include <QLoggingCategory>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {

Q_LOGGING_CATEGORY(log, "trackwise.artwork", QtFatalMsg)

constexpr int decodingThreads = 2;
constexpr qsizetype knownBeforeSweep = 64;

// Covers are decoded at the next of these sizes, so that resizing a window, or a list beside the tile,
// decodes nothing anew.
constexpr std::array decodedSides{64, 128, 256, 384, 640, 960, 1280, 1920};

int decodedSide(int side)
{
    const auto *const next = std::lower_bound(decodedSides.begin(), decodedSides.end(), side);
    return next == decodedSides.end() ? decodedSides.back() : *next;
}

QImage shrunk(const QImage &image, int side)
{
    return image.width() <= side ? image
                                 : image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

ArtworkLoader::ArtworkLoader(Resolver resolver, qsizetype cacheBytes)
    : m_resolver(std::move(resolver))
    , m_cache(cacheBytes)
{
    m_pool.setObjectName(QStringLiteral("artwork"));
    m_pool.setMaxThreadCount(decodingThreads);
}

ArtworkLoader::~ArtworkLoader()
{
    m_pool.clear();
    m_pool.waitForDone();
}

QString ArtworkLoader::address(const MediaItem &song)
{
    if (!song.artwork)
        return {};
    const QByteArray key = song.artwork->key();
    {
        const QMutexLocker lock(&m_knownMutex);
        if (m_known.size() >= knownBeforeSweep)
            m_known.removeIf([](const auto &entry) { return entry.value().expired(); });
        m_known.insert(key, song.artwork);
    }
    return artworkAddress({song.persistentID, key});
}

ArtworkPtr ArtworkLoader::find(const ArtworkReference &reference) const
{
    {
        const QMutexLocker lock(&m_knownMutex);
        if (ArtworkPtr known = m_known.value(reference.key).lock())
            return known;
    }
    return reference.song.isInLibrary() ? m_resolver(reference.song) : nullptr;
}

QImage ArtworkLoader::square(const ArtworkReference &reference, int side, const CancelFlag &cancelled)
{
    ArtworkCacheKey key{reference.key, decodedSide(side)};
    if (cancelled->load(std::memory_order_relaxed))
        return {};
    if (const std::optional<QImage> kept = m_cache.find(key))
        return shrunk(*kept, side);

    const ArtworkPtr source = find(reference);
    const std::optional<EncodedImage> encoded = source ? source->read() : std::nullopt;
    if (!encoded || cancelled->load(std::memory_order_relaxed))
        return {};
    const Result<QImage> decoded = decodeSquare(encoded->bytes, key.side);
    if (!decoded)
        qCInfo(log) << "no picture from the artwork of" << reference.song.toString()
                    << decoded.failure().detail;
    key.contentKey = source->key(); // the song may have got another picture since the view was made
    m_cache.insert(key, decoded ? *decoded : QImage());
    return decoded ? shrunk(*decoded, side) : QImage();
}

} // namespace trackwise
