// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_links [DATABASE...]   from a dropped link to its song being shown, in libraries of made-up songs
//                             (library_figures rows). Without arguments: in libraries of 100,000 and
//                             1,000,000 songs, made once under TRACKWISE_BENCH_DIR (default:
//                             /var/tmp/trackwise-bench)
//
// Figures are printed one a line: name, value, unit.
#include "app/WindowControllers.h"
#include "device/library/LinuxLibrary.h"
#include "device/library/MadeUpSongs.h"
#include "support/Figures.h"
#include "support/RecognitionDoubles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
using namespace trackwise;

namespace {

constexpr int rounds = 500;

/// A catalog that answers at once, and always the same.
class QuickCatalog : public HttpClient
{
public:
    QByteArray reply;

    void get(const QUrl &, std::chrono::milliseconds, QObject *receiver, Handler handler) override
    {
        QMetaObject::invokeMethod(
            receiver, [handler = std::move(handler), answer = reply] { handler(answer); },
            Qt::QueuedConnection);
    }
};

std::unique_ptr<LinuxLibrary> opened(const QString &database, QSettings &settings)
{
    auto library = LinuxLibrary::open({{"/music"}, QFile::encodeName(database)}, settings);
    if (!library)
        qFatal("%s", qPrintable(library.failure().detail));
    (*library)->access().setStatus(LibraryAuthorizationStatus::Authorized);
    return std::move(*library);
}

QByteArray replyWith(const QString &title, const QString &artist, const QString &album)
{
    const QJsonObject song{{QLatin1StringView("kind"), QStringLiteral("song")},
                           {QLatin1StringView("trackName"), title},
                           {QLatin1StringView("artistName"), artist},
                           {QLatin1StringView("collectionName"), album}};
    return QJsonDocument(QJsonObject{{QLatin1StringView("results"), QJsonArray{song}}}).toJson();
}

/// A window's controllers over a library of the device.
class Window
{
public:
    explicit Window(MediaLibrary &library)
        : m_library(library)
        , m_catalog(m_http, {})
        , m_services{library,
                     m_device.systemPlayer,
                     m_device.preferences,
                     m_device.addresses,
                     m_device.artwork,
                     m_catalog,
                     m_recognition.services,
                     m_searches,
                     {},
                     {},
                     {},
                     {},
                     QTimeZone::utc()}
        , m_detail(m_services, m_presentation)
        , m_container(m_device.containerServices, m_detail)
    {
        m_container.viewDidLoad();
        m_detail.viewDidLoad();
    }
    ~Window() { m_searches.waitForDone(); }

    /// Drops links to the songs with these numbers and waits for the song, or for the word that there is
    /// none.
    void measure(const std::string &name, bool isFound, const std::function<int(int round)> &number)
    {
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            const QString identifier = QString::number(firstCatalogID + number(round));
            const QString link = QStringLiteral("https://music.apple.com/album/1?i=") + identifier;
            QEventLoop waiting;
            QObject::connect(&m_detail, &DetailViewController::songDidChange, &waiting, &QEventLoop::quit);
            QObject::connect(&m_presentation, &Presentation::alertChanged, &waiting, [&] {
                if (m_presentation.isAlertVisible())
                    waiting.quit();
            });
            QElapsedTimer clock;
            clock.start();
            m_detail.handleDroppedURLs({link});
            waiting.exec();
            times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
            const bool isAnother =
                number(round) != unknownNumber && m_detail.visibleMediaItem()->playbackStoreID != identifier;
            if (m_presentation.isPresenting() == isFound || isAnother)
                qFatal("%s: %s has shown something else", name.c_str(), qPrintable(link));
            m_presentation.dismiss();
            while (m_presentation.isPresenting())
                QCoreApplication::processEvents();
        }
        printTimes(name, times);
    }

    /// The same for a link that the library does not know, with the catalog's answer made of @p song.
    void measureCatalog(const std::string &name, const QString &title, const QString &artist,
                        const QString &album, bool isFound)
    {
        m_http.reply = replyWith(title, artist, album);
        measure(name, isFound, [](int) { return unknownNumber; });
    }

    [[nodiscard]] MediaItem song(int number) const
    {
        const auto found = m_library.songWithCatalogID(QString::number(firstCatalogID + number));
        if (!found)
            qFatal("no song has the number %d: is this a library of made-up songs?", number);
        return *found;
    }

private:
    static constexpr int firstCatalogID = 1'000'000'000; // as made-up songs are numbered
    static constexpr int unknownNumber = 900'000'000;

    MediaLibrary &m_library;
    WindowDevice m_device;
    QuickCatalog m_http;
    CatalogLookup m_catalog;
    QThreadPool m_searches;
    RecognitionDoubles m_recognition;
    DetailServices m_services;
    Presentation m_presentation;
    DetailViewController m_detail;
    ContainerViewController m_container;
};

void measureLinks(const QString &database)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("device.ini")), QSettings::IniFormat);
    const auto library = opened(database, settings);
    const auto count = static_cast<int>(library->browser().songCount());
    const std::string prefix = "links_" + std::to_string(count) + '_';
    Window window(library->mediaLibrary());
    window.measure(prefix + "first", true, [](int) { return 1; });
    window.measure(prefix + "middle", true, [&](int) { return count / 2; });
    window.measure(prefix + "last", true, [&](int) { return count; });
    window.measure(prefix + "anywhere", true,
                   [&](int round) { return static_cast<int>(qint64(round) * 7919 % count) + 1; });

    const MediaItem song = window.song(count / 2);
    const QString title = song.title.value_or(QString());
    const QString artist = song.artist.value_or(QString());
    const QString album = song.albumTitle.value_or(QString());
    window.measureCatalog(prefix + "catalog_exact", title, artist, album, true);
    window.measureCatalog(prefix + "catalog_other_artist", title, QStringLiteral("?"), album, true);
    window.measureCatalog(prefix + "catalog_other_album", title, artist, QStringLiteral("?"), true);
    window.measureCatalog(prefix + "catalog_other_case", title.toUpper(), artist.toUpper(), album, true);
    window.measureCatalog(prefix + "catalog_nowhere", title, QStringLiteral("?"), QStringLiteral("?"), false);
}

// A library of that many made-up songs, made where there is none yet.
QString madeUpLibrary(int count)
{
    const QDir folder(
        qEnvironmentVariable("TRACKWISE_BENCH_DIR", QStringLiteral("/var/tmp/trackwise-bench")));
    const QString database = folder.filePath(QStringLiteral("rows-%1.sqlite").arg(count));
    if (QFile::exists(database))
        return database;
    QDir().mkpath(folder.path());
    const QTemporaryDir making(folder.filePath(QStringLiteral("links-XXXXXX")));
    const QString unfinished = making.filePath(QStringLiteral("library.sqlite"));
    QSettings settings(making.filePath(QStringLiteral("device.ini")), QSettings::IniFormat);
    writeMadeUpSongs(*opened(unfinished, settings)->store(), count);
    if (!QFile::rename(unfinished, database))
        qFatal("cannot make %s", qPrintable(database));
    return database;
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QStringList databases = QCoreApplication::arguments().mid(1);
    if (databases.isEmpty())
        databases = {madeUpLibrary(100'000), madeUpLibrary(1'000'000)};
    for (const QString &database : databases)
        measureLinks(database);
    return 0;
}
