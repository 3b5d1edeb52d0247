// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws the information list in many guises, to be looked at: information_gallery FOLDER LOCALE, with LC_ALL
// of that locale
#include "information/InformationView.h"
#include "preferences/Preferences.h"
#include "ui/Engine.h"
#include "ui/Theme.h"
#include "ui/Translations.h"

#include <QDir>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <functional>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {

struct Scene
{
    QString name;
    QSize size{1024, 768};
    bool expanded = true;
    ThemeSettings theme;
    QByteArray locale = "en_US";
    MediaItem song;
    bool showsLyrics = false;
    qreal scrolled = 0;
    std::function<void(QQuickView &)> act = [](QQuickView &) {};
};

MediaItem goldenHour()
{
    const Instant released{std::chrono::sys_days{std::chrono::year{2021} / 3 / 5}};
    const Instant played{std::chrono::sys_days{std::chrono::year{2026} / 11 / 20} + 21h + 14min};
    MediaItem song;
    song.title = QStringLiteral("Golden Hour Lines");
    song.artist = QStringLiteral("The Quiet Machines");
    song.albumTitle = QStringLiteral("Paper Satellites (Deluxe Edition)");
    song.albumArtist = QStringLiteral("The Quiet Machines");
    song.genre = QStringLiteral("Electronic");
    song.releaseDate = released;
    song.playbackDuration = 205;
    song.playCount = 42;
    song.lastPlayedDate = song.dateAddedForReal = played;
    song.albumTrackNumber = 3;
    song.albumTrackCount = 12;
    song.discNumber = song.discCount = 1;
    song.isExplicitItem = true;
    song.rating = 4;
    song.beatsPerMinute = 118;
    song.comments = QStringLiteral("Recorded in one night.\nMixed by hand.");
    song.lyrics =
        QStringLiteral("Paper satellites over the town,\nwriting their lines in the gold going down.\n\n"
                       "Hold on, hold on,\nthe evening is long.\n")
            .repeated(12);
    return song;
}

MediaItem with(MediaItem song, const QString &title, const QString &artist, const QString &album)
{
    song.title = title;
    song.artist = song.albumArtist = artist;
    song.albumTitle = album;
    return song;
}

MediaItem longWinded()
{
    MediaItem song =
        with(goldenHour(),
             QStringLiteral("A Title That Goes On, and On, and Still Further On, Until It Has Said "
                            "Everything That a Title of Such a Length Could Ever Wish to Say"),
             QString(300, u'x'), QStringLiteral("交響曲第九番ニ短調作品百二十五合唱付き").repeated(6));
    song.comments = QStringLiteral("Lorem ipsum dolor sit amet, consectetur adipiscing elit. ").repeated(20);
    song.genre = QStringLiteral("Русская музыка, ελληνική μουσική, موسيقى عربية, מוזיקה, ดนตรีไทย, 🎻🎹");
    song.composer = QStringLiteral("Zalgo̷̢͎͉̥̪̰̼͔̮̪̳̪̓̍́̎̕ of the Marks");
    return song;
}

MediaItem hostile()
{
    MediaItem song =
        with(goldenHour(), QStringLiteral("<b>x</b><img src=\"http://127.0.0.1:1/x\">"),
             QStringLiteral("a\tb\r\nc\u2028d"), QStringLiteral("\u202Edlrow olleh\u202C & <i>"));
    song.genre = QStringLiteral("%1 %n &amp; &");
    song.composer = QString(3, QChar(0)) + QStringLiteral("nul\u0007bell");
    song.userGrouping = QStringLiteral("   ");
    return song;
}

void focusThirdRow(QQuickView &window)
{
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&window, Qt::Key_Tab);
}

void rightClick(QQuickView &window)
{
    QTest::mouseClick(&window, Qt::RightButton, {}, {200, 200});
}

void holdAFinger(QQuickView &window)
{
    static const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QTest::touchEvent(&window, screen.get()).press(0, QPoint(300, 210));
    QTest::qWait(700);
    QTest::touchEvent(&window, screen.get()).release(0, QPoint(300, 210));
}

