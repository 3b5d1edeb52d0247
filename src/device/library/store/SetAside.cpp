// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SetAside.h"

#include "device/library/store/Sqlite.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace trackwise {

Result<QByteArray> setDatabaseAside(const QByteArray &path)
{
    QByteArray aside = path + ".damaged";
    for (int number = 2; access(aside.constData(), F_OK) == 0; ++number)
        aside = path + ".damaged-" + QByteArray::number(number);
    // The log first: a new database must not find it.
    for (const char *part : {"-wal", "-shm", ""}) {
        if (std::rename((path + part).constData(), (aside + part).constData()) != 0 && errno != ENOENT)
            return sqlite::inDatabase(path,
                                      {FailureKind::NoSpace, QString::fromLocal8Bit(std::strerror(errno))});
    }
    return aside;
}

} // namespace trackwise
