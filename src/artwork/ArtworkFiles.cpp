// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QSaveFile>

#include <algorithm>
#include <iterator>

namespace trackwise {

namespace {

Q_LOGGING_CATEGORY(log, "trackwise.artwork", QtFatalMsg)

// A name may have 255 bytes on the usual file systems; a character takes up to four, and the suffix counts.
constexpr qsizetype longestNameBytes = 200;

bool isForbidden(QChar c)
{
    // What FAT and NTFS forbid is more than what Linux does; covers end up on sticks and phones.
    return QStringView(u"/\\:*?\"<>|").contains(c) || c.category() == QChar::Other_Control ||
           c.category() == QChar::Other_Format;
}

QString cleaned(QString text)
{
    std::replace_if(text.begin(), text.end(), isForbidden, u' ');
    text = text.simplified(); // also what separates lines
    // Neither hidden nor a way out of the folder; and some systems drop dots and spaces at the end.
    const auto isMargin = [](QChar c) { return c == u'.' || c == u' '; };
    const auto first = std::find_if_not(text.cbegin(), text.cend(), isMargin);
    const auto last = std::find_if_not(text.crbegin(), std::make_reverse_iterator(first), isMargin);
    return QString(first, last.base() - first);
}

QString shortened(QString text)
{
    while (text.toUtf8().size() > longestNameBytes)
        text.chop(text.back().isLowSurrogate() ? 2 : 1);
    return text.trimmed();
}

} // namespace

QString artworkFileName(const QString &artist, const QString &album, const QString &suffix)
{
    QStringList parts{cleaned(artist), cleaned(album)};
    parts.removeAll(QString());
    const QString name = shortened(parts.join(QStringLiteral(" - ")));
    return (name.isEmpty() ? QStringLiteral("Artwork") : name) + u'.' + suffix;
}

ArtworkFiles::ArtworkFiles(QString parentFolder)
    : m_parentFolder(std::move(parentFolder))
{}

QString ArtworkFiles::folder()
{
    const QMutexLocker lock(&m_mutex);
    if (!m_folder) {
        QDir().mkpath(m_parentFolder);
        m_folder = std::make_unique<QTemporaryDir>(m_parentFolder + QStringLiteral("/artwork-XXXXXX"));
    }
    return m_folder->isValid() ? m_folder->path() : QString();
}

std::optional<QUrl> ArtworkFiles::store(const QByteArray &bytes, const QByteArray &contentKey,
                                        const QString &fileName)
{
    const QString top = folder();
    if (top.isEmpty()) {
        qCWarning(log) << "cannot make a folder for dragged covers in" << m_parentFolder;
        return std::nullopt;
    }
    // Songs of different albums may have the same name: a folder for each content.
    const QByteArray digest =
        QCryptographicHash::hash(contentKey, QCryptographicHash::Sha1).toHex().first(12);
    const QString ownFolder = top + u'/' + QString::fromLatin1(digest);
    const QString path = ownFolder + u'/' + fileName;
    if (QFile::exists(path))
        return QUrl::fromLocalFile(path);
    QSaveFile file(path);
    if (!QDir().mkpath(ownFolder) || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() ||
        !file.commit()) {
        qCWarning(log) << "cannot write a cover for dragging to" << path << file.errorString();
        return std::nullopt;
    }
    return QUrl::fromLocalFile(path);
}

} // namespace trackwise
