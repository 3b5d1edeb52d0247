// SPDX-License-Identifier: GPL-3.0-or-later
//
// listening_figures CATALOG CLIPS: plays clips of CLIPS/clips.csv into the loudspeaker "room", before which
// the default microphone stands, and listens as a window does: how soon the first sound comes and the song is
// named, and what that costs. Then listens to all clips of what CATALOG does not have, one after the other
// and as fast as it can: how often something is named.
#include "device/recognizer/LibraryRecognition.h"
#include "fingerprint/Listening.h"
#include "fingerprint/PeakExtractor.h"
#include "fingerprint/Segment.h"
#include "recognition/SoundFile.h"
#include "support/Figures.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QStringList>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>

using namespace trackwise;
using Clock = std::chrono::steady_clock;

namespace {

constexpr std::size_t attempts = 20; ///< of each condition

struct Clip
{
    std::string file;
    std::string condition;
    std::string track;
};

std::vector<Clip> clipsOf(const std::string &folder)
{
    std::vector<Clip> clips;
    std::ifstream table(folder + "/clips.csv");
    std::string line;
    for (std::getline(table, line); std::getline(table, line);) {
        std::istringstream columns(line);
        Clip clip;
        std::getline(columns, clip.file, ',');
        std::getline(columns, clip.condition, ',');
        std::getline(columns, clip.track, ',');
        clip.file = folder + '/' + clip.file;
        clips.push_back(clip);
    }
    return clips;
}

/// Of attempts, all together.
struct Figures
{
    std::vector<double> firstSound;
    std::vector<double> match;
    int wrong = 0;
    int missed = 0;
    double cpu = 0;
    double wall = 0;
    double megabytes = 0;
};

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void listen(LibraryRecognition &session, const Clip &clip, Figures &figures)
{
    QProcess loudspeaker;
    loudspeaker.start(QStringLiteral("paplay"),
                      {QStringLiteral("--device=room"), QString::fromStdString(clip.file)});
    loudspeaker.waitForStarted();
    QEventLoop loop;
    const double idle = privateMegabytes();
    const double cpu = cpuSeconds();
    const auto start = Clock::now();
    bool hasHeard = false;
    QObject::connect(&session, &RecognitionSession::didHear, &loop, [&] {
        if (!std::exchange(hasHeard, true))
            figures.firstSound.push_back(secondsSince(start) * 1000);
        figures.megabytes = std::max(figures.megabytes, privateMegabytes() - idle);
    });
    QObject::connect(&session, &RecognitionSession::didFind, &loop,
                     [&](const std::vector<MatchedMediaItem> &items) {
                         if (items.front().title == QString::fromStdString(clip.track))
                             figures.match.push_back(secondsSince(start) * 1000);
                         else
                             ++figures.wrong;
                         loop.quit();
                     });
    QObject::connect(&session, &RecognitionSession::didNotFind, &loop, [&] {
        ++figures.missed;
        loop.quit();
    });
    if (const auto failure = session.start())
        qFatal("%s", qPrintable(failure->detail));
    loop.exec();
    session.stop();
    figures.cpu += cpuSeconds() - cpu;
    figures.wall += secondsSince(start);
    loudspeaker.kill();
    loudspeaker.waitForFinished();
}

void print(const std::string &condition, const Figures &figures)
{
    printTimes(condition + "_first_sound", figures.firstSound);
    printTimes(condition + "_match", figures.match);
    printFigure(condition + "_missed", figures.missed, "attempts");
    printFigure(condition + "_wrong", figures.wrong, "attempts");
    printFigure(condition + "_processor", 100 * figures.cpu / figures.wall, "% of a core");
    printFigure(condition + "_memory", figures.megabytes, "MB");
}

/// What is named of clips in which there is nothing to name.
void listenToOthers(const std::shared_ptr<const fingerprint::Catalog> &catalog,
                    const std::vector<Clip> &clips)
{
    std::map<std::string, int> named;
    double seconds = 0;
    int sessions = 0;
    auto listening = std::make_unique<fingerprint::Listening>(catalog);
    for (const Clip &clip : clips) {
        if (!clip.condition.starts_with("no-"))
            continue;
        const std::vector<float> sound = bench::soundOf(clip.file);
        seconds += double(sound.size()) / fingerprint::sampleRateHz;
        const std::span<const float> rest(sound);
        constexpr std::size_t piece = 2048;
        for (std::size_t at = 0; at + piece <= rest.size(); at += piece) {
            const auto answer = listening->hear(rest.subspan(at, piece));
            if (answer == fingerprint::Listening::Answer::Undecided)
                continue;
            ++sessions;
            if (answer == fingerprint::Listening::Answer::Match)
                ++named[clip.condition];
            listening = std::make_unique<fingerprint::Listening>(catalog);
        }
    }
    printFigure("others_heard", seconds / 3600, "h");
    printFigure("others_attempts", sessions, "attempts");
    int all = 0;
    for (const auto &[condition, count] : named) {
        printFigure("others_named_" + condition, count, "attempts");
        all += count;
    }
    printFigure("others_named", all, "attempts");
}

} // namespace

int main(int count, char **arguments)
{
    const QCoreApplication application(count, arguments);
    if (count != 3) {
        std::fprintf(stderr, "usage: listening_figures CATALOG CLIPS\n");
        return 2;
    }
    const auto segment = fingerprint::Segment::ofFile(arguments[1]);
    if (!std::holds_alternative<fingerprint::Segment::Ptr>(segment)) {
        std::fprintf(stderr, "listening_figures: cannot open %s\n", arguments[1]);
        return 1;
    }
    const auto catalog = std::make_shared<const fingerprint::Catalog>(
        std::vector<fingerprint::Catalog::Part>{{std::get<fingerprint::Segment::Ptr>(segment), {}, {}}});
    const std::vector<Clip> clips = clipsOf(arguments[2]);
    LibraryRecognition session({.catalog = [&catalog] { return catalog; },
                                .naming = [](fingerprint::CatalogSong &) {},
                                .input = [] { return defaultInputChoice; }});
    for (const char *condition : {"clean", "cafe"}) {
        Figures figures;
        std::size_t left = attempts;
        for (const Clip &clip : clips) {
            if (clip.condition == condition && left > 0 && left-- > 0)
                listen(session, clip, figures);
        }
        print(condition, figures);
    }
    listenToOthers(catalog, clips);
    return 0;
}
