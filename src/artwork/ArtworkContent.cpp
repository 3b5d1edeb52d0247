// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkContent.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

namespace trackwise {

namespace {

constexpr qreal widestSide = 300;
constexpr qreal spaceBeside = 80;

QString noText()
{
    return QStringLiteral("--");
}

} // namespace

qreal artworkSide(qreal availableWidth)
{
    return std::clamp(availableWidth - spaceBeside, 0.0, widestSide);
}

QString placeholderSymbol(Instant now, const QTimeZone &zone)
{
    const QDateTime change = QDate(2021, 9, 20).startOfDay(zone);
    Q_ASSERT(change.isValid());
    return change.toMSecsSinceEpoch() < now.time_since_epoch().count() ? QStringLiteral("note")
                                                                       : QStringLiteral("noteinfo");
}

TitleBlock titleBlock(const MediaItem &song, const QString &fileName)
{
    TitleBlock block{
        .title = song.title.value_or(QString()), .artist = song.artist, .isExplicit = song.isExplicitItem};
    if (block.title.isEmpty())
        block.title = fileName.isEmpty() ? noText() : fileName;
    if (block.artist && block.artist->isEmpty())
        block.artist = noText();
    return block;
}

QString spokenText(const TitleBlock &block)
{
    QString text = block.title;
    if (block.isExplicit)
        text += QStringLiteral(", ") + QCoreApplication::translate("ArtworkView", "Explicit");
    if (block.artist)
        text += QStringLiteral(", ") + *block.artist;
    return text;
}

} // namespace trackwise
