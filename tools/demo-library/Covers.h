// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace trackwise::demo {

/// The drawing of this name as a JPEG file, 600 by 600. Throws std::runtime_error when there is none.
[[nodiscard]] QByteArray drawCover(const QString &name);

} // namespace trackwise::demo
