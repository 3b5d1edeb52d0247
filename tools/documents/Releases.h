// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

/// What the metainfo tells of one release.
struct Release
{
    QString version;
    QDate date;
    QStringList notes; ///< paragraphs and list items, in the original language
};

/// All releases of a metainfo file, newest first. Empty where it cannot be read, or where a version or a date
/// is missing.
[[nodiscard]] std::vector<Release> releasesIn(const QByteArray &metainfo);

/// The same as a changelog of a Debian package, see deb-changelog(5). @p maintainer is "Name <address>".
[[nodiscard]] QByteArray debianChangelog(const std::vector<Release> &releases, const QString &maintainer);
