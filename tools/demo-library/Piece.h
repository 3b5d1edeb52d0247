// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

namespace trackwise::demo {

/// One tone or beat of an instrument.
struct Note
{
    double start = 0;  ///< beats from the start of the piece
    double length = 0; ///< beats
    double pitch = 0;  ///< MIDI note number, 69 = 440 Hz; fractions are cents. Drums have none.
    double velocity = 1;
};

/// What one instrument plays, and where it stands.
struct Part
{
    QString instrument;
    double gain = 1;
    double pan = 0; ///< -1 left to 1 right
    std::vector<Note> notes;
};

/// One piece of the demo library: its music, and what its tags say.
struct Piece
{
    QString file;  ///< where it goes, relative to the library
    QString cover; ///< which drawing; empty: none
    bool coverInFolder = false;
    double beatsPerMinute = 120;
    double swing = 0;  ///< how much later every second half beat comes, in beats
    double reverb = 0; ///< 0 dry to 1
    double beats = 0;  ///< length
    std::vector<Part> parts;
    QMap<QString, QString> tags; ///< by TagLib's property name, and a few of our own; see Tags.cpp
    QString lyrics;
    QString sidecarLyrics; ///< contents of a .lrc file beside the song
};

/// Reads the notation that README.md of this folder describes. Throws std::runtime_error with the line that
/// is wrong: the pieces are part of the program.
[[nodiscard]] Piece parsePiece(const QString &text);

} // namespace trackwise::demo
