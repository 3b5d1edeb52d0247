// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/EmptyState.h"

#include <QCoreApplication>

namespace trackwise {

namespace {

QString text(const char *sourceText)
{
    return QCoreApplication::translate("SongPicker", sourceText);
}

} // namespace

EmptyState emptyState(const QString &searchText, bool isScanning)
{
    if (!searchText.isEmpty())
        return {.symbolName = QStringLiteral("magnifyingglass"),
                .title = text(QT_TRANSLATE_NOOP("SongPicker", "No Results")),
                .message = text(QT_TRANSLATE_NOOP("SongPicker", "No song matches “%1”.")).arg(searchText)};
    if (isScanning)
        return {.symbolName = QStringLiteral("music.note"),
                .title = text(QT_TRANSLATE_NOOP("SongPicker", "Looking for Music")),
                .message = text(
                    QT_TRANSLATE_NOOP("SongPicker", "Songs appear here as soon as they have been read."))};
    return {
        .symbolName = QStringLiteral("music.note"),
        .title = text(QT_TRANSLATE_NOOP("SongPicker", "No Music Found")),
        .message = text(QT_TRANSLATE_NOOP(
            "SongPicker", "Add songs to your music folder, or choose the folder in which your music is.")),
        .offersFolder = true};
}

} // namespace trackwise
