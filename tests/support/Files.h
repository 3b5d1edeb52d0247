// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>

namespace trackwise {

/// Empty when it cannot be read.
[[nodiscard]] inline QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The end of the test when it cannot be written.
inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace trackwise
