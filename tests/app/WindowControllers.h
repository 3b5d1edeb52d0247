// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/ContainerViewController.h"
#include "lookup/CatalogLookup.h"
#include "lookup/ListedLibrary.h"
#include "picker/MediaPicker.h"
#include "platform/SystemMusicPlayer.h"
#include "preferences/Preferences.h"
#include "support/ArtworkDoubles.h"
#include "support/RecognitionDoubles.h"
#include "support/WebDouble.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace trackwise {

/// A player that is ready from the start and plays what it is told.
class SystemPlayerDouble : public SystemMusicPlayer
{
public:
    std::optional<MediaItem> item;
    int listeners = 0;
    bool isReady = true;
    std::function<void()> ready; ///< what waits for it
    AnswerHandler answered;

    [[nodiscard]] std::optional<MediaItem> nowPlayingItem() const override { return item; }
    void whenReady(std::function<void()> handler) override
    {
        if (isReady)
            handler();
        else
            ready = std::move(handler);
    }
    void whenAnswered(AnswerHandler handler) override
    {
        if (isReady)
            handler(item);
        else
            answered = std::move(handler);
    }
    void beginGeneratingPlaybackNotifications() override { ++listeners; }
    void endGeneratingPlaybackNotifications() override { --listeners; }
    void change(std::optional<MediaItem> now)
    {
        item = std::move(now);
        Q_EMIT nowPlayingItemDidChange();
    }
};

inline MediaItem song(unsigned id)
{
    return {.title = QStringLiteral("song %1").arg(id), .persistentID = PersistentID{id}};
}

/// Doubles of what the device gives to windows.
struct WindowDevice : ArtworkDoubles
{
    WindowDevice() = default;
    /// @p complete adds what most tests do without, before anything is made of the services.
    explicit WindowDevice(const std::function<void(DetailServices &)> &complete) { complete(services); }

    Preferences preferences{folder.filePath(QStringLiteral("defaults.ini"))};
    ListedLibrary library;
    SystemPlayerDouble systemPlayer;
    WebDouble http;
    CatalogLookup catalog{http, {}};
    RecognitionDoubles recognition;
    QThreadPool searches;
    DetailServices services{
        library,  systemPlayer, preferences, addresses, artwork, catalog,         recognition.services,
        searches, {},           {},          {},        {},      QTimeZone::utc()};
    QDateTime now{QDate(2026, 11, 23), QTime(7, 5), Qt::UTC};
    ContainerServices containerServices{player, preferences, artwork, [this] { return now; }};
};

/// A window's controllers over doubles of the device.
struct WindowControllers : WindowDevice
{
    using WindowDevice::WindowDevice;

    Presentation presentation;
    DetailViewController detail{services, presentation};
    ContainerViewController container{containerServices, detail};

    void start()
    {
        container.viewDidLoad();
        detail.viewDidLoad();
    }
    /// Until it has been answered whether the library may be used, and what was searched for then.
    void settle()
    {
        for (QThreadPool *pool : {QThreadPool::globalInstance(), &searches}) {
            pool->waitForDone();
            QCoreApplication::processEvents();
        }
    }
    void choose(unsigned id) { detail.displayMediaItem(song(id), {}); }
    /// Title, message, answers and the number of the preferred one; nothing without an alert.
    QString takeAlert()
    {
        settle();
        QStringList texts;
        if (const Alert *alert = presentation.alert())
            texts << alert->title() << alert->message() << alert->actionTitles().join(u',')
                  << QString::number(alert->preferredAction());
        presentation.dismiss();
        QCoreApplication::processEvents();
        return texts.join(u'|');
    }
    [[nodiscard]] unsigned shown() const
    {
        return detail.visibleMediaItem()
                   ? static_cast<unsigned>(detail.visibleMediaItem()->persistentID.value)
                   : 0;
    }
};

} // namespace trackwise
