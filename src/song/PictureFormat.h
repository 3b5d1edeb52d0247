// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace trackwise {

/// The kinds of picture that covers come in. Others (vector drawings above all, which may refer to
/// further files) are no artwork, and are never opened.
enum class PictureFormat { Jpeg, Png, Gif, Bmp, WebP };

/// What the first bytes say; file names and declared types are not trusted.
[[nodiscard]] std::optional<PictureFormat> pictureFormat(QByteArrayView bytes);
/// "image/jpeg" and its like.
[[nodiscard]] QString mimeType(PictureFormat format);
/// "jpg" and its like, without the dot.
[[nodiscard]] QString fileSuffix(PictureFormat format);

} // namespace trackwise
