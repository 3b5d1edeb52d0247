// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_list [PICTURE.png]
//              what showing another song costs the main thread: its rows, the list in the window that stands,
//              and a list made from nothing. Each until the renderer could take over; drawing is not counted.
#include "information/InformationView.h"
#include "preferences/Preferences.h"
#include "ui/Engine.h"

#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

using namespace trackwise;

namespace {

constexpr int rounds = 200;

MediaItem song(int number)
{
    const Instant date{std::chrono::sys_days{std::chrono::year{2021} / 3 / 5} + std::chrono::days(number)};
    const QString mark = QString::number(number);
    MediaItem item;
    for (auto field :
         {&MediaItem::title, &MediaItem::artist, &MediaItem::albumTitle, &MediaItem::albumArtist,
          &MediaItem::composer, &MediaItem::genre, &MediaItem::userGrouping, &MediaItem::comments})
        item.*field = QStringLiteral("Paper Satellites (Deluxe Edition) ") + mark;
    item.lyrics = mark;
    item.releaseDate = item.lastPlayedDate = item.dateAddedForReal = date;
    item.playbackDuration = 200 + number;
    item.playCount = item.skipCount = item.beatsPerMinute = static_cast<unsigned>(100 + number);
    item.albumTrackNumber = item.discNumber = static_cast<unsigned>(number);
    item.albumTrackCount = item.discCount = 300;
    item.rating = static_cast<unsigned>(number) % 6;
    return item;
}

double threadMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

void measure(
    const char *name, const std::function<void(int)> &work, const std::function<void()> &afterwards = [] {})
{
    std::vector<double> costs;
    for (int round = 0; round < rounds; ++round) {
        const double start = threadMilliseconds();
        work(round);
        costs.push_back(threadMilliseconds() - start);
        afterwards();
    }
    std::printf("list_%s_first %.3f ms\n", name, costs.front());
    std::sort(costs.begin(), costs.end());
    std::printf("list_%s_median %.3f ms\n", name, costs.at(costs.size() / 2));
    std::printf("list_%s_p95 %.3f ms\n", name, costs.at(costs.size() * 95 / 100));
}

// A window whose frames are prepared as in the app; drawing them, another thread's work there, is not
// counted.
struct Stage
{
    QQuickRenderControl control;
    QQuickWindow window{&control};
    QImage image{1024, 768, QImage::Format_RGB32};

    Stage()
    {
        window.setGeometry(image.rect());
        window.contentItem()->setSize(image.size());
        window.setRenderTarget(QQuickRenderTarget::fromPaintDevice(&image));
    }
    void prepareFrame()
    {
        control.polishItems();
        control.beginFrame();
        control.sync();
    }
    void draw()
    {
        control.render();
        control.endFrame();
    }
};

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    QGuiApplication app(argc, argv);
    QTemporaryDir folder;
    Preferences preferences(folder.filePath(QStringLiteral("defaults.ini")));
    preferences.setShowMoreInformation(true);
    const QTimeZone zone("Europe/Berlin");
    const auto listOf = [&](int number) {
        return std::make_unique<InformationView>(InformationView::Song{.mediaItem = song(number)},
                                                 preferences, FormatLocale{}, zone);
    };

    measure("rows", [&zone](int round) { (void)informationRows(song(round), FormatLocale{}, zone); });

    QQmlEngine engine;
    prepareEngine(engine);
    QQmlComponent component(&engine,
                            QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Information/InformationView.qml")));
    Stage stage;
    std::vector<std::unique_ptr<InformationView>> lists;
    std::unique_ptr<QQuickItem> view;
    const auto make = [&](int round) {
        lists.push_back(listOf(round));
        QObject *made = component.createWithInitialProperties(
            {{QStringLiteral("view"), QVariant::fromValue(lists.back().get())}});
        std::unique_ptr<QQuickItem> next(qobject_cast<QQuickItem *>(made));
        if (!next)
            qFatal("%s", qPrintable(component.errorString()));
        next->setParentItem(stage.window.contentItem());
        next->setSize(stage.window.contentItem()->size());
        view = std::move(next);
        stage.prepareFrame();
    };
    const auto draw = [&stage] { stage.draw(); };
    measure("made", make, draw);
    measure(
        "another_song",
        [&](int round) {
            lists.push_back(listOf(round));
            view->setProperty("view", QVariant::fromValue(lists.back().get()));
            stage.prepareFrame();
        },
        draw);
    if (argc > 1)
        stage.image.save(QString::fromLocal8Bit(argv[1])); // to see what has been measured
    view.reset();
    return 0;
}
