// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace trackwise {

/// Lyrics without the marks of the LRC format: times of lines "[01:02.30]" and words "<01:02.30>", and header
/// lines such as "[ar:Somebody]". Of a text that has no times, only other
/// systems' line ends are changed.
[[nodiscard]] QString withoutTimeMarks(QString lyrics);

/// The text of a file of unknown encoding: by its byte order mark, else UTF-8, else Windows-1252.
[[nodiscard]] QString decodedText(QByteArrayView bytes);

} // namespace trackwise
