// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Call.h"
#include "device/recognizer/ClipRecognition.h"

#include <QJsonObject>

namespace trackwise::cli {

/// What is told of a sound that was looked up.
struct NamedClip
{
    ClipAnswer answer;
    QByteArray path; ///< of the song's file; empty: it is not in the library
    PersistentID song;
    QString title;
    QString artist;
    double milliseconds = 0; ///< that it took
};

/// With the names that the song has in @p library, or else in the added catalog.
[[nodiscard]] NamedClip named(const LibraryQuestions &library, const ClipAnswer &answer);

/// What was found, in words.
[[nodiscard]] QString textOf(const NamedClip &clip);
/// @p file: what was looked up; null where it is no file.
[[nodiscard]] QJsonObject toJson(const QByteArray &file, const Result<NamedClip> &clip);

/// Complains of what the catalog does not know of the library yet.
void warnOfSongsLeft(const LibraryQuestions &library, const fingerprint::Catalog &catalog);

} // namespace trackwise::cli
