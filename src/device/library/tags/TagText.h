// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <taglib/tstring.h>

#include <string>

namespace trackwise {

// TagLib keeps UTF-16 units in wide characters.

[[nodiscard]] QString textOf(const TagLib::String &text);
[[nodiscard]] TagLib::String stringOf(const QString &text);

/// A key in upper case; characters outside ASCII become question marks, which no known key has.
[[nodiscard]] std::string keyOf(const TagLib::String &key);

} // namespace trackwise
