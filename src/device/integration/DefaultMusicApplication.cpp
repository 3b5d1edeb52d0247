// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DefaultMusicApplication.h"

#include "device/integration/DefaultHandler.h"
#include "device/integration/DetachedProgram.h"

#include <QLoggingCategory>
#include <QStandardPaths>

namespace trackwise {

namespace {

Q_LOGGING_CATEGORY(log, "trackwise.integration", QtFatalMsg)

// The desktop entry's file. As in the desktop's menus, a '-' of the identifier may stand for a folder.
QString desktopFile(const QString &identifier)
{
    QString name = identifier;
    for (;;) {
        const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name);
        const qsizetype dash = name.indexOf(u'-');
        if (!path.isEmpty() || dash < 0)
            return path;
        name[dash] = u'/';
    }
}

// Both programs know how to start a desktop entry: over D-Bus where the entry asks for it, else as a command.
void startApplication(const QString &identifier)
{
    const QString file = desktopFile(identifier);
    if (!file.isEmpty() && startDetached(QStringLiteral("gio"), {QStringLiteral("launch"), file}))
        return;
    if (!startDetached(QStringLiteral("gtk-launch"), {identifier}))
        qCWarning(log) << "starting the music application" << identifier << "failed";
}

// Asks for the handler of the first of the types, then of the others, until one has a handler.
void startHandlerOf(QStringList types, QObject *receiver)
{
    if (types.isEmpty()) {
        qCInfo(log) << "no application opens music on this desktop";
        return;
    }
    const QString type = types.takeFirst();
    findDefaultHandler(type, receiver, [types, receiver](const std::optional<QString> &handler) {
        if (!handler || handler->isEmpty())
            startHandlerOf(types, receiver);
        else
            startApplication(*handler);
    });
}

} // namespace

void startDefaultMusicApplication(QObject *receiver)
{
    startHandlerOf({QStringLiteral("x-scheme-handler/music"), QStringLiteral("audio/mpeg")}, receiver);
}

} // namespace trackwise
