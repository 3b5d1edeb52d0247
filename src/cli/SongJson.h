// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"

#include <QJsonObject>

namespace trackwise::cli {

/// Every property of the record under its own name, null where it is absent; "path" (with "path_hex", its
/// bytes, where it is not UTF-8) and "available". Dates are ISO 8601 in UTC, the persistent identifier 16
/// hexadecimal digits, the artwork the key of its picture.
[[nodiscard]] QJsonObject toJson(const LibrarySong &song);

/// As a line of its own.
[[nodiscard]] QByteArray lineOf(const QJsonObject &json);

} // namespace trackwise::cli
