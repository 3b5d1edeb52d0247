// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/players/PlaybackTally.h"

#include <QTest>

#include <functional>
#include <vector>

using namespace trackwise;
using namespace std::chrono_literals;

using Verdict = PlaybackTally::Verdict;
using Ending = PlaybackTally::Ending;

namespace {

/// A tally, a clock that the test moves, and every verdict but Neither.
struct Listening
{
    PlaybackTally tally;
    PlaybackTally::Time now{1h};
    std::vector<Verdict> verdicts;

    void note(Verdict verdict)
    {
        if (verdict != Verdict::Neither)
            verdicts.push_back(verdict);
    }
    void begin(PlaybackTally::Milliseconds length, PlaybackTally::Milliseconds position = 0ms)
    {
        tally.begin(length, position, now);
        tally.setRate(1, now);
    }
    void listen(PlaybackTally::Milliseconds time) { now += time; }
    void pause() { tally.setRate(0, now); }
    void resume(double rate = 1) { tally.setRate(rate, now); }
    void seek(PlaybackTally::Milliseconds position) { note(tally.moveTo(position, now)); }
    void finish(Ending ending) { note(tally.finish(ending, now)); }
};

using Story = std::function<void(Listening &)>;

} // namespace

Q_DECLARE_METATYPE(Story)
Q_DECLARE_METATYPE(std::vector<Verdict>)

class tst_PlaybackTally : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void judges_data()
    {
        QTest::addColumn<Story>("story");
        QTest::addColumn<std::vector<Verdict>>("verdicts");
        const std::vector<Verdict> nothing;
        const std::vector<Verdict> played{Verdict::Played};
        const std::vector<Verdict> skipped{Verdict::Skipped};
        const auto row = [](const char *name, const std::vector<Verdict> &verdicts, const Story &story) {
            QTest::newRow(name) << story << verdicts;
        };

        row("played to the end", played,
            [](Listening &l) { l.begin(200s), l.listen(200s), l.finish(Ending::ReachedEnd); });
        row("changed at the end", played,
            [](Listening &l) { l.begin(200s), l.listen(198s), l.finish(Ending::Left); });
        row("changed before the end", nothing,
            [](Listening &l) { l.begin(200s), l.listen(190s), l.finish(Ending::Left); });
        row("with a long pause", played, [](Listening &l) {
            l.begin(200s), l.listen(100s), l.pause(), l.listen(2h), l.resume(), l.listen(100s);
            l.finish(Ending::Left);
        });
        row("a pause is not listening", nothing, [](Listening &l) {
            l.begin(200s), l.listen(1s), l.pause(), l.listen(200s), l.finish(Ending::Left);
        });
        row("dragged to the end", nothing, [](Listening &l) {
            l.begin(200s), l.listen(50s), l.seek(195s), l.listen(5s), l.finish(Ending::ReachedEnd);
        });
        row("first third left out", played,
            [](Listening &l) { l.begin(200s), l.seek(66s), l.listen(134s), l.finish(Ending::ReachedEnd); });
        row("found in the middle", played,
            [](Listening &l) { l.begin(200s, 120s), l.listen(80s), l.finish(Ending::Left); });
        row("counted once", played, [](Listening &l) {
            l.begin(200s), l.listen(200s), l.finish(Ending::ReachedEnd), l.finish(Ending::Left), l.seek(0s);
        });
        row("repeated", {Verdict::Played, Verdict::Played}, [](Listening &l) {
            l.begin(200s), l.listen(200s), l.seek(0s), l.listen(200s), l.seek(0s), l.listen(1s);
            l.finish(Ending::Left);
        });
        row("short piece", played,
            [](Listening &l) { l.begin(3s), l.listen(2900ms), l.finish(Ending::Left); });
        row("short piece left", skipped,
            [](Listening &l) { l.begin(4s), l.listen(3s), l.finish(Ending::Left); });
        row("at double speed", played,
            [](Listening &l) { l.begin(200s), l.resume(2), l.listen(99s), l.finish(Ending::Left); });
        row("length known late", played, [](Listening &l) {
            l.begin(0s), l.listen(3s), l.tally.setLength(200s), l.listen(196s), l.finish(Ending::Left);
        });
        row("length never known", played,
            [](Listening &l) { l.begin(0s), l.listen(200s), l.finish(Ending::ReachedEnd); });
        row("left at once", nothing,
            [](Listening &l) { l.begin(200s), l.listen(1900ms), l.finish(Ending::Left); });
        row("left after two seconds", skipped,
            [](Listening &l) { l.begin(200s), l.listen(2s), l.finish(Ending::Left); });
        row("left at twenty", skipped,
            [](Listening &l) { l.begin(200s), l.listen(20s), l.finish(Ending::Left); });
        row("left after twenty", nothing,
            [](Listening &l) { l.begin(200s), l.listen(20001ms), l.finish(Ending::Left); });
        row("left after a jump", nothing, [](Listening &l) {
            l.begin(200s), l.listen(3s), l.seek(100s), l.listen(3s), l.finish(Ending::Left);
        });
        row("rewound is not repeated", nothing, [](Listening &l) {
            l.begin(200s), l.listen(100s), l.seek(0s), l.listen(30s), l.finish(Ending::Left);
        });
    }
    void judges()
    {
        QFETCH(Story, story);
        QFETCH(std::vector<Verdict>, verdicts);
        Listening listening;
        story(listening);
        QCOMPARE(listening.verdicts, verdicts);
    }

    void reckonsThePosition()
    {
        Listening l;
        l.begin(200s, 10s);
        l.listen(5s);
        QCOMPARE(l.tally.position(l.now), 15000ms);
        QCOMPARE(l.tally.position(l.now - 1h), 10000ms); // a clock that runs back moves nothing
        l.listen(1h);
        QCOMPARE(l.tally.position(l.now), 200000ms);
    }
};

QTEST_GUILESS_MAIN(tst_PlaybackTally)
#include "tst_PlaybackTally.moc"
