// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/PlayerChoice.h"
#include "support/Test.h"

using Players = std::vector<PlayerFacts>;

namespace {

constexpr auto playing = PlaybackState::Playing;
constexpr auto paused = PlaybackState::Paused;
constexpr auto stopped = PlaybackState::Stopped;

PlayerFacts player(const QString &name, PlaybackState status, std::uint64_t lastChange,
                   const QString &title = u"T"_s)
{
    return {name, status, !title.isEmpty(), title, lastChange};
}

/// In whichever order they are listed.
QString chosen(Players players, const QStringList &ignored = {})
{
    const auto choice = choosePlayer(players, ignored);
    std::reverse(players.begin(), players.end());
    return choosePlayer(players, ignored) == choice ? choice.value_or(QString()) : u"by order"_s;
}

} // namespace

class tst_PlayerChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chooses()
    {
        const QString firefox = u"firefox.instance1_2"_s;
        const QString plasma = u"plasma-browser-integration"_s;
        const QString phone = u"kdeconnect.mpris_000001"_s;
        QCOMPARE(chosen({}), u""_s);
        QCOMPARE(chosen({player(u"a"_s, stopped, 1)}), u""_s);
        QCOMPARE(chosen({player(u"a"_s, playing, 1, u""_s)}), u""_s);
        QCOMPARE(chosen({player(u"a"_s, playing, 1), player(u"b"_s, paused, 2)}), u"a"_s);
        QCOMPARE(chosen({player(u"a"_s, paused, 1), player(u"b"_s, paused, 2)}), u"b"_s);
        QCOMPARE(chosen({player(u"a"_s, playing, 1), player(firefox, playing, 2)}), u"a"_s);
        QCOMPARE(chosen({player(u"a"_s, paused, 2), player(firefox, playing, 1)}), firefox);
        QCOMPARE(chosen({player(firefox, playing, 2), player(plasma, playing, 1)}), plasma);
        QCOMPARE(chosen({player(firefox, playing, 2, u"U"_s), player(plasma, playing, 1)}), firefox);
        const Players both{player(u"a.instance5"_s, playing, 2), player(u"b"_s, paused, 1)};
        QCOMPARE(chosen(both), u"a.instance5"_s);
        QCOMPARE(chosen(both, {u"a"_s}), u"b"_s);
        QCOMPARE(chosen({player(phone, playing, 2)}), u""_s);
    }

    void knowsItself()
    {
        const QString id = u"org.example.app"_s;
        QVERIFY(!isOtherPlayer(id, id));
        QVERIFY(!isOtherPlayer(u"org.example.app.instance77"_s, id));
        QVERIFY(isOtherPlayer(u"org.example.apple"_s, id));
        QVERIFY(!isOtherPlayer(u"playerctld"_s, id));
    }
};

QTEST_GUILESS_MAIN(tst_PlayerChoice)
#include "tst_PlayerChoice.moc"
