// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Piece.h"

#include <QByteArray>

namespace trackwise::demo {

/// Writes the tags, lyrics and cover (JPEG; may be empty) of @p piece into the sound file @p path, in the
/// dialect of its format. Throws std::runtime_error when the file does not take them.
void writeTags(const QString &path, const Piece &piece, const QByteArray &cover);

} // namespace trackwise::demo
