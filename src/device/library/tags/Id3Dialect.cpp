// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/Id3Frames.h"
#include "device/library/tags/TagText.h"

#include <taglib/commentsframe.h>
#include <taglib/id3v1genres.h>
#include <taglib/popularimeterframe.h>
#include <taglib/synchronizedlyricsframe.h>
#include <taglib/textidentificationframe.h>
#include <taglib/uniquefileidentifierframe.h>
#include <taglib/unknownframe.h>
#include <taglib/unsynchronizedlyricsframe.h>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {

using namespace TagLib;

constexpr int freeFormRank = 10; ///< a TXXX frame counts only where the field's own frame is missing

/// What "17" and the like stand for; empty when it is no such code.
QString codedGenre(const QString &code)
{
    if (code == u"RX")
        return QStringLiteral("Remix");
    if (code == u"CR")
        return QStringLiteral("Cover");
    bool isNumber = false;
    const auto number = code.toInt(&isNumber);
    return isNumber ? textOf(ID3v1::genre(number)) : QString();
}

/// Codes in brackets, then what refines them: "(4)Eurodisco", "(51)(39)". A text that itself begins with a
/// bracket has two (ID3v2.3, section 4.2.1). Later tags have the codes without brackets.
void addGenres(TagFields &fields, QString text)
{
    for (;;) {
        const auto end = text.indexOf(u')');
        const auto code = text.startsWith(u'(') && end > 0 ? text.mid(1, end - 1) : QString();
        const auto genre = codedGenre(code);
        if (genre.isEmpty() && code != u"255") // which stands for none
            break;
        fields.add(Field::Genre, genre);
        text = text.mid(end + 1);
    }
    if (text.startsWith(u"(("))
        text.remove(0, 1);
    const auto genre = codedGenre(text);
    fields.add(Field::Genre, genre.isEmpty() ? text : genre);
}

/// Stars to percent. Players store 1, 64, 128, 196 and 255 for whole stars and 13, 54, 118, 186 and 242 for
/// half ones, others in between; some count linearly, 51 a star.
int popularimeterPercent(const ID3v2::PopularimeterFrame &frame)
{
    const int value = frame.rating();
    switch (value) {
    case 13:
        return 10;
    case 54:
        return 30;
    case 118:
        return 50;
    case 186:
        return 70;
    case 242:
        return 90;
    default:
        break;
    }
    if (value % 51 == 0 && frame.email() != "Windows Media Player 9 Series")
        return value / 51 * 20;
    return value < 32 ? 20 : value < 96 ? 40 : value < 160 ? 60 : value < 224 ? 80 : 100;
}

/// Lower ranks win; among those of equal rank the highest rating must come first.
int popularimeterRank(const ID3v2::PopularimeterFrame &frame)
{
    const auto email = frame.email();
    if (email == "Windows Media Player 9 Series")
        return 0;
    return email == "MusicBee" ? 1 : 2 + 255 - frame.rating();
}

void addText(TagFields &fields, std::string_view id, const StringList &values)
{
    const auto found = id3FrameName(id);
    if (!found)
        return;
    for (const auto &value : values) {
        const auto text = textOf(value);
        if (found->field == Field::Genre)
            addGenres(fields, text);
        else
            fields.add(*found, text);
    }
}

void addFreeForm(TagFields &fields, const ID3v2::UserTextIdentificationFrame &frame)
{
    const auto meaning = freeFormName(keyOf(frame.description()));
    if (!meaning)
        return;
    const auto values = frame.fieldList();
    for (auto value = std::next(values.begin()); value != values.end(); ++value)
        fields.add(meaning->field, textOf(*value), meaning->rank + freeFormRank);
}

/// A comment with a description counts where there is none without, unless it is a note of a program to
/// itself.
void addComment(TagFields &fields, const ID3v2::CommentsFrame &frame)
{
    static constexpr std::array programs = {"ITUN", "MUSICMATCH_", "SONGS-DB_", "ID3V1 COMMENT"};
    const auto description = keyOf(frame.description());
    if (std::ranges::none_of(programs, [&](const char *program) { return description.starts_with(program); }))
        fields.add(Field::Comments, textOf(frame.text()),
                   description.empty()        ? 0
                   : description == "COMMENT" ? 1
                                              : 2);
}

