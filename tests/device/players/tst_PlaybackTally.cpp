// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/PlaybackTally.h"
#include "support/Test.h"

#include <vector>

namespace {

using Milliseconds = PlaybackTally::Milliseconds;
using Verdict = PlaybackTally::Verdict;
using Ending = PlaybackTally::Ending;
using Verdicts = std::vector<Verdict>;

/// A song that is listened to, by a clock that the test moves.
class Song
{
public:
    explicit Song(Milliseconds length, Milliseconds position = 0ms)
    {
        tally.begin(length, position, now);
        tally.setRate(1, now);
    }
    Song &listen(Milliseconds time) { return now += time, *this; }
    Song &rate(double rate) { return tally.setRate(rate, now), *this; }
    Song &learn(Milliseconds length) { return tally.setLength(length), *this; }
    Song &seek(Milliseconds position) { return note(tally.moveTo(position, now)); }
    Song &end() { return note(tally.finish(Ending::ReachedEnd, now)); }
    Song &leave() { return note(tally.finish(Ending::Left, now)); }

    PlaybackTally tally;
    PlaybackTally::Time now{1h};
    Verdicts verdicts; ///< but for Neither

private:
    Song &note(Verdict verdict)
    {
        if (verdict != Verdict::Neither)
            verdicts.push_back(verdict);
        return *this;
    }
};

} // namespace

class tst_PlaybackTally : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void judges()
    {
        const Verdicts nothing;
        const Verdicts played{Verdict::Played};
        const Verdicts skipped{Verdict::Skipped};

        QCOMPARE(Song(200s).listen(200s).end().verdicts, played);
        QCOMPARE(Song(200s).listen(198s).leave().verdicts, played);
        QCOMPARE(Song(200s).listen(190s).leave().verdicts, nothing);
        QCOMPARE(Song(200s).listen(100s).rate(0).listen(2h).rate(1).listen(100s).leave().verdicts, played);
        QCOMPARE(Song(200s).listen(1s).rate(0).listen(2h).leave().verdicts, nothing);
        QCOMPARE(Song(200s).rate(2).listen(99s).leave().verdicts, played);
        QCOMPARE(Song(200s).listen(50s).seek(195s).listen(5s).end().verdicts, nothing);
        QCOMPARE(Song(200s).seek(66s).listen(134s).end().verdicts, played);
        QCOMPARE(Song(200s, 120s).listen(80s).leave().verdicts, played); // found in the middle
        QCOMPARE(Song(200s).listen(200s).end().leave().seek(0s).verdicts, played);
        QCOMPARE(Song(200s).listen(200s).seek(0s).listen(200s).seek(0s).listen(1s).leave().verdicts,
                 (Verdicts{Verdict::Played, Verdict::Played}));                           // repeated
        QCOMPARE(Song(200s).listen(100s).seek(0s).listen(30s).leave().verdicts, nothing); // rewound
        QCOMPARE(Song(3s).listen(2900ms).leave().verdicts, played);
        QCOMPARE(Song(4s).listen(3s).leave().verdicts, skipped);
        QCOMPARE(Song(0s).listen(3s).learn(200s).listen(196s).leave().verdicts, played);
        QCOMPARE(Song(0s).listen(200s).end().verdicts, played); // its length is never known
        QCOMPARE(Song(200s).listen(1900ms).leave().verdicts, nothing);
        QCOMPARE(Song(200s).listen(2s).leave().verdicts, skipped);
        QCOMPARE(Song(200s).listen(20s).leave().verdicts, skipped);
        QCOMPARE(Song(200s).listen(20001ms).leave().verdicts, nothing);
        QCOMPARE(Song(200s).listen(3s).seek(100s).listen(3s).leave().verdicts, nothing);
        QCOMPARE(Song(200s).seek(195s).listen(1h).leave().verdicts,
                 nothing); // its end was not heard for an hour
        QCOMPARE(Song(200s).listen(10s).rate(1).listen(-10s).rate(1).listen(19s).leave().verdicts,
                 skipped); // a clock that runs back moves nothing
    }
};

QTEST_GUILESS_MAIN(tst_PlaybackTally)
#include "tst_PlaybackTally.moc"
