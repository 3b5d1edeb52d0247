// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DefaultMusicApplication.h"

#include "device/integration/DetachedProgram.h"

#include <QLoggingCategory>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>

namespace trackwise {

namespace {

Q_LOGGING_CATEGORY(log, "trackwise.integration", QtFatalMsg)

using namespace std::chrono_literals;
constexpr auto patience = 5s; // a shell script that reads a few small files

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
    auto *query = new QProcess(receiver);
    const auto goOn = [query, types, receiver] {
        query->deleteLater();
        const QString handler =
            QString::fromUtf8(query->readAllStandardOutput()).section(u'\n', 0, 0).trimmed();
        if (handler.isEmpty())
            startHandlerOf(types, receiver);
        else
            startApplication(handler);
    };
    QObject::connect(query, &QProcess::finished, receiver, goOn);
    QObject::connect(query, &QProcess::errorOccurred, receiver, [goOn](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            goOn();
    });
    QTimer::singleShot(patience, query, &QProcess::kill);
    query->start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), type});
}

} // namespace

void startDefaultMusicApplication(QObject *receiver)
{
    startHandlerOf({QStringLiteral("x-scheme-handler/music"), QStringLiteral("audio/mpeg")}, receiver);
}

} // namespace trackwise
