// SPDX-License-Identifier: GPL-3.0-or-later
//
// xvfb-run bench_window
//              the real window over a library of 100,000 songs in memory: what a frame costs the main thread
//              while the list scrolls, while the window is resized across the width at which the sidebar
//              comes and goes, and while the user goes through 200 songs with covers of 1 to 5 MB as fast as
//              a held key repeats. Ends with 1 when the cover left on the screen is not the last song's.
#include "app/AppDelegate.h"
#include "app/WindowControllers.h"
#include "artwork/ArtworkPicture.h"
#include "support/Figures.h"
#include "support/Photographs.h"
#include "support/ScriptedIndex.h"
#include "support/SyntheticLibrary.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>

using namespace trackwise;

namespace {

constexpr int librarySize = 100'000;
constexpr int songCount = 200;
constexpr int keyRepeatMs = 1000 / 30;
constexpr int distinctCovers = 25; // enough that the decoded ones do not all stay, few enough to make soon

class PlainLook : public Appearance
{
public:
    [[nodiscard]] bool isDark() const override { return false; }
    [[nodiscard]] bool prefersHighContrast() const override { return false; }
    [[nodiscard]] bool prefersReducedMotion() const override { return false; }
    [[nodiscard]] TextSize textSize() const override { return TextSize::Large; }
    [[nodiscard]] std::optional<QColor> accent() const override { return {}; }
};

/// Made-up songs, and some with covers.
class LibraryWithCovers : public SyntheticLibrary
{
public:
    explicit LibraryWithCovers(const std::vector<MediaItem> &songs)
        : SyntheticLibrary(librarySize)
        , m_songs(songs)
    {}
    [[nodiscard]] std::optional<MediaItem> song(PersistentID id) const override
    {
        const auto found = std::find_if(m_songs.begin(), m_songs.end(),
                                        [id](const MediaItem &song) { return song.persistentID == id; });
        return found == m_songs.end() ? SyntheticLibrary::song(id) : std::optional(*found);
    }

private:
    const std::vector<MediaItem> &m_songs;
};

/// The app with one window, and what it stands on.
struct App
{
    QTemporaryDir folder;
    LibraryWithCovers library;
    ScriptedScan scan;
    ScriptedIndex index;
    MusicPlayerDouble player;
    SystemPlayerDouble systemPlayer;
    PlainLook look;
    AddressOpenerDouble addresses;
    WebDouble http;
    CatalogLookup catalog{http, {}};
    RecognitionDoubles recognition;
    Preferences preferences{folder.filePath(QStringLiteral("defaults.ini"))};
    AppDelegate app{{library,
                     library,
                     scan,
                     index,
                     player,
                     systemPlayer,
                     look,
                     addresses,
                     catalog,
                     recognition.services,
                     folder.path(),
                     {}},
                    preferences};

    explicit App(const std::vector<MediaItem> &songs)
        : library(songs)
    {
        preferences.setShowMoreInformation(true);
        app.newWindow();
    }
    [[nodiscard]] QQuickWindow &window() { return app.scenes().front()->window(); }
    [[nodiscard]] DetailViewController &detail() { return app.scenes().front()->detail(); }
};

/// Counts what frames cost the main thread: its processor time, and the time for which it stands still while
/// the renderer takes over the changes.
class FrameMeter : public QObject
{
public:
    explicit FrameMeter(QQuickWindow &window)
        : m_window(window)
    {
        connect(
            &window, &QQuickWindow::beforeSynchronizing, this, [this] { m_standstill.start(); },
            Qt::DirectConnection);
        connect(
            &window, &QQuickWindow::afterSynchronizing, this,
            [this] { m_stoodStillNs += m_standstill.nsecsElapsed(); }, Qt::DirectConnection);
        connect(&window, &QQuickWindow::frameSwapped, this, &FrameMeter::frameSwapped, Qt::QueuedConnection);
        m_start = threadCpuSeconds() * 1e3;
    }

