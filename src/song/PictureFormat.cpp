// SPDX-License-Identifier: GPL-3.0-or-later
#include "song/PictureFormat.h"

#include <algorithm>
#include <array>

namespace trackwise {

namespace {

struct FormatFacts
{
    PictureFormat format;
    QByteArrayView start;
    const char *mimeType;
    const char *suffix;
};

constexpr std::array formatTable{
    FormatFacts{PictureFormat::Jpeg, "\xff\xd8\xff", "image/jpeg", "jpg"},
    FormatFacts{PictureFormat::Png, "\x89PNG\r\n\x1a\n", "image/png", "png"},
    FormatFacts{PictureFormat::Gif, "GIF8", "image/gif", "gif"},
    FormatFacts{PictureFormat::Bmp, "BM", "image/bmp", "bmp"},
    FormatFacts{PictureFormat::WebP, "RIFF", "image/webp", "webp"},
};

const FormatFacts &facts(PictureFormat format)
{
    return *std::ranges::find(formatTable, format, &FormatFacts::format);
}

/// "RIFF", four bytes of length, "WEBP": sound comes in RIFF files too.
bool isWebP(QByteArrayView riff)
{
    return riff.size() >= 12 && riff.sliced(8, 4) == "WEBP";
}

} // namespace

std::optional<PictureFormat> pictureFormat(QByteArrayView bytes)
{
    for (const FormatFacts &f : formatTable) {
        if (bytes.startsWith(f.start) && (f.format != PictureFormat::WebP || isWebP(bytes)))
            return f.format;
    }
    return std::nullopt;
}

QString mimeType(PictureFormat format)
{
    return QString::fromLatin1(facts(format).mimeType);
}

QString fileSuffix(PictureFormat format)
{
    return QString::fromLatin1(facts(format).suffix);
}

} // namespace trackwise
