// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkAddress.h"

namespace trackwise {

namespace {
constexpr auto addressStart = u"image://artwork/";
constexpr qsizetype identifierDigits = 16;
} // namespace

QString artworkProviderName()
{
    return QStringLiteral("artwork");
}

QString artworkAddress(const ArtworkReference &reference)
{
    QString address = QStringView(addressStart).toString();
    address += reference.song.toString() + u'/' + QString::fromLatin1(reference.key.toHex());
    return address;
}

std::optional<ArtworkReference> artworkReference(QStringView address)
{
    if (address.startsWith(addressStart))
        address = address.mid(QStringView(addressStart).size());
    const QStringView key = address.mid(identifierDigits + 1);
    if (address.size() <= identifierDigits || address.at(identifierDigits) != u'/' || key.isEmpty())
        return std::nullopt;
    bool isNumber = false;
    const PersistentID song{address.first(identifierDigits).toULongLong(&isNumber, 16)};
    const QByteArray bytes = QByteArray::fromHex(key.toLatin1());
    // Reading skips what is no digit; only what comes out as it went in was one number of whole bytes.
    if (!isNumber || key.compare(QLatin1String(bytes.toHex()), Qt::CaseInsensitive) != 0)
        return std::nullopt;
    return ArtworkReference{song, bytes};
}

} // namespace trackwise
