// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/players/MprisPublisher.h"
#include "platform/linux/players/PrivateSound.h"

#include <QBuffer>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QFileInfo>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {

const QString appId = QStringLiteral("org.example.tester");
const QString busName = QStringLiteral("org.mpris.MediaPlayer2.org.example.tester");

class Picture : public ArtworkSource
{
public:
    explicit Picture(const QColor &colour)
    {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(colour);
        QBuffer buffer(&m_bytes);
        image.save(&buffer, "PNG");
    }
    [[nodiscard]] QByteArray key() const override { return m_bytes; }
    [[nodiscard]] std::optional<EncodedImage> read() const override { return EncodedImage{m_bytes}; }

private:
    QByteArray m_bytes;
};

MediaItem fullSong()
{
    MediaItem item;
    item.title = QStringLiteral("Tonleiter");
    item.artist = QStringLiteral("Die Prüfer");
    item.albumTitle = QStringLiteral("Proben");
    item.albumArtist = QStringLiteral("Verschiedene");
    item.genre = QStringLiteral("Übung");
    item.lyrics = QStringLiteral("do re mi\nfa so");
    item.playbackDuration = 60;
    item.playCount = 7;
    item.rating = 4;
    item.albumTrackNumber = 3;
    item.releaseDate = Instant(std::chrono::milliseconds(86'400'000));
    item.persistentID = PersistentID{0xABC};
    item.artwork = std::make_shared<Picture>(Qt::red);
    return item;
}

/// Notes what the publisher announces, as another program on the bus.
class Observer : public QObject
{
    Q_OBJECT

public:
    explicit Observer(QDBusConnection bus)
    {
        bus.connect(QString(), QString::fromLatin1(mprisPath),
                    QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
                    this, SLOT(change(QString, QVariantMap, QStringList)));
        bus.connect(QString(), QString::fromLatin1(mprisPath), QString::fromLatin1(mprisPlayerInterface),
                    QStringLiteral("Seeked"), this, SLOT(seek(qlonglong)));
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
        return {appId,
                QStringLiteral("Tester"),
                m_folder.filePath(QStringLiteral("art")),
                [this] { ++m_raised; },
                {}};
    }
    /// Runs playerctl while our own loop answers it; what it printed.
    static QString playerctl(const QStringList &arguments)
    {
        QProcess process;
        QSignalSpy finished(&process, &QProcess::finished);
        process.start(QStringLiteral("playerctl"), QStringList{QStringLiteral("-p"), appId} + arguments);
        if (!finished.wait(10000))
            return QStringLiteral("playerctl hangs");
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    static QString metadata(const char *key)
    {
        return playerctl({QStringLiteral("metadata"), QString::fromLatin1(key)});
    }
    void load(const MediaItem &song)
    {
        m_player->stop();
        m_player->setQueue({song});
        m_player->prepareToPlay();
    }
    static bool isOnBus(const QString &name)
    {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(name);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run inside dbus-run-session");
        QVERIFY(m_sound.start());
        QVERIFY(makeTone(m_folder.filePath(QStringLiteral("tone #1 100%20 ü?.m4a")), 60));
    }
    void init()
    {
        const QByteArray path = m_folder.filePath(QStringLiteral("tone #1 100%20 ü?.m4a")).toUtf8();
        m_player = std::make_unique<ApplicationMusicPlayer>([path](PersistentID) { return path; });
        m_publisher = std::make_unique<MprisPublisher>(*m_player, settings(), QDBusConnection::sessionBus());
    }
    void cleanup()
    {
        m_publisher.reset();
        QTRY_VERIFY(!isOnBus(busName));
        m_player.reset();
    }

    void takesItsNameWithTheFirstSong()
    {
        QCoreApplication::processEvents();
        QVERIFY(!isOnBus(busName));
        load(fullSong());
        QTRY_VERIFY(isOnBus(busName));
    }

    void isDrivenByOthers()
    {
        load(fullSong());
        QTRY_VERIFY(isOnBus(busName));
        QCOMPARE(playerctl({QStringLiteral("status")}), QStringLiteral("Stopped"));
        playerctl({QStringLiteral("play")});
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        QCOMPARE(playerctl({QStringLiteral("status")}), QStringLiteral("Playing"));
        playerctl({QStringLiteral("play-pause")});
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Paused);
        QCOMPARE(playerctl({QStringLiteral("status")}), QStringLiteral("Paused"));

        const auto isAbout = [this](std::chrono::milliseconds position) {
            return m_player->position() > position - 1s && m_player->position() < position + 1s;
        };
        playerctl({QStringLiteral("position"), QStringLiteral("30")});
        QTRY_VERIFY(isAbout(30s));
        playerctl({QStringLiteral("position"), QStringLiteral("10+")});
        QTRY_VERIFY(isAbout(40s));
        playerctl({QStringLiteral("position"), QStringLiteral("100-")});
        QTRY_VERIFY(isAbout(0s));
        playerctl({QStringLiteral("position"), QStringLiteral("100")}); // beyond the end
        playerctl({QStringLiteral("volume"), QStringLiteral("0.25")});
        QTRY_COMPARE(m_player->volume(), 0.25);
        QVERIFY(isAbout(0s));

        playerctl({QStringLiteral("play")});
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        playerctl({QStringLiteral("position"), QStringLiteral("100+")}); // as "next", and there is none
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
        playerctl({QStringLiteral("play")});
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        playerctl({QStringLiteral("stop")});
        QTRY_COMPARE(playerctl({QStringLiteral("status")}), QStringLiteral("Stopped"));
    }

