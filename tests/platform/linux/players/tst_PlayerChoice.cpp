// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/players/FollowedPlayer.h"
#include "platform/linux/players/PlayerChoice.h"

#include <QTest>

using namespace trackwise;
using namespace std::chrono_literals;

using Players = std::vector<PlayerFacts>;

Q_DECLARE_METATYPE(Players)
Q_DECLARE_METATYPE(trackwise::PlayerPreferences)

namespace {

QString text(const char *value)
{
    return QString::fromUtf8(value);
}

constexpr auto playing = PlaybackState::Playing;
constexpr auto paused = PlaybackState::Paused;
constexpr auto stopped = PlaybackState::Stopped;

PlayerFacts player(const char *name, PlaybackState status, std::uint64_t lastChange, const char *title = "T")
{
    return {text(name), status, *title != '\0', text(title), lastChange};
}

} // namespace

class tst_PlayerChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chooses_data()
    {
        QTest::addColumn<Players>("players");
        QTest::addColumn<PlayerPreferences>("preferences");
        QTest::addColumn<QString>("chosen");
        const auto row = [](const char *name, const Players &players, const char *chosen,
                            const PlayerPreferences &preferences = {}) {
            QTest::newRow(name) << players << preferences << text(chosen);
        };
        row("none", {}, "");
        row("stopped", {player("a", stopped, 1)}, "");
        row("without a track", {player("a", playing, 1, "")}, "");
        row("playing before paused", {player("a", playing, 1), player("b", paused, 2)}, "a");
        row("last change", {player("a", paused, 1), player("b", paused, 2)}, "b");
        row("music before browsers", {player("a", playing, 1), player("firefox.instance1_2", playing, 2)},
            "a");
        row("playing browser", {player("a", paused, 2), player("chromium.instance99", playing, 1)},
            "chromium.instance99");
        row("browser shown twice",
            {player("firefox.instance1", playing, 2), player("plasma-browser-integration", playing, 1)},
            "plasma-browser-integration");
        row("browser with another page",
            {player("firefox.instance1", playing, 2, "U"), player("plasma-browser-integration", playing, 1)},
            "firefox.instance1");
        row("picked", {player("a", playing, 2), player("b", paused, 1)}, "b", {text("b"), {}});
        row("picked has stopped", {player("a", playing, 2), player("b", stopped, 1)}, "", {text("b"), {}});
        row("picked has quit", {player("a", playing, 2)}, "a", {text("b"), {}});
        row("ignored", {player("a.instance5", playing, 2), player("b", paused, 1)}, "b", {{}, {text("a")}});
        row("picked though ignored", {player("a", playing, 2)}, "a", {text("a"), {text("a")}});
        row("phone", {player("kdeconnect.mpris_000001", playing, 2)}, "");
        row("phone picked", {player("kdeconnect.mpris_000001", playing, 2)}, "kdeconnect.mpris_000001",
            {text("kdeconnect.mpris_000001"), {}});
    }
    void chooses()
    {
        QFETCH(Players, players);
        QFETCH(PlayerPreferences, preferences);
        QFETCH(QString, chosen);
        QCOMPARE(choosePlayer(players, preferences).value_or(QString()), chosen);
        std::reverse(players.begin(), players.end());
        QCOMPARE(choosePlayer(players, preferences).value_or(QString()), chosen);
    }

    void knowsItself()
    {
        const QString id = text("org.example.app");
        QVERIFY(!isOtherPlayer(id, id));
        QVERIFY(!isOtherPlayer(text("org.example.app.instance77"), id));
        QVERIFY(isOtherPlayer(text("org.example.apple"), id));
        QVERIFY(!isOtherPlayer(text("playerctld"), id));
    }

    void hearsTracksToTheirEnd()
    {
        const auto properties = [](const char *title, const char *status, double seconds = 200) {
            return QVariantMap{{text("PlaybackStatus"), text(status)},
                               {text("Metadata"), QVariantMap{{text("xesam:title"), text(title)},
                                                              {text("mpris:length"), seconds * 1e6}}}};
        };
        const auto titleOf = [](const FollowedPlayer::PlayedTrack &track) {
            return track ? track->title : QString();
        };
        FollowedPlayer::Time now(1h);
        FollowedPlayer followed;

        QVERIFY(followed.take(properties("One", "Playing"), now));
        QVERIFY(!followed.settle(now));
        QVERIFY(!followed.take(properties("One", "Playing"), now));
        now += 100s;
        followed.take({{text("PlaybackStatus"), text("Paused")}}, now);
        QVERIFY(!followed.settle(now));
        now += 1h;
        followed.take({{text("PlaybackStatus"), text("Playing")}}, now);
        now += 99s;
        followed.take(properties("Two", "Playing", 0), now); // the length follows
        now += 100ms;
        followed.take(properties("Two", "Playing"), now);
        QCOMPARE(titleOf(followed.settle(now)), text("One"));

        now += 5s; // passed over
        followed.take(properties("Three", "Playing"), now);
        QCOMPARE(titleOf(followed.settle(now)), QString());
        now += 200s; // repeated: only the position tells
        QCOMPARE(titleOf(followed.takePosition(0us, now)), text("Three"));
        now += 199s;
        followed.take({{text("PlaybackStatus"), text("Stopped")}}, now);
        QCOMPARE(titleOf(followed.settle(now)), text("Three"));
        QCOMPARE(titleOf(followed.quit(now)), QString());

        followed.take(properties("Four", "Playing"), now); // goes on where it was left
        followed.takePosition(120s, now);
        followed.settle(now);
        now += 80s;
        QCOMPARE(titleOf(followed.quit(now)), text("Four"));
    }
};

QTEST_GUILESS_MAIN(tst_PlayerChoice)
#include "tst_PlayerChoice.moc"