void addSynchronizedLyrics(TagFields &fields, const ID3v2::SynchronizedLyricsFrame &frame)
{
    if (frame.timestampFormat() == ID3v2::SynchronizedLyricsFrame::AbsoluteMpegFrames)
        return;
    QString lyrics;
    for (const auto &line : frame.synchedText()) {
        const auto text = textOf(line.text);
        if (!lyrics.isEmpty() && !text.startsWith(u'\n') && !lyrics.endsWith(u'\n'))
            lyrics += u'\n';
        lyrics += text;
    }
    fields.add(Field::SyncedLyrics, lyrics.trimmed());
}

void addPopularimeter(TagFields &fields, const ID3v2::PopularimeterFrame &frame)
{
    if (frame.rating() > 0)
        fields.add(Field::RatingPercent, QString::number(popularimeterPercent(frame)),
                   popularimeterRank(frame));
    if (frame.counter() > 0)
        fields.add(Field::PlayCount, QString::number(frame.counter()), freeFormRank + 2);
}

void addCounter(TagFields &fields, const ID3v2::UnknownFrame &frame)
{
    std::uint64_t count = 0;
    for (const auto byte : frame.data())
        count = count << 8 | static_cast<std::uint8_t>(byte);
    fields.add(Field::PlayCount, QString::number(count), freeFormRank + 1);
}

void addIdentifier(TagFields &fields, const ID3v2::UniqueFileIdentifierFrame &frame)
{
    if (frame.owner() == "http://musicbrainz.org")
        fields.add(Field::RecordingMBID, textOf(String(frame.identifier())));
}

void addFrame(TagFields &fields, const ID3v2::Frame &frame)
{
    const auto idBytes = frame.frameID();
    const std::string_view id(idBytes.data(), idBytes.size());
    if (id == "TXXX") {
        if (const auto *text = dynamic_cast<const ID3v2::UserTextIdentificationFrame *>(&frame))
            addFreeForm(fields, *text);
    } else if (id.starts_with('T') || id == "GRP1") {
        if (const auto *text = dynamic_cast<const ID3v2::TextIdentificationFrame *>(&frame))
            addText(fields, id, text->fieldList());
    } else if (const auto *comment = dynamic_cast<const ID3v2::CommentsFrame *>(&frame)) {
        addComment(fields, *comment);
    } else if (const auto *lyrics = dynamic_cast<const ID3v2::UnsynchronizedLyricsFrame *>(&frame)) {
        fields.add(Field::Lyrics, textOf(lyrics->text()));
    } else if (const auto *synced = dynamic_cast<const ID3v2::SynchronizedLyricsFrame *>(&frame)) {
        addSynchronizedLyrics(fields, *synced);
    } else if (const auto *popularimeter = dynamic_cast<const ID3v2::PopularimeterFrame *>(&frame)) {
        addPopularimeter(fields, *popularimeter);
    } else if (const auto *identifier = dynamic_cast<const ID3v2::UniqueFileIdentifierFrame *>(&frame)) {
        addIdentifier(fields, *identifier);
    } else if (id == "PCNT") {
        if (const auto *counter = dynamic_cast<const ID3v2::UnknownFrame *>(&frame))
            addCounter(fields, *counter);
    }
}

} // namespace

TagFields id3v2Fields(const ID3v2::Tag &tag)
{
    TagFields fields;
    for (const auto *frame : tag.frameList())
        addFrame(fields, *frame);
    return fields;
}

TagFields id3v1Fields(const ID3v1::Tag &tag)
{
    TagFields fields;
    fields.add(Field::Title, textOf(tag.title()));
    fields.add(Field::Artist, textOf(tag.artist()));
    fields.add(Field::Album, textOf(tag.album()));
    fields.add(Field::Comments, textOf(tag.comment()));
    fields.add(Field::Genre, textOf(tag.genre()));
    if (tag.year() > 0)
        fields.add(Field::ReleaseDate, QString::number(tag.year()));
    if (tag.track() > 0)
        fields.add(Field::Track, QString::number(tag.track()));
    return fields;
}

} // namespace trackwise
