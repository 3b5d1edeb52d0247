// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws the artwork view in many guises, to be looked at: artwork_gallery FOLDER
#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkImageProvider.h"
#include "artwork/ArtworkPicture.h"
#include "artwork/ArtworkSidebarView.h"
#include "support/AddressOpenerDouble.h"
#include "support/Covers.h"
#include "support/MusicPlayerDouble.h"
#include "ui/Engine.h"
#include "ui/Theme.h"

#include <QDir>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <cstdio>
#include <functional>

using namespace trackwise;

namespace {

struct Scene
{
    QString name;
    QSize size{414, 768};
    bool isColumn = true;
    ThemeSettings theme;
    std::optional<MediaItem> song;
    bool isNowPlaying = false;
    bool mirrored = false;
    std::function<void(QQuickView &)> act = [](QQuickView &) {};
};

ArtworkPtr gradient()
{
    QImage image(1400, 1400, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient colours(0, 0, 1400, 1400);
    colours.setColorAt(0, QColor(QRgb(0xffffb86b)));
    colours.setColorAt(0.5, QColor(QRgb(0xffe0457b)));
    colours.setColorAt(1, QColor(QRgb(0xff5b3fd6)));
    painter.fillRect(image.rect(), colours);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "jpg", 95);
    return std::make_shared<MemoryArtwork>(bytes);
}

MediaItem song(const QString &title, const QString &artist, bool isExplicit, ArtworkPtr artwork)
{
    MediaItem item;
    item.persistentID = {1};
    item.title = title;
    item.artist = artist;
    item.isExplicitItem = isExplicit;
    item.artwork = std::move(artwork);
    return item;
}

void focusTile(QQuickView &window)
{
    window.requestActivate();
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::qWait(200);
}

void openMenu(QQuickView &window)
{
    focusTile(window);
    QTest::keyClick(&window, Qt::Key_Menu);
    QTest::qWait(400);
}

std::vector<Scene> scenes()
{
    const ArtworkPtr art = gradient();
    const MediaItem golden = song(u"Golden Hour Lines"_qs, u"The Quiet Machines"_qs, true, art);
    const MediaItem bare = song(u"Golden Hour Lines"_qs, u"The Quiet Machines"_qs, false, nullptr);
    const MediaItem longTitle =
        song(u"A Title That Goes On, and On, and Still Further On, Until It Has Said Everything"_qs,
             u"An Orchestra With a Rather Long Name and Its Many Friends"_qs, true, art);
    const MediaItem hebrew = song(u"שירים של שעת הזהב על הגג"_qs, u"המכונות השקטות"_qs, true, art);
    const ThemeSettings light;
    const ThemeSettings dark{.isDark = true};
    const QSize phone(360, 720);
    return {
        {.name = u"column-light"_qs, .song = golden},
        {.name = u"column-dark"_qs, .theme = dark, .song = golden},
        {.name = u"column-320-dark-followed"_qs,
         .size = {320, 768},
         .theme = dark,
         .song = golden,
         .isNowPlaying = true},
        {.name = u"column-empty-light"_qs, .song = bare},
        {.name = u"column-empty-dark"_qs, .theme = dark, .song = bare},
        {.name = u"column-no-song-light"_qs, .size = {320, 768}, .song = std::nullopt},
        {.name = u"column-long-light"_qs, .size = {320, 768}, .song = longTitle},
        {.name = u"column-hebrew-light"_qs, .song = hebrew},
        {.name = u"column-hebrew-mirrored"_qs, .theme = dark, .song = hebrew, .mirrored = true},
        {.name = u"column-latin-mirrored"_qs, .song = golden, .isNowPlaying = true, .mirrored = true},
        {.name = u"column-largest-text"_qs, .theme = {.textSize = 11}, .song = golden},
        {.name = u"column-long-largest"_qs, .size = {320, 768}, .theme = {.textSize = 11}, .song = longTitle},
        {.name = u"column-focus"_qs, .song = golden, .act = focusTile},
        {.name = u"column-menu-dark"_qs, .theme = dark, .song = golden, .act = openMenu},
        {.name = u"phone-light"_qs, .size = phone, .isColumn = false, .song = golden},
        {.name = u"phone-dark-followed"_qs,
         .size = phone,
         .isColumn = false,
         .theme = dark,
         .song = golden,
         .isNowPlaying = true},
        {.name = u"phone-empty-light"_qs, .size = phone, .isColumn = false, .song = bare},
        {.name = u"phone-long-dark"_qs,
         .size = phone,
         .isColumn = false,
         .theme = dark,
         .song = longTitle,
         .isNowPlaying = true},
        {.name = u"phone-largest-text"_qs,
         .size = phone,
         .isColumn = false,
         .theme = {.isDark = true, .textSize = 11},
         .song = golden,
         .isNowPlaying = true},
    };
}

bool draw(const Scene &scene, const QDir &folder)
{
    MusicPlayerDouble player;
    AddressOpenerDouble opener;
    ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
    ArtworkFiles files(QDir::tempPath());
    const auto now = [] {
        return std::chrono::time_point_cast<Instant::duration>(std::chrono::system_clock::now());
    };
    const ArtworkServices services{player, opener, loader, files, now};
    ArtworkSidebarView sidebar(scene.song, scene.isNowPlaying, true, services);
    ArtworkView view({.mediaItem = scene.song, .isNowPlaying = scene.isNowPlaying, .supportsPlayback = true},
                     services);
    QGuiApplication::setLayoutDirection(scene.mirrored ? Qt::RightToLeft : Qt::LeftToRight);

    QQuickView window;
    prepareEngine(*window.engine());
    themeOf(*window.engine()).setSettings(scene.theme);
    window.engine()->addImageProvider(artworkProviderName(), new ArtworkImageProvider(loader));
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    window.resize(scene.size);
    window.setInitialProperties({{QStringLiteral("sidebar"), QVariant::fromValue(&sidebar)},
                                 {QStringLiteral("view"), QVariant::fromValue(&view)},
                                 {QStringLiteral("isColumn"), scene.isColumn}});
    window.setSource(QUrl(QStringLiteral("qrc:/gallery/Gallery.qml")));
    window.show();
    if (!window.rootObject() || !QTest::qWaitForWindowExposed(&window))
        return false;
    QTest::qWait(700);
    scene.act(window);
    return window.grabWindow().save(folder.filePath(scene.name + QStringLiteral(".png")));
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    const QDir folder(app.arguments().value(1, QStringLiteral(".")));
    QDir().mkpath(folder.path());
    for (const Scene &scene : scenes()) {
        if (!draw(scene, folder)) {
            std::fprintf(stderr, "could not draw %s\n", qPrintable(scene.name));
            return 1;
        }
    }
    return 0;
}