    /// Waits for the next frame.
    void frame()
    {
        m_window.update();
        m_loop.exec();
    }
    [[nodiscard]] const std::vector<double> &costs() const { return m_costs; }

private:
    void frameSwapped()
    {
        const double now = threadCpuSeconds() * 1e3;
        const auto stoodStill = static_cast<double>(m_stoodStillNs.exchange(0)) / 1e6;
        m_costs.push_back(now - std::exchange(m_start, now) + stoodStill);
        m_loop.quit();
    }

    QQuickWindow &m_window;
    QEventLoop m_loop;
    QElapsedTimer m_standstill;
    std::atomic<qint64> m_stoodStillNs = 0;
    double m_start;
    std::vector<double> m_costs;
};

std::vector<MediaItem> makeSongs(const QTemporaryDir &folder)
{
    std::mt19937 random(2);
    std::vector<QString> files;
    for (int i = 0; i < distinctCovers; ++i) {
        const QColor color = QColor::fromHsv(i * 359 / distinctCovers, 255, 190);
        QFile file(folder.filePath(QString::number(i)));
        if (file.open(QIODevice::WriteOnly))
            file.write(photograph(1 + i % 5, color, i % 4 == 0 ? "png" : "jpg", random));
        files.push_back(file.fileName());
    }
    std::vector<MediaItem> songs(songCount);
    for (int i = 0; i < songCount; ++i) {
        MediaItem &song = songs.at(static_cast<size_t>(i));
        song.persistentID = {static_cast<std::uint64_t>(i + 1)};
        song.title = QStringLiteral("Song %1").arg(i + 1);
        song.artist = QStringLiteral("Artist");
        song.albumTitle = QStringLiteral("Album %1").arg(i / 10);
        song.playbackDuration = 200 + i;
        song.lyrics = QStringLiteral("La la la");
        // Each song has a key of its own: none profits from another's decoded cover.
        song.artwork = std::make_shared<FileCover>(files.at(static_cast<size_t>(i % distinctCovers)),
                                                   QByteArray::number(i));
    }
    return songs;
}

void wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Every item of @p root's tree that is shown.
void collectShown(QQuickItem &root, std::vector<QQuickItem *> &items)
{
    if (!root.isVisible())
        return;
    items.push_back(&root);
    for (QQuickItem *child : root.childItems())
        collectShown(*child, items);
}

std::vector<QQuickItem *> shownItems(QQuickWindow &window)
{
    std::vector<QQuickItem *> items;
    collectShown(*window.contentItem(), items);
    return items;
}

/// The list that scrolls: the tallest content that does not fit.
QQuickItem *scrollingList(QQuickWindow &window)
{
    QQuickItem *tallest = nullptr;
    const auto heightOf = [](const QQuickItem *item) { return item->property("contentHeight").toReal(); };
    for (QQuickItem *item : shownItems(window)) {
        if (item->inherits("QQuickFlickable") && heightOf(item) > item->height() &&
            (!tallest || heightOf(item) > heightOf(tallest)))
            tallest = item;
    }
    return tallest;
}

void measureScrolling(App &app, const std::string &name, QSize size)
{
    app.window().resize(size);
    wait(500);
    QQuickItem *list = scrollingList(app.window());
    if (!list) {
        std::printf("# %s: nothing to scroll\n", name.c_str());
        return;
    }
    const qreal furthest = list->property("contentHeight").toReal() - list->height();
    constexpr int framesOneWay = 150;
    FrameMeter meter(app.window());
    for (int i = 0; i < 2 * framesOneWay; ++i) {
        const int fromTop = i < framesOneWay ? i : 2 * framesOneWay - i;
        list->setProperty("contentY", furthest * fromTop / framesOneWay);
        meter.frame();
    }
    printTimes("scroll_" + name, meter.costs());
}

void measureResizing(App &app, const std::string &name, int height)
{
    constexpr int narrow = 640;
    constexpr int wide = 760;
    constexpr int step = 4;
    app.window().resize(narrow, height);
    wait(500);
    FrameMeter meter(app.window());
    for (int turn = 0; turn < 5; ++turn) {
        for (int width = narrow; width <= wide; width += step) {
            app.window().resize(width, height);
            meter.frame();
        }
        for (int width = wide; width >= narrow; width -= step) {
            app.window().resize(width, height);
            meter.frame();
        }
    }
    printTimes("resize_" + name, meter.costs());
}

/// The cover that can be seen.
ArtworkPicture *shownPicture(QQuickWindow &window)
{
    for (QQuickItem *item : shownItems(window)) {
        if (auto *picture = qobject_cast<ArtworkPicture *>(item))
            return picture;
    }
    return nullptr;
}

bool showsCoverOf(App &app, const MediaItem &song)
{
    const ArtworkPicture *picture = shownPicture(app.window());
    if (!picture || !picture->hasPicture())
        return false;
    const QPoint middle = picture->mapToScene({picture->width() / 2, picture->height() / 2}).toPoint();
    const QColor seen = app.window().grabWindow().pixelColor(middle * app.window().devicePixelRatio());
    const QImage cover = QImage::fromData(song.artwork->read()->bytes).scaled(8, 8);
    return std::abs(seen.hue() - cover.pixelColor(4, 4).hue()) < 8;
}

bool measureSwitching(App &app, const std::vector<MediaItem> &songs, const std::string &name, QSize size)
{
    app.window().resize(size);
    wait(500);
    const double before = residentMegabytes();
    FrameMeter meter(app.window());
    std::vector<double> commands;
    size_t shown = 0;
    QElapsedTimer whole;
    whole.start();
    QEventLoop loop;
    QTimer key;
    key.setTimerType(Qt::PreciseTimer);
    QObject::connect(&key, &QTimer::timeout, &app.window(), [&] {
        const double start = threadCpuSeconds() * 1e3;
        app.detail().displayMediaItem(songs.at(shown), {.showsNotInLibraryAlert = false});
        commands.push_back(threadCpuSeconds() * 1e3 - start);
        if (++shown == songs.size())
            loop.quit();
    });
    key.start(keyRepeatMs);
    loop.exec();
    key.stop();
    printFigure("switch_" + name + "_took", static_cast<double>(whole.elapsed()) / 1000, "s");
    printTimes("switch_" + name + "_command", commands);
    printTimes("switch_" + name + "_frame", meter.costs());
    printFigure("switch_" + name + "_memory_before", before, "MB");
    printFigure("switch_" + name + "_memory_after", residentMegabytes(), "MB");
    printFigure("switch_" + name + "_memory_peak", peakMegabytes(), "MB");

    QElapsedTimer settling;
    settling.start();
    const ArtworkPicture *picture = shownPicture(app.window());
    while (picture && !picture->hasPicture() && settling.elapsed() < 5000)
        wait(1);
    printFigure("switch_" + name + "_settled", static_cast<double>(settling.elapsed()), "ms");
    wait(500); // the cover fades in
    const bool isRight = showsCoverOf(app, songs.back());
    std::printf("# %s: the last song's cover is %s\n", name.c_str(), isRight ? "shown" : "NOT SHOWN");
    return isRight;
}

} // namespace

int main(int argc, char *argv[])
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QGuiApplication gui(argc, argv);
    const QTemporaryDir folder;
    const std::vector<MediaItem> songs = makeSongs(folder);
    App app(songs);
    app.detail().displayMediaItem(songs.front(), {.showsNotInLibraryAlert = false});
    wait(1000);
    constexpr QSize phone(360, 720);
    constexpr QSize tablet(1024, 768);
    measureScrolling(app, "phone", phone);
    measureScrolling(app, "tablet", tablet);
    measureResizing(app, "portrait", 900);
    measureResizing(app, "landscape", 600);
    const bool phoneIsRight = measureSwitching(app, songs, "phone", phone);
    const bool tabletIsRight = measureSwitching(app, songs, "tablet", tablet);
    return phoneIsRight && tabletIsRight ? 0 : 1;
}
