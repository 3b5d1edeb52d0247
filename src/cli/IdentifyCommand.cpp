// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Commands.h"

#include "cli/Console.h"
#include "cli/Interruption.h"
#include "cli/NamedClip.h"
#include "cli/SongJson.h"
#include "device/integration/StoredDeviceSettings.h"
#include "device/recognizer/CatalogSummary.h"
#include "device/recognizer/LibraryRecognition.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>

namespace trackwise::cli {

namespace {

Result<NamedClip> identified(const LibraryQuestions &library, const fingerprint::Catalog &catalog,
                             const QByteArray &file)
{
    QElapsedTimer clock;
    clock.start();
    const auto answer = recognizeClip(catalog, file);
    if (!answer)
        return answer.failure();
    NamedClip clip = named(library, *answer);
    clip.milliseconds = double(clock.nsecsElapsed()) / 1e6;
    return clip;
}

QString toLine(const QString &text)
{
    return printable(text).replace(u'\n', u' ') + u'\n';
}

/// That something is not found means that there is no match.
ExitCode failed(const Failure &failure)
{
    complain(failure.detail);
    return ExitCode::Failure;
}

/// What the microphone hears; nothing where the user ended it.
std::optional<Result<ClipAnswer>> heard(LibraryRecognition &session)
{
    std::optional<Result<ClipAnswer>> answer;
    StatusLine line;
    QEventLoop loop;
    const Interruption interruption(loop, [&] { loop.quit(); });
    QObject::connect(&session, &LibraryRecognition::didDecide, &loop, [&](const ClipAnswer &decided) {
        answer = decided;
        loop.quit();
    });
    QObject::connect(&session, &RecognitionSession::didNotFind, &loop,
                     [&](const std::optional<QString> &error) {
                         if (!error)
                             return;
                         answer = Failure{FailureKind::Unavailable, *error};
                         loop.quit();
                     });
    QObject::connect(&session, &LibraryRecognition::didBreakOff, &loop, [&](const QString &why) {
        answer = Failure{FailureKind::Unavailable, why};
        loop.quit();
    });
    line.show(QStringLiteral("Listening…"));
    if (const auto failure = session.start())
        return *failure;
    loop.exec();
    session.stop();
    return answer;
}

} // namespace

ExitCode identifyWhatIsHeard(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return failed(library.failure());
    const auto catalog = readCatalog(library->configuration.databasePath);
    if (!catalog)
        return failed(catalog.failure());
    const auto settings = userSettings();
    if (StoredDeviceSettings(*settings).microphoneAccess() == AccessChoice::Denied)
        return failed(
            {FailureKind::Unavailable,
             QStringLiteral("the microphone may not be used; this can be changed in the settings")});
    warnOfSongsLeft(*library->library, **catalog);
    LibraryRecognition session(
        {.catalog = [known = *catalog] { return known; },
         .naming = namingBy(*library->library),
         .input = [&settings] { return StoredDeviceSettings(*settings).soundInput().name.toUtf8(); }});
    QElapsedTimer clock;
    clock.start();
    const auto answer = heard(session);
    if (!answer)
        return failed({FailureKind::Cancelled, QStringLiteral("stopped")});
    Result<NamedClip> clip = *answer ? Result(named(*library->library, **answer)) : answer->failure();
    if (clip)
        clip->milliseconds = double(clock.nsecsElapsed()) / 1e6;
    if (call.wantsJson)
        write(lineOf(toJson({}, clip)));
    if (!clip)
        return failed(clip.failure());
    if (!call.wantsJson)
        print(toLine(textOf(*clip)));
    return clip->answer.match ? ExitCode::Success : ExitCode::NotFound;
}

ExitCode identifyClips(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return failed(library.failure());
    const auto catalog = readCatalog(library->configuration.databasePath);
    if (!catalog)
        return failed(catalog.failure());
    warnOfSongsLeft(*library->library, **catalog);
    bool hasFailed = false;
    bool isAllFound = true;
    for (const QByteArray &file : call.operands) {
        const auto found = identified(*library->library, **catalog, file);
        hasFailed = hasFailed || !found;
        isAllFound = isAllFound && found && found->answer.match;
        if (call.wantsJson)
            write(lineOf(toJson(file, found)));
        else if (found)
            print(toLine(QFile::decodeName(file) + QStringLiteral(": ") + textOf(*found)));
        if (!found)
            complain(QFile::decodeName(file) + QStringLiteral(": ") + found.failure().detail);
        std::fflush(stdout); // whoever reads it may wait for each
    }
    if (hasFailed)
        return ExitCode::Failure;
    return isAllFound ? ExitCode::Success : ExitCode::NotFound;
}

} // namespace trackwise::cli
