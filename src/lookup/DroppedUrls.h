// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QMimeData;

namespace trackwise {

/// The addresses in data that was dropped or pasted, from the first of these formats that has any: a list of
/// addresses, a browser's link, plain text, links in HTML. Only the start of a very large text is read.
[[nodiscard]] QStringList droppedUrls(const QMimeData &data);

} // namespace trackwise
