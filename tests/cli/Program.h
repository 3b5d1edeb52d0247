// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Files.h"

#include <QByteArrayList>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

/// Runs the program as a shell would: its arguments may be any bytes. The user's folders are in a scratch
/// folder.
class Program
{
protected:
    struct Outcome
    {
        int code = -1;
        QByteArray output;
        QByteArray errors;
    };

    Program()
    {
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            qputenv(name, inScratch("home"));
    }
    // QTemporaryDir does not remove names that are not UTF-8.
    ~Program() { std::filesystem::remove_all(m_scratch.path().toStdString()); }

    [[nodiscard]] QByteArray inScratch(const char *name) const
    {
        return QFile::encodeName(m_scratch.path()) + '/' + name;
    }
    [[nodiscard]] bool hasMadeNothing() const
    {
        return !std::filesystem::exists(inScratch("home").constData());
    }
    static QByteArray contents(const QByteArray &path)
    {
        return trackwise::contentsOf(QFile::decodeName(path));
    }
    /// @p shell comes before the program in the command line, such as "env -u HOME".
    [[nodiscard]] Outcome run(const QByteArrayList &arguments, const QByteArray &shell = {},
                              const QByteArray &device = {}, const QByteArray &input = "/dev/null") const
    {
        const QByteArray output = device.isEmpty() ? inScratch("output") : device;
        QByteArray line = shell + " '" TRACKWISE_PROGRAM "'";
        for (QByteArray argument : arguments)
            line += " '" + argument.replace('\'', "'\\''") + '\'';
        line += " <'" + input + "' >'" + output + "' 2>'" + inScratch("errors") + '\'';
        const int status = std::system(line.constData());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
                contents(device.isEmpty() ? output : device + "/"), contents(inScratch("errors"))};
    }

private:
    QTemporaryDir m_scratch;
};
