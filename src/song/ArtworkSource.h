// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <memory>
#include <optional>

namespace trackwise {

/// A picture as it was stored: the original bytes, undecoded. The format is found by looking at them.
struct EncodedImage
{
    QByteArray bytes;
};

/// Where a song's artwork can be had from. A value shared by every copy of the song's record.
class ArtworkSource
{
public:
    virtual ~ArtworkSource() = default;

    /// Names the picture's content: two sources with the same key give the same picture. Any thread.
    [[nodiscard]] virtual QByteArray key() const = 0;
    /// The stored bytes, or nothing when they cannot be had any more. Reads files: worker threads only.
    [[nodiscard]] virtual std::optional<EncodedImage> read() const = 0;

protected:
    ArtworkSource() = default;
    ArtworkSource(const ArtworkSource &) = default;
    ArtworkSource &operator=(const ArtworkSource &) = default;
};

using ArtworkPtr = std::shared_ptr<const ArtworkSource>;

} // namespace trackwise
