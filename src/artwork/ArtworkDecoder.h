// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QImage>

namespace trackwise {

/// What a cover may cost to look at. Beyond this it is refused before a pixel is decoded.
struct DecodeLimits
{
    qsizetype encodedBytes = qsizetype{64} << 20;
    /// Formats that must be unpacked whole, 4 bytes a pixel (8 with 16-bit channels).
    qint64 wholePixels = qint64{16} << 20;
    /// Baseline JPEG, which is shrunk while it is unpacked and never held whole.
    qint64 shrinkingPixels = 100'000'000;
    /// Passes of a progressive JPEG, each of which goes over the whole picture. Encoders write about ten.
    int jpegScans = 32;
};

/// The middle square of the picture with sides of at most @p side pixels, upright, in sRGB. A smaller
/// picture keeps its own size. Any thread; takes as long as the picture is large.
[[nodiscard]] Result<QImage> decodeSquare(const QByteArray &bytes, int side, const DecodeLimits &limits = {});

/// The whole picture at its own size, upright, in sRGB. One that may be looked at but not be held whole is
/// shrunk until it has at most DecodeLimits::wholePixels. Any thread.
[[nodiscard]] Result<QImage> decodeWhole(const QByteArray &bytes, const DecodeLimits &limits = {});

} // namespace trackwise
