// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/publishing/MprisPublisher.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QStringList>

namespace trackwise {

/// org.mpris.MediaPlayer2: the app.
class MprisRootAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ canQuit)
    Q_PROPERTY(bool CanRaise READ canRaise)
    Q_PROPERTY(bool HasTrackList READ hasTrackList)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes)

public:
    explicit MprisRootAdaptor(MprisPublisher &publisher);

    [[nodiscard]] bool canQuit() const { return bool(m_publisher.settings().quit); }
    [[nodiscard]] bool canRaise() const { return bool(m_publisher.settings().raise); }
    [[nodiscard]] bool hasTrackList() const { return false; }
    [[nodiscard]] QString identity() const { return m_publisher.settings().name; }
    [[nodiscard]] QString desktopEntry() const { return m_publisher.settings().appId; }
    [[nodiscard]] QStringList supportedUriSchemes() const { return {}; }
    [[nodiscard]] QStringList supportedMimeTypes() const { return {}; }

public Q_SLOTS:
    void Raise();
    void Quit();

private:
    MprisPublisher &m_publisher;
};

/// org.mpris.MediaPlayer2.Player: what plays and its controls. Times are in microseconds.
class MprisPlayerAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ minimumRate)
    Q_PROPERTY(double MaximumRate READ maximumRate)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPause)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl)

public:
    MprisPlayerAdaptor(MprisPublisher &publisher, ApplicationMusicPlayer &player);

    [[nodiscard]] QString playbackStatus() const { return value("PlaybackStatus").toString(); }
    [[nodiscard]] double rate() const { return value("Rate").toDouble(); }
    void setRate(double rate);
    [[nodiscard]] QVariantMap metadata() const { return value("Metadata").toMap(); }
    [[nodiscard]] double volume() const { return value("Volume").toDouble(); }
    void setVolume(double volume) { m_player.setVolume(volume); }
    [[nodiscard]] qlonglong position() const;
    [[nodiscard]] double minimumRate() const { return value("MinimumRate").toDouble(); }
    [[nodiscard]] double maximumRate() const { return value("MaximumRate").toDouble(); }
    [[nodiscard]] bool canGoNext() const { return value("CanGoNext").toBool(); }
    [[nodiscard]] bool canGoPrevious() const { return value("CanGoPrevious").toBool(); }
    [[nodiscard]] bool canPlay() const { return value("CanPlay").toBool(); }
    [[nodiscard]] bool canPause() const { return value("CanPause").toBool(); }
    [[nodiscard]] bool canSeek() const { return value("CanSeek").toBool(); }
    [[nodiscard]] bool canControl() const { return true; }

public Q_SLOTS:
    void Next();
    void Previous();
    void Pause() { m_player.pause(); }
    void PlayPause();
    void Stop() { m_player.stop(); }
    void Play() { m_player.play(); }
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath &track, qlonglong position);
    void OpenUri(const QString &) {} // no schemes are claimed

Q_SIGNALS:
    void Seeked(qlonglong position);

private:
    [[nodiscard]] QVariant value(const char *property) const;

    MprisPublisher &m_publisher;
    ApplicationMusicPlayer &m_player;
};

} // namespace trackwise
