// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/publishing/ArtworkFile.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace trackwise {

namespace {

constexpr qsizetype filesKept = 32;

QString suffixOf(const QByteArray &picture)
{
    if (picture.startsWith("\xff\xd8\xff"))
        return QStringLiteral("jpg");
    if (picture.startsWith("\x89PNG\r\n"))
        return QStringLiteral("png");
    if (picture.startsWith("GIF8"))
        return QStringLiteral("gif");
    if (picture.startsWith("RIFF") && picture.mid(8, 4) == "WEBP")
        return QStringLiteral("webp");
    if (picture.startsWith("BM"))
        return QStringLiteral("bmp");
    return {};
}

void removeOldFiles(const QDir &folder)
{
    const QFileInfoList files = folder.entryInfoList(QDir::Files, QDir::Time); // newest first
    for (qsizetype i = filesKept; i < files.size(); ++i)
        QFile::remove(files[i].filePath());
}

} // namespace

std::optional<QString> artworkFile(const ArtworkSource &artwork, const QString &folder)
{
    const auto picture = artwork.read();
    if (!picture)
        return std::nullopt;
    const QString suffix = suffixOf(picture->bytes);
    if (suffix.isEmpty())
        return std::nullopt;
    const QByteArray hash = QCryptographicHash::hash(picture->bytes, QCryptographicHash::Sha1).toHex();
    const QDir target(folder);
    const QString path = target.absoluteFilePath(QString::fromLatin1(hash) + QLatin1Char('.') + suffix);

    if (QFile present(path); present.size() == picture->bytes.size() && present.open(QIODevice::ReadWrite)) {
        present.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime); // used last
        return path;
    }
    QSaveFile file(path);
    if (!target.mkpath(QStringLiteral(".")) || !file.open(QIODevice::WriteOnly) ||
        file.write(picture->bytes) != picture->bytes.size() || !file.commit())
        return std::nullopt;
    removeOldFiles(target);
    return path;
}

} // namespace trackwise
