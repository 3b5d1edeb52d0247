// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/publishing/ArtworkFile.h"

#include "song/PictureFormat.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace trackwise {

namespace {

constexpr qsizetype filesKept = 32;

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
    const auto format = picture ? pictureFormat(picture->bytes) : std::nullopt;
    if (!format)
        return std::nullopt;
    const QByteArray hash = QCryptographicHash::hash(picture->bytes, QCryptographicHash::Sha1).toHex();
    const QDir target(folder);
    const QString path =
        target.absoluteFilePath(QString::fromLatin1(hash) + QLatin1Char('.') + fileSuffix(*format));

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
