// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DetachedProgram.h"

#include <QProcess>

namespace trackwise {

bool startDetached(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

} // namespace trackwise
