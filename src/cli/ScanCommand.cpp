// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Commands.h"

#include "cli/Console.h"
#include "cli/Interruption.h"
#include "device/library/scan/ScanController.h"

#include <QEventLoop>
#include <QFileInfo>

#include <algorithm>

namespace trackwise::cli {

namespace {

QString textOf(const ScanProgress &progress)
{
    const QString total = progress.isTotalKnown ? QString::number(progress.filesFound)
                                                : QString::number(progress.filesFound) + u'+';
    return QStringLiteral("%1 of %2 files  %3")
        .arg(QString::number(progress.filesHandled), total, progress.currentFolder);
}

bool hasAnyFolder(const std::vector<QByteArray> &folders)
{
    return std::any_of(folders.begin(), folders.end(),
                       [](const QByteArray &folder) { return QFileInfo(QFile::decodeName(folder)).isDir(); });
}

} // namespace

ExitCode scanLibrary(const Call &call)
{
    const auto library = openLibrary(call);
    if (!library)
        return giveUp(library.failure());
    const std::vector<QByteArray> &folders = (*library)->configuration().musicFolders;
    if (folders.empty())
        return giveUp(
            {FailureKind::NotFound, QStringLiteral("there is no music folder; name one with --folder")});

    ScanController scan((*library)->store(), folders);
    {
        StatusLine line;
        QEventLoop loop;
        const Interruption interruption(loop, [&] { scan.cancel(); });
        QObject::connect(&scan, &ScanController::progressDidChange, &loop,
                         [&] { line.show(textOf(scan.progress())); });
        QObject::connect(&scan, &ScanController::finished, &loop, &QEventLoop::quit, Qt::QueuedConnection);
        if (call.wantsAll)
            scan.readEverythingAgain();
        else
            scan.start();
        loop.exec();
    }
    if (scan.failure())
        return giveUp(*scan.failure());
    if (Interruption::hasCome())
        return giveUp({FailureKind::Cancelled, QStringLiteral("stopped; what has been read is kept")});
    // Scanned all the same: the songs of an absent disk are marked as such.
    for (const QByteArray &folder : folders)
        if (!QFileInfo::exists(QFile::decodeName(folder)))
            complain(QStringLiteral("not there: ") + QFile::decodeName(folder));
    const std::vector<QByteArray> &unreadable = scan.summary().unreadableMusicFolders;
    for (const QByteArray &folder : unreadable)
        complain(QStringLiteral("cannot be read: ") + QFile::decodeName(folder));
    const auto status = (*library)->status();
    if (!status)
        return giveUp(status.failure());
    print(QStringLiteral("%1 songs, %2 files with problems\n").arg(status->available).arg(status->problems));
    if (!unreadable.empty())
        return ExitCode::Failure;
    return hasAnyFolder(folders) ? ExitCode::Success : ExitCode::NotFound;
}

} // namespace trackwise::cli
