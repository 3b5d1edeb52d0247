// SPDX-License-Identifier: GPL-3.0-or-later
//
// What covers cost: decoding at the tile's size, and going through 200 songs with covers of 1 to 5 MB as
// fast as a held key repeats. Prints the figures; ends with 1 when the last song's cover is not the one
// shown.
#include "artwork/ArtworkDecoder.h"
#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkImageProvider.h"
#include "artwork/ArtworkPicture.h"
#include "artwork/ArtworkSidebarView.h"
#include "support/AddressOpenerDouble.h"
#include "support/Covers.h"
#include "support/MusicPlayerDouble.h"
#include "ui/Engine.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

using namespace trackwise;

namespace {

constexpr int songCount = 200;
constexpr int keyRepeatMs = 1000 / 30;
constexpr int distinctCovers =
    25; // enough that the cache of decoded ones matters, few enough to generate soon

/// Noise that compresses to about @p megabytes, on a colour that tells the covers apart.
QByteArray photograph(double megabytes, const QColor &color, const char *format, std::mt19937 &random)
{
    const bool isJpeg = qstrcmp(format, "jpg") == 0;
    const int side = static_cast<int>(std::sqrt(megabytes * 1e6 / (isJpeg ? 0.55 : 2.4)));
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const auto noise = static_cast<int>(random() % 64);
            line[x] = qRgb(std::min(255, color.red() + noise), std::min(255, color.green() + noise / 2),
                           std::min(255, color.blue() + noise / 3));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, isJpeg ? 92 : -1);
    return bytes;
}

/// A cover in a file, as the library's are.
class FileCover : public ArtworkSource
{
public:
    FileCover(QString path, QByteArray key)
        : m_path(std::move(path))
        , m_key(std::move(key))
    {}
    [[nodiscard]] QByteArray key() const override { return m_key; }
    [[nodiscard]] std::optional<EncodedImage> read() const override
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? std::optional(EncodedImage{file.readAll()}) : std::nullopt;
    }

private:
    QString m_path;
    QByteArray m_key;
};

double memoryMiB(const char *field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return line.mid(qsizetype(qstrlen(field)) + 1).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

double percentile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0
                          : values.at(static_cast<size_t>(share * static_cast<double>(values.size() - 1)));
}

void measureDecoding()
{
    std::mt19937 random(1);
    const auto measure = [](const char *name, const QByteArray &bytes) {
        std::vector<double> times;
        QString outcome;
        for (int i = 0; i < 5; ++i) {
            QElapsedTimer timer;
            timer.start();
            const Result<QImage> image = decodeSquare(bytes, 384);
            times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
            outcome = image ? QStringLiteral("%1 px").arg(image->width()) : image.failure().detail;
        }
        std::printf("decode %-28s %8.1f MB  median %7.1f ms  (%s)\n", name,
                    static_cast<double>(bytes.size()) / 1e6, percentile(times, 0.5), qPrintable(outcome));
    };
    for (const double megabytes : {1.0, 3.0, 5.0}) {
        measure("JPEG", photograph(megabytes, Qt::darkBlue, "jpg", random));
        measure("PNG", photograph(megabytes, Qt::darkBlue, "png", random));
    }
    measure("JPEG 10,000 x 10,000", coverBytes({10'000, 10'000}, Qt::red, "jpg"));
    measure("PNG 10,000 x 10,000", coverBytes({10'000, 10'000}, Qt::red, "png"));
}

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
        // Each song has a key of its own: none profits from another's decoded cover.
        song.artwork = std::make_shared<FileCover>(files.at(static_cast<size_t>(i % distinctCovers)),
                                                   QByteArray::number(i));
    }
    return songs;
}

/// Goes through the songs as the container does: another song, another view.
bool measureSwitching()
{
    const QTemporaryDir folder;
    const std::vector<MediaItem> songs = makeSongs(folder);
    MusicPlayerDouble player;
    AddressOpenerDouble opener;
    ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
    ArtworkFiles files(folder.path());
    const ArtworkServices services{player, opener, loader, files, [] { return Instant{}; }};
    QQuickView window;
    prepareEngine(*window.engine());
    window.engine()->addImageProvider(artworkProviderName(), new ArtworkImageProvider(loader));
    window.resize(414, 768);
    window.show();
    QQmlComponent component(window.engine(),
                            QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Artwork/ArtworkSidebarView.qml")));

    std::unique_ptr<ArtworkSidebarView> model;
    std::unique_ptr<QQuickItem> item;
    std::vector<double> times;
    qsizetype mostCached = 0;
    const double before = memoryMiB("VmRSS");
    size_t shown = 0;
    QElapsedTimer whole;
    whole.start();
    QEventLoop loop;
    QTimer key;
    key.setTimerType(Qt::PreciseTimer);
    QObject::connect(&key, &QTimer::timeout, &window, [&] {
        QElapsedTimer timer;
        timer.start();
        auto next = std::make_unique<ArtworkSidebarView>(songs.at(shown), false, true, services);
        item.reset(qobject_cast<QQuickItem *>(component.createWithInitialProperties(
            {{QStringLiteral("view"), QVariant::fromValue(next.get())}})));
        item->setSize(window.size());
        item->setParentItem(window.contentItem());
        model = std::move(next);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        mostCached = std::max(mostCached, loader.cache().usedBytes());
        if (++shown == songs.size())
            loop.quit();
    });
    key.start(keyRepeatMs);
    loop.exec();
    key.stop();
    const double took = static_cast<double>(whole.elapsed()) / 1000;

    const auto *picture = item->findChild<ArtworkPicture *>();
    QElapsedTimer wait;
    wait.start();
    while (!picture->hasPicture() && wait.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    const double settled = static_cast<double>(wait.nsecsElapsed()) / 1e6;
    const QImage expected =
        loader.square(*artworkReference(picture->source()), 8, std::make_shared<std::atomic<bool>>(false));
    QElapsedTimer fade; // until the picture has faded in
    fade.start();
    while (fade.elapsed() < 500)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    const QColor seen = window.grabWindow().pixelColor(
        picture->mapToScene({picture->width() / 2, picture->height() / 2}).toPoint() *
        window.devicePixelRatio());
    const QColor wanted = expected.pixelColor(4, 4);
    const bool isRight = picture->hasPicture() && std::abs(seen.hue() - wanted.hue()) < 8;

    std::printf("switch %zu songs in %.1f s: main thread median %.2f ms, p99 %.2f ms, most %.2f ms\n", shown,
                took, percentile(times, 0.5), percentile(times, 0.99), percentile(times, 1));
    std::printf("memory before %.0f MiB, now %.0f MiB, peak %.0f MiB; cache at most %.1f of %.0f MiB\n",
                before, memoryMiB("VmRSS"), memoryMiB("VmHWM"), static_cast<double>(mostCached) / (1 << 20),
                static_cast<double>(ArtworkCache::defaultLimit) / (1 << 20));
    std::printf("last song's cover %.0f ms after the last key, %s\n", settled, isRight ? "right" : "WRONG");
    return isRight;
}

} // namespace

int main(int argc, char *argv[])
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QGuiApplication app(argc, argv);
    const bool isRight = measureSwitching();
    measureDecoding();
    return isRight ? 0 : 1;
}
