// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/MprisNames.h"
#include "device/players/PrivateSound.h"
#include "device/players/publishing/ArtworkFile.h"
#include "device/players/publishing/MprisPublisher.h"
#include "support/Covers.h"
#include "support/FullSong.h"
#include "support/Test.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QUrl>

namespace {

constexpr QLatin1StringView propertiesInterface("org.freedesktop.DBus.Properties");
const QString appId = u"org.example.tester"_s;
const QString busName = u"org.mpris.MediaPlayer2.org.example.tester"_s;

MediaItem songWithCover()
{
    MediaItem song = fullSong();
    song.composer.reset();
    song.artwork = std::make_shared<MemoryArtwork>(coverBytes({8, 8}, Qt::red, "PNG"));
    return song;
}

/// Notes what the publisher announces, as another program on the bus.
class Observer : public QObject
{
    Q_OBJECT

public:
    explicit Observer(QDBusConnection bus)
    {
        bus.connect(QString(), mprisPath, propertiesInterface, u"PropertiesChanged"_s, this,
                    SLOT(change(QString, QVariantMap, QStringList)));
        bus.connect(QString(), mprisPath, mprisPlayerInterface, u"Seeked"_s, this, SLOT(seek(qlonglong)));
    }
    QStringList changedProperties;
    QList<qlonglong> seeks;

public Q_SLOTS:
    void change(const QString &, const QVariantMap &changed, const QStringList &)
    {
        changedProperties << changed.keys();
    }
    void seek(qlonglong position) { seeks << position; }
};

} // namespace

