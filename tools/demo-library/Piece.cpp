// SPDX-License-Identifier: GPL-3.0-or-later
#include "Piece.h"

#include <QRegularExpression>

#include <array>
#include <stdexcept>

namespace trackwise::demo {

namespace {

constexpr double sixteenth = 0.25;
constexpr double loudBeat = 1.0;
constexpr double softBeat = 0.65;

[[noreturn]] void fail(const QString &line)
{
    throw std::runtime_error(QStringLiteral("cannot read: %1").arg(line).toStdString());
}

// What an instrument plays once, before it is repeated to fill its section.
struct Figure
{
    std::vector<Note> notes;
    double length = 0;
};

struct Line
{
    QString instrument;
    double gain = 1;
    double pan = 0;
    Figure figure;
};

struct Section
{
    double length = 0;
    std::vector<Line> lines;
};

double pitchOf(const QString &name)
{
    static const QRegularExpression form(QStringLiteral("^([a-g])([#b~]?)(\\d)$"));
    const QRegularExpressionMatch match = form.match(name);
    if (!match.hasMatch())
        fail(name);
    constexpr std::array semitones{9, 11, 0, 2, 4, 5, 7}; // from a to g, above c
    const auto letter = static_cast<size_t>(match.captured(1).at(0).unicode() - u'a');
    const QString accidental = match.captured(2);
    const double shift = accidental == u'#' ? 1 : accidental == u'b' ? -1 : accidental == u'~' ? -0.5 : 0;
    return 12 * (match.captured(3).toInt() + 1) + semitones.at(letter) + shift;
}

Figure beatsOf(const QString &text)
{
    Figure figure;
    for (const QChar step : text) {
        if (step.isSpace() || step == u'|')
            continue;
        if (step != u'.')
            figure.notes.push_back({figure.length, sixteenth, 0, step == u'X' ? loudBeat : softBeat});
        figure.length += sixteenth;
    }
    return figure;
}

Figure tonesOf(const QString &text)
{
    Figure figure;
    double length = 1;
    for (const QString &token : text.split(u' ', Qt::SkipEmptyParts)) {
        if (token == u'|')
            continue;
        const QStringList halves = token.split(u':');
        if (halves.size() == 2)
            length = halves.at(1).toDouble();
        if (length <= 0)
            fail(token);
        if (halves.at(0) != u'-') {
            for (const QString &name : halves.at(0).split(u'+'))
                figure.notes.push_back({figure.length, length, pitchOf(name), 1});
        }
        figure.length += length;
    }
    return figure;
}

Line lineOf(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([\\w-]+) +([\\d.]+) +(-?[\\d.]+) *: *(.+)$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        fail(text);
    const QString notes = match.captured(4);
    const bool isRhythm = QRegularExpression(QStringLiteral("^[xX.| ]+$")).match(notes).hasMatch();
    Line line{match.captured(1), match.captured(2).toDouble(), match.captured(3).toDouble(),
              isRhythm ? beatsOf(notes) : tonesOf(notes)};
    if (line.figure.length <= 0)
        fail(text);
    return line;
}

Part &partOf(Piece &piece, const Line &line)
{
    for (Part &part : piece.parts)
        if (part.instrument == line.instrument && part.gain == line.gain && part.pan == line.pan)
            return part;
    return piece.parts.emplace_back(Part{line.instrument, line.gain, line.pan, {}});
}

void append(Piece &piece, const Section &section)
{
    for (const Line &line : section.lines) {
        Part &part = partOf(piece, line);
        double round = 0;
        while (round < section.length) {
            for (Note note : line.figure.notes) {
                if (round + note.start >= section.length)
                    continue;
                note.start += piece.beats + round;
                part.notes.push_back(note);
            }
            round += line.figure.length;
        }
    }
    piece.beats += section.length;
}

void setHeader(Piece &piece, const QString &key, const QString &value)
{
    if (key == u"file")
        piece.file = value;
    else if (key == u"cover")
        piece.cover = value;
    else if (key == u"folder-cover") {
        piece.cover = value;
        piece.coverInFolder = true;
    } else if (key == u"tempo")
        piece.beatsPerMinute = value.toDouble();
    else if (key == u"swing")
        piece.swing = value.toDouble();
    else if (key == u"reverb")
        piece.reverb = value.toDouble();
    else if (key == key.toUpper())
        piece.tags.insert(key, value);
    else
        fail(key);
}

} // namespace

Piece parsePiece(const QString &text)
{
    static const QRegularExpression header(QStringLiteral("^([A-Za-z_-]+): *(.*)$"));
    static const QRegularExpression opening(QStringLiteral("^\\[(\\w+) +([\\d.]+)\\]$"));
    Piece piece;
    QStringList form;
    QMap<QString, Section> sections;
    Section *current = nullptr;
    for (const QString &line : text.split(u'\n')) {
        if (const auto begun = opening.match(line); begun.hasMatch()) {
            current = &sections[begun.captured(1)];
            current->length = begun.captured(2).toDouble();
        } else if (line.startsWith(u'|')) {
            piece.lyrics += line.mid(2) + u'\n';
        } else if (line.startsWith(u'>')) {
            piece.sidecarLyrics += line.mid(2) + u'\n';
        } else if (line.isEmpty() || line.startsWith(u'#')) {
            continue;
        } else if (current) {
            current->lines.push_back(lineOf(line));
        } else if (const auto entry = header.match(line); entry.captured(1) == u"form") {
            form = entry.captured(2).split(u' ', Qt::SkipEmptyParts);
        } else if (entry.hasMatch()) {
            setHeader(piece, entry.captured(1), entry.captured(2));
        } else {
            fail(line);
        }
    }
    for (const QString &name : form) {
        if (!sections.contains(name))
            fail(name);
        append(piece, sections.value(name));
    }
    if (piece.file.isEmpty() || piece.beats <= 0)
        fail(piece.file);
    piece.lyrics.chop(piece.lyrics.endsWith(u'\n') ? 1 : 0);
    return piece;
}

} // namespace trackwise::demo
