// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "information/InformationView.h"
#include "preferences/Preferences.h"
#include "ui/Engine.h"
#include "ui/Theme.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryDir>
#include <QTest>

namespace trackwise {

/// A song's real list in a real window, read as a screen reader reads it.
class ListWindow
{
public:
    explicit ListWindow(MediaItem song, QSize size = {1024, 768}, const ThemeSettings &settings = {},
                        std::function<void()> lyricsAction = {})
        : preferences(m_folder.filePath(QStringLiteral("defaults.ini")))
        , information({.mediaItem = std::move(song), .lyricsAction = std::move(lyricsAction)}, preferences,
                      {}, QTimeZone::utc())
    {
        QAccessible::setActive(true);
        prepareEngine(*window.engine());
        themeOf(*window.engine()).setSettings(settings);
        window.setResizeMode(QQuickView::SizeRootObjectToView);
        window.resize(size);
        window.setInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&information)}});
        window.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Information/InformationView.qml")));
        window.rootObject()->setFocus(true);
        window.show();
        window.requestActivate();
        (void)QTest::qWaitForWindowActive(&window);
    }

    /// Every accessible element below the window in the order of the page, with its name.
    [[nodiscard]] std::vector<std::pair<QQuickItem *, QString>> elements()
    {
        std::vector<std::pair<QQuickItem *, QString>> found;
        collect(QAccessible::queryAccessibleInterface(&window), found);
        return found;
    }
    [[nodiscard]] QStringList names()
    {
        QStringList result;
        for (const auto &[item, name] : elements())
            result << name;
        return result;
    }
    /// The first element whose name begins so; null when there is none.
    [[nodiscard]] QQuickItem *find(const QString &nameStart)
    {
        for (const auto &[item, name] : elements()) {
            if (name.startsWith(nameStart))
                return item;
        }
        return nullptr;
    }
    [[nodiscard]] QRectF place(const QString &nameStart)
    {
        QQuickItem *item = find(nameStart);
        return item ? item->mapRectToScene({0, 0, item->width(), item->height()}) : QRectF();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&window, key, modifiers);
    }

private:
    QTemporaryDir m_folder;

    static void collect(QAccessibleInterface *parent, std::vector<std::pair<QQuickItem *, QString>> &found)
    {
        for (int i = 0; parent && i < parent->childCount(); ++i) {
            QAccessibleInterface *child = parent->child(i);
            auto *item = qobject_cast<QQuickItem *>(child->object());
            if (child->state().invisible)
                continue;
            if (const QString name = child->text(QAccessible::Name); item && !name.isEmpty())
                found.emplace_back(item, name);
            collect(child, found);
        }
    }

public:
    Preferences preferences;
    InformationView information;
    QQuickView window;
};

} // namespace trackwise