class tst_MprisPublisher : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    PrivateSound m_sound;
    std::unique_ptr<ApplicationMusicPlayer> m_player;
    std::unique_ptr<MprisPublisher> m_publisher;
    int m_raised = 0;

    [[nodiscard]] MprisPublisher::Settings settings()
    {
        return {appId, u"Tester"_s, m_folder.filePath(u"art"_s), [this] { ++m_raised; }, {}};
    }
    /// Runs playerctl while our own loop answers it; what it printed.
    static QString playerctl(const QStringList &arguments)
    {
        QProcess process;
        QSignalSpy finished(&process, &QProcess::finished);
        process.start(u"playerctl"_s, QStringList{u"-p"_s, appId} + arguments);
        if (!finished.wait(10000))
            return u"playerctl hangs"_s;
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    static QString metadata(const char *key) { return playerctl({u"metadata"_s, QString::fromLatin1(key)}); }
    void load(const std::vector<MediaItem> &songs)
    {
        m_player->setQueue(songs);
        m_player->prepareToPlay();
    }
    static QDBusMessage answer(QLatin1StringView interface, const char *method, const QVariantList &arguments)
    {
        auto message = QDBusMessage::createMethodCall(busName, mprisPath, interface, QLatin1String(method));
        message.setArguments(arguments);
        const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(message);
        (void)QTest::qWaitFor([&pending] { return pending.isFinished(); });
        return pending.reply();
    }
    /// Whether it succeeds.
    static bool call(QLatin1StringView interface, const char *method, const QVariantList &arguments = {})
    {
        return answer(interface, method, arguments).type() == QDBusMessage::ReplyMessage;
    }
    /// All but the metadata.
    static QByteArray properties(QLatin1StringView interface)
    {
        const auto reply = answer(propertiesInterface, "GetAll", {QString(interface)});
        auto values = qdbus_cast<QVariantMap>(reply.arguments().value(0));
        values.remove(u"Metadata"_s);
        return QJsonDocument(QJsonObject::fromVariantMap(values)).toJson(QJsonDocument::Compact);
    }
    static bool isOnBus(const QString &name)
    {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(name);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_sound.start());
        QVERIFY(makeTone(m_folder.filePath(u"tone #1 100%20 ü?.m4a"_s), 60));
    }
    void init()
    {
        const QByteArray path = m_folder.filePath(u"tone #1 100%20 ü?.m4a"_s).toUtf8();
        m_player = std::make_unique<ApplicationMusicPlayer>([path](PersistentID) { return path; });
        m_publisher = std::make_unique<MprisPublisher>(*m_player, settings(), QDBusConnection::sessionBus());
    }
    void cleanup()
    {
        m_publisher.reset();
        QTRY_VERIFY(!isOnBus(busName));
        m_player.reset();
    }

    void isDrivenByOthers()
    {
        QCoreApplication::processEvents();
        QVERIFY(!isOnBus(busName)); // before the first song
        load({songWithCover(), {.title = u"Second"_s}});
        QTRY_VERIFY(isOnBus(busName));
        QCOMPARE(playerctl({u"status"_s}), u"Stopped"_s);
        playerctl({u"play"_s});
        QTRY_COMPARE(playerctl({u"status"_s}), u"Playing"_s);
        for (const char *command : {"Next", "Next", "Previous", "Previous", "Next"}) {
            QVERIFY(call(mprisPlayerInterface, command)); // where there is none, it stays
            QCOMPARE(metadata("xesam:title"), *command == 'N' ? u"Second"_s : u"Tïtle ✓ 夜"_s);
            QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        }
        playerctl({u"play-pause"_s});
        QTRY_COMPARE(playerctl({u"status"_s}), u"Paused"_s);

        const auto isAbout = [this](std::chrono::milliseconds position) {
            return m_player->position() > position - 1s && m_player->position() < position + 1s;
        };
        for (const auto &[target, position] : {std::pair(u"30"_s, 30s), {u"10+"_s, 40s}, {u"100-"_s, 0s}}) {
            playerctl({u"position"_s, target});
            QTRY_VERIFY(isAbout(position));
        }
        playerctl({u"position"_s, u"100"_s}); // beyond the end
        playerctl({u"volume"_s, u"0.25"_s});
        QTRY_COMPARE(m_player->volume(), 0.25);
        QVERIFY(isAbout(0s));

        playerctl({u"play"_s});
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        playerctl({u"position"_s, u"100+"_s}); // as "next", and there is none
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
        playerctl({u"play"_s});
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        const auto set = [](const QString &property, double value) {
            return call(propertiesInterface, "Set",
                        {QString(mprisPlayerInterface), property, QVariant::fromValue(QDBusVariant(value))});
        };
        QVERIFY(set(u"Volume"_s, qQNaN()));
        QCOMPARE(m_player->volume(), 0.0);
        QVERIFY(set(u"Rate"_s, 0));
        QTRY_COMPARE(playerctl({u"status"_s}), u"Paused"_s);
        playerctl({u"stop"_s});
        QTRY_COMPARE(playerctl({u"status"_s}), u"Stopped"_s);
    }

    void tellsWhatItKnowsOfTheSong()
    {
        load({songWithCover()});
        QTRY_VERIFY(isOnBus(busName));
        QTRY_VERIFY(metadata("mpris:artUrl").startsWith(u"file:///"_s));
        QCOMPARE(QImage(QUrl(metadata("mpris:artUrl")).toLocalFile()).pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(
            properties(mprisPlayerInterface),
            R"({"CanControl":true,"CanGoNext":false,"CanGoPrevious":false,"CanPause":true,"CanPlay":true,)"
            R"("CanSeek":true,"MaximumRate":1,"MinimumRate":1,"PlaybackStatus":"Stopped","Position":0,)"
            R"("Rate":1,"Volume":1})");
        QCOMPARE(
            properties(mprisRootInterface),
            R"({"CanQuit":false,"CanRaise":true,"DesktopEntry":"org.example.tester","HasTrackList":false,)"
            R"("Identity":"Tester","SupportedMimeTypes":[],"SupportedUriSchemes":[]})");
        const std::pair<const char *, QString> told[]{
            {"xesam:title", u"Tïtle ✓ 夜"_s},
            {"xesam:artist", u"First, Second"_s},
            {"xesam:album", u"Album"_s},
            {"xesam:asText", u"First line\nSecond line"_s},
            {"xesam:useCount", u"7"_s},
            {"xesam:trackNumber", u"3"_s},
            {"xesam:composer", QString()},
            {"xesam:contentCreated", u"2021-03-05T01:00:00+01:00"_s},
            {"mpris:trackid", u"'/org/example/tester/Track/0000000000000ABC'"_s}};
        for (const auto &[key, value] : told)
            QCOMPARE(metadata(key), value);
        QCOMPARE(metadata("xesam:userRating").toDouble(), 0.8);
        QVERIFY(QFileInfo::exists(QUrl(metadata("xesam:url")).toLocalFile()));
        QVERIFY(metadata("mpris:length").toLongLong() >= 60'000'000);
    }

    void announcesOnlyRealChanges()
    {
        Observer observer(QDBusConnection::sessionBus());
        load({songWithCover()});
        m_player->play();
        QTRY_VERIFY(observer.changedProperties.contains(u"PlaybackStatus"_s));
        QTRY_VERIFY(!metadata("mpris:artUrl").isEmpty());
        QTRY_VERIFY(m_player->position() > 300ms);
        observer.changedProperties.clear();
        m_player->play();
        m_player->setVolume(m_player->volume());
        m_player->seek(20s);
        QTRY_COMPARE(observer.seeks, QList<qlonglong>({20'000'000}));
        QTRY_VERIFY(m_player->position() > 20s);
        QCOMPARE(observer.changedProperties, QStringList());
        m_player->pause();
        QTRY_COMPARE(observer.changedProperties, QStringList({u"PlaybackStatus"_s}));
    }

    void ignoresPositionsOfOtherTracksAndJumpsThatOverflow()
    {
        load({songWithCover()});
        m_player->play();
        QTRY_VERIFY(m_player->position() > 100ms);
        const auto setPosition = [](const QString &track, qlonglong microseconds) {
            const QVariant path = QVariant::fromValue(QDBusObjectPath(track));
            return call(mprisPlayerInterface, "SetPosition", {path, microseconds});
        };
        const QString own = u"/org/example/tester/Track/0000000000000ABC"_s;
        QVERIFY(setPosition(u"/another/track"_s, 30'000'000) && setPosition(own, -1));
        QVERIFY(setPosition(own, 90'000'000));
        QVERIFY(call(mprisPlayerInterface, "Seek", {std::numeric_limits<qlonglong>::min()}));
        QVERIFY(m_player->position() < 20s);
        QCOMPARE(m_player->playbackState(), PlaybackState::Playing);
        QVERIFY(setPosition(own, 30'000'000));
        QTRY_VERIFY(m_player->position() >= 30s);
        QVERIFY(setPosition(own, 0));
        QTRY_VERIFY(m_player->position() < 20s);
        QVERIFY(call(mprisPlayerInterface, "Seek", {std::numeric_limits<qlonglong>::max()}));
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
        QVERIFY(call(mprisRootInterface, "Raise") && call(mprisRootInterface, "Quit"));
        QCOMPARE(m_raised, 1);
    }

    void standsBesideAnotherProcess()
    {
        QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
        QVERIFY(other.registerService(busName));
        m_publisher.reset();
        load({songWithCover()}); // it finds a song as it is made
        m_publisher = std::make_unique<MprisPublisher>(*m_player, settings(), QDBusConnection::sessionBus());
        QTRY_VERIFY(isOnBus(u"%1.instance%2"_s.arg(busName).arg(QCoreApplication::applicationPid())));
        QVERIFY(other.unregisterService(busName));
    }

    void keepsTheLastPicturesAsFiles()
    {
        const QString folder = m_folder.filePath(u"pictures"_s);
        const auto fileOf = [&folder](const QByteArray &bytes) {
            return artworkFile(MemoryArtwork(bytes), folder).value_or(u"/none"_s).section(u'/', -1);
        };
        QCOMPARE(fileOf("RIFF1234WAVE"), u"none"_s);
        const QString first = fileOf("BM");
        for (int i = 0; i < 40; ++i) {
            QCOMPARE(fileOf("BM" + QByteArray::number(i)), fileOf("BM" + QByteArray::number(i)));
            QCOMPARE(fileOf("BM"), first); // used again and again
        }
        const QDir kept(folder);
        QCOMPARE(kept.entryList(QDir::Files).size(), 32);
        QVERIFY(kept.exists(first) && first.endsWith(u".bmp"));
    }
};

QTEST_GUILESS_MAIN(tst_MprisPublisher)
#include "tst_MprisPublisher.moc"
