// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>

namespace trackwise {

/// What another program said, without the one or more variants around it: a basic value, a list of texts, a
/// QVariantList, a QVariantMap, or three doubles as a QVariantList. Of anything else nothing is left.
[[nodiscard]] QVariant plainValue(QVariant value);

} // namespace trackwise
