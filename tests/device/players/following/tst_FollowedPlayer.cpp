// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/FollowedPlayer.h"
#include "support/Test.h"

class tst_FollowedPlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hearsTracksToTheirEnd()
    {
        const auto properties = [](const QString &title, const QString &status, double seconds = 200) {
            return QVariantMap{
                {u"PlaybackStatus"_s, status},
                {u"Metadata"_s, QVariantMap{{u"xesam:title"_s, title}, {u"mpris:length"_s, seconds * 1e6}}}};
        };
        const auto titleOf = [](const FollowedPlayer::PlayedTrack &track) {
            return track ? track->title : QString();
        };
        FollowedPlayer::Time now(1h);
        FollowedPlayer followed;

        QVERIFY(followed.take(properties(u"One"_s, u"Playing"_s), now));
        QVERIFY(!followed.settle(now));
        QVERIFY(!followed.take(properties(u"One"_s, u"Playing"_s), now));
        now += 100s;
        followed.take({{u"PlaybackStatus"_s, u"Paused"_s}}, now);
        QVERIFY(!followed.settle(now));
        now += 1h;
        followed.take({{u"PlaybackStatus"_s, u"Playing"_s}}, now);
        now += 99s;
        followed.take({{u"Position"_s, 195'000'000}}, now);        // of this track, not of the next
        followed.take(properties(u"Two"_s, u"Playing"_s, 0), now); // the length follows
        now += 100ms;
        followed.take(properties(u"Two"_s, u"Playing"_s), now);
        QCOMPARE(titleOf(followed.settle(now)), u"One"_s);

        now += 5s; // passed over
        followed.take(properties(u"Three"_s, u"Playing"_s), now);
        QCOMPARE(titleOf(followed.settle(now)), QString());
        now += 200s; // repeated: only the position tells
        QCOMPARE(titleOf(followed.takePosition(0us, now)), u"Three"_s);
        now += 199s;
        followed.take({{u"PlaybackStatus"_s, u"Stopped"_s}}, now);
        QCOMPARE(titleOf(followed.settle(now)), u"Three"_s);
        QCOMPARE(titleOf(followed.quit(now)), QString());

        followed.take(properties(u"Four"_s, u"Playing"_s), now); // goes on where it was left
        followed.takePosition(120s, now);
        followed.settle(now);
        now += 80s;
        QCOMPARE(titleOf(followed.quit(now)), u"Four"_s);

        followed.take(properties(u"Five"_s, u"Playing"_s, 0), now);
        followed.take({{u"Rate"_s, qQNaN()}}, now); // stands still
        followed.settle(now);
        now += 200s;
        followed.take({{u"Rate"_s, 1}}, now);
        followed.take(properties(u"Five"_s, u"Playing"_s), now);
        followed.settle(now);
        now += 199s;
        QCOMPARE(titleOf(followed.quit(now)), u"Five"_s);
    }
};

QTEST_GUILESS_MAIN(tst_FollowedPlayer)
#include "tst_FollowedPlayer.moc"