std::vector<Scene> scenes()
{
    const MediaItem song = goldenHour();
    const ThemeSettings dark{.isDark = true};
    const ThemeSettings largest{.textSize = 11};
    const MediaItem arabic = with(song, QStringLiteral("خطوط الساعة الذهبية"), QStringLiteral("فيروز"),
                                  QStringLiteral("أقمار من ورق (Deluxe Edition)"));
    const MediaItem japanese =
        with(song, QStringLiteral("黄金時間の線"), QStringLiteral("静かな機械"), QStringLiteral("紙の衛星"));
    const QSize phone(360, 720);
    const QSize small(360, 480);
    return {
        {.name = QStringLiteral("tablet"), .song = song},
        {.name = QStringLiteral("collapsed"), .expanded = false, .song = song},
        {.name = QStringLiteral("dark"), .theme = dark, .song = song},
        {.name = QStringLiteral("phone"), .size = phone, .song = song},
        {.name = QStringLiteral("phone-dark-end"),
         .size = small,
         .theme = dark,
         .song = song,
         .scrolled = 1e6},
        {.name = QStringLiteral("large"), .size = phone, .theme = {.textSize = 6}, .song = song},
        {.name = QStringLiteral("largest"), .size = phone, .theme = largest, .song = song},
        {.name = QStringLiteral("largest-tablet"), .theme = largest, .song = song},
        {.name = QStringLiteral("largest-end"),
         .size = phone,
         .theme = largest,
         .song = song,
         .scrolled = 1e6},
        {.name = QStringLiteral("arabic"), .size = phone, .locale = "ar_EG", .song = arabic},
        {.name = QStringLiteral("arabic-end"),
         .size = phone,
         .locale = "ar_EG",
         .song = arabic,
         .scrolled = 1e6},
        {.name = QStringLiteral("arabic-largest"),
         .size = phone,
         .theme = largest,
         .locale = "ar_EG",
         .song = arabic},
        {.name = QStringLiteral("german"), .size = phone, .locale = "de_DE", .song = song},
        {.name = QStringLiteral("japanese"), .size = phone, .locale = "ja_JP", .song = japanese},
        {.name = QStringLiteral("empty"), .size = phone, .song = {}},
        {.name = QStringLiteral("long"), .size = phone, .song = longWinded()},
        {.name = QStringLiteral("long-tablet"), .song = longWinded()},
        {.name = QStringLiteral("hostile"), .size = phone, .song = hostile()},
        {.name = QStringLiteral("focus"), .size = phone, .song = song, .act = focusThirdRow},
        {.name = QStringLiteral("focus-dark"),
         .size = phone,
         .theme = dark,
         .song = song,
         .act = focusThirdRow},
        {.name = QStringLiteral("context-menu"), .size = phone, .song = song, .act = rightClick},
        {.name = QStringLiteral("context-menu-dark"),
         .size = phone,
         .theme = dark,
         .song = song,
         .act = rightClick},
        {.name = QStringLiteral("edit-menu"), .size = phone, .song = song, .act = holdAFinger},
        {.name = QStringLiteral("edit-menu-dark"),
         .size = phone,
         .theme = dark,
         .song = song,
         .act = holdAFinger},
        {.name = QStringLiteral("lyrics"), .size = phone, .song = song, .showsLyrics = true},
        {.name = QStringLiteral("lyrics-dark-tablet"), .theme = dark, .song = song, .showsLyrics = true},
        {.name = QStringLiteral("lyrics-largest"),
         .size = phone,
         .theme = largest,
         .song = song,
         .showsLyrics = true},
    };
}

void draw(const Scene &scene, const QDir &folder)
{
    QTemporaryDir temporary;
    Preferences preferences(temporary.filePath(QStringLiteral("defaults.ini")));
    preferences.setShowMoreInformation(scene.expanded);
    InformationView list({.mediaItem = scene.song}, preferences, {scene.locale, scene.locale},
                         QTimeZone::utc());

    QQuickView window;
    prepareEngine(*window.engine());
    Theme &theme = themeOf(*window.engine());
    theme.setSettings(scene.theme);
    window.setColor(theme.systemBackground());
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    window.resize(scene.size);
    window.setInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&list)},
                                 {QStringLiteral("lyrics"), scene.song.lyrics.value_or(QString())},
                                 {QStringLiteral("showsLyrics"), scene.showsLyrics}});
    window.setSource(QUrl(QStringLiteral("qrc:/gallery/Gallery.qml")));
    window.show();
    window.requestActivate();
    (void)QTest::qWaitForWindowActive(&window);
    QMetaObject::invokeMethod(window.rootObject(), "scrollTo", Q_ARG(double, scene.scrolled));
    scene.act(window);
    QTest::qWait(300); // for what moves or fades
    const QString file = folder.filePath(scene.name + QStringLiteral(".png"));
    window.grabWindow().save(file);
    std::puts(qPrintable(file));
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fputs("usage: information_gallery FOLDER LOCALE\n", stderr);
        return 2;
    }
    installTranslations(app);
    QGuiApplication::setFont(QFont(QStringList{QStringLiteral("Inter"), QStringLiteral("Noto Sans")}));
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    for (const Scene &scene : scenes()) {
        if (scene.locale == argv[2])
            draw(scene, QDir(QString::fromLocal8Bit(argv[1])));
    }
    return 0;
}