    void tellsWhatItKnowsOfTheSong()
    {
        load(fullSong());
        QTRY_VERIFY(isOnBus(busName));
        QTRY_VERIFY(metadata("mpris:artUrl").startsWith(QStringLiteral("file:///")));
        QCOMPARE(QImage(QUrl(metadata("mpris:artUrl")).toLocalFile()).pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(metadata("xesam:title"), QStringLiteral("Tonleiter"));
        QCOMPARE(metadata("xesam:artist"), QStringLiteral("Die Prüfer"));
        QCOMPARE(metadata("xesam:album"), QStringLiteral("Proben"));
        QCOMPARE(metadata("xesam:asText"), QStringLiteral("do re mi\nfa so"));
        QCOMPARE(metadata("xesam:userRating").toDouble(), 0.8);
        QCOMPARE(metadata("xesam:useCount"), QStringLiteral("7"));
        QCOMPARE(metadata("xesam:trackNumber"), QStringLiteral("3"));
        QCOMPARE(metadata("xesam:contentCreated"), QStringLiteral("1970-01-02T01:00:00+01:00"));
        QCOMPARE(metadata("xesam:composer"), QString());
        QCOMPARE(metadata("mpris:trackid"), QStringLiteral("'/org/example/tester/Track/0000000000000ABC'"));
        QVERIFY(QFileInfo::exists(QUrl(metadata("xesam:url")).toLocalFile()));
        QVERIFY(metadata("mpris:length").toLongLong() >= 60'000'000);
    }

    void announcesOnlyRealChanges()
    {
        Observer observer(QDBusConnection::sessionBus());
        load(fullSong());
        m_player->play();
        QTRY_VERIFY(observer.changedProperties.contains(QStringLiteral("PlaybackStatus")));
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
        QTRY_COMPARE(observer.changedProperties, QStringList({QStringLiteral("PlaybackStatus")}));
    }

    void ignoresPositionsOfOtherTracksAndJumpsThatOverflow()
    {
        load(fullSong());
        m_player->play();
        QTRY_VERIFY(m_player->position() > 100ms);
        const auto call = [](const char *method, const QVariantList &arguments) {
            QDBusMessage message = QDBusMessage::createMethodCall(busName, QString::fromLatin1(mprisPath),
                                                                  QString::fromLatin1(mprisPlayerInterface),
                                                                  QString::fromLatin1(method));
            message.setArguments(arguments);
            const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(message);
            QDBusPendingCallWatcher watcher(pending);
            QSignalSpy(&watcher, &QDBusPendingCallWatcher::finished).wait(5000);
            return !pending.isError();
        };
        const QVariant other = QVariant::fromValue(QDBusObjectPath(QStringLiteral("/another/track")));
        QVERIFY(call("SetPosition", {other, qlonglong(30'000'000)}));
        QVERIFY(call("Seek", {std::numeric_limits<qlonglong>::min()}));
        QVERIFY(m_player->position() < 20s);
        QCOMPARE(m_player->playbackState(), PlaybackState::Playing);
        QVERIFY(call("Seek", {std::numeric_limits<qlonglong>::max()}));
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
        QDBusMessage raise =
            QDBusMessage::createMethodCall(busName, QString::fromLatin1(mprisPath),
                                           QString::fromLatin1(mprisRootInterface), QStringLiteral("Raise"));
        QDBusConnection::sessionBus().send(raise);
        QTRY_COMPARE(m_raised, 1);
    }

    void standsBesideAnotherProcess()
    {
        QDBusConnection other =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("other"));
        QVERIFY(other.registerService(busName));
        load(fullSong());
        QTRY_VERIFY(
            isOnBus(QStringLiteral("%1.instance%2").arg(busName).arg(QCoreApplication::applicationPid())));
        QVERIFY(other.unregisterService(busName));
    }

    void isSilentWithoutABus()
    {
        MprisPublisher publisher(*m_player, settings(), QDBusConnection(QStringLiteral("nowhere")));
        load(fullSong());
        m_player->play();
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
    }
};

QTEST_GUILESS_MAIN(tst_MprisPublisher)
#include "tst_MprisPublisher.moc"
