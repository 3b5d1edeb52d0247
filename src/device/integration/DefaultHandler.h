// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <optional>

class QObject;

namespace trackwise {

/// Finds out which application opens @p mimeType ("audio/mpeg", "x-scheme-handler/https"). @p then is called
/// later, while @p receiver lives, with the name of its desktop entry: empty where there is none, absent
/// where nothing on this system knows.
void findDefaultHandler(const QString &mimeType, QObject *receiver,
                        const std::function<void(std::optional<QString> handler)> &then);

} // namespace trackwise
