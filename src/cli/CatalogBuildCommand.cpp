// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Commands.h"

#include "cli/Console.h"
#include "cli/Interruption.h"
#include "device/recognizer/CatalogSummary.h"
#include "device/recognizer/LibraryFingerprinting.h"

namespace trackwise::cli {

namespace {

QString textOf(const RecognitionIndexState &state)
{
    return QStringLiteral("%1 of %2 songs").arg(state.songsDone).arg(state.songsTotal);
}

} // namespace

ExitCode buildCatalog(const Call &call)
{
    // Whose folders the settings name is known of the user's own library only.
    if (!call.database || !call.musicFolders.empty()) {
        if (const ExitCode scanned = scanLibrary(call); scanned != ExitCode::Success)
            return scanned;
    }
    const auto library = readLibrary(call);
    if (!library)
        return giveUp(library.failure());
    LibraryFingerprinting fingerprinting(*library->library,
                                         catalogFolder(library->configuration.databasePath),
                                         LibraryFingerprinting::Workers::ofThisProgram(Effort::Full));
    {
        StatusLine line;
        QEventLoop loop;
        const Interruption interruption(loop, [&] { loop.quit(); });
        QObject::connect(&fingerprinting, &RecognitionIndex::stateDidChange, &loop,
                         [&] { line.show(textOf(fingerprinting.state())); });
        QObject::connect(&fingerprinting, &LibraryFingerprinting::finished, &loop, &QEventLoop::quit,
                         Qt::QueuedConnection);
        fingerprinting.lookForWork();
        loop.exec();
    }
    if (Interruption::hasCome())
        return giveUp({FailureKind::Cancelled, QStringLiteral("stopped; what has been done is kept")});
    const RecognitionIndexState state = fingerprinting.state();
    if (!state.trouble.isEmpty())
        return giveUp({FailureKind::Unavailable, state.trouble});
    print(textOf(state) + u'\n');
    if (fingerprinting.songsLeftOut() == 0)
        return ExitCode::Success;
    complain(QStringLiteral("%1 songs could not be read now").arg(fingerprinting.songsLeftOut()));
    return ExitCode::Failure;
}

} // namespace trackwise::cli
