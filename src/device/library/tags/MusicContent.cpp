// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/MusicContent.h"

#include "device/library/tags/AvContent.h"
#include "device/library/tags/ContainerContents.h"
#include "device/library/tags/Dialects.h"
#include "device/library/tags/Id3Frames.h"
#include "device/library/tags/Lyrics.h"
#include "device/library/tags/Mp4Boxes.h"
#include "device/library/tags/TagStream.h"
#include "device/library/tags/TagText.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/asffile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/tbytevectorstream.h>
#include <taglib/trueaudiofile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>

#include <array>
#include <optional>
#include <string_view>

namespace trackwise {

namespace {

double secondsOf(const TagLib::AudioProperties *properties)
{
    return properties ? properties->lengthInMilliseconds() / 1000.0 : 0;
}

TagLib::ID3v2::FrameFactory *frames()
{
    return TagLib::ID3v2::FrameFactory::instance();
}

/// A parser has no tag where it has given up on the file, whatever it said of tags before.
template <typename Tag>
void take(MusicContent &content, TagFields (*fieldsOf)(const Tag &), const Tag *tag)
{
    if (!tag)
        return;
    if constexpr (requires { bestPicture(*tag); })
        content.takeFrom(fieldsOf(*tag), bestPicture(*tag));
    else
        content.takeFrom(fieldsOf(*tag));
}

/// What the parser leaves out: numbers of another width than it expects.
void addMp4Numbers(TagFields &fields, MusicFile &file)
{
    struct Number
    {
        std::string_view box;
        Field field;
    };
    static constexpr std::array numbers = {
        Number{"cnID", Field::CatalogID},
        Number{"rate", Field::RatingPercent},
    };
    std::optional<Mp4Box> list;
    for (const auto &number : numbers) {
        if (fields.has(number.field))
            continue;
        if (!list)
            list = mp4BoxAlong(file, {"moov", "udta", "meta", "ilst"});
        const auto value = list ? mp4Number(file, *list, number.box) : std::nullopt;
        if (value)
            fields.add(number.field, QString::number(*value));
    }
}

MusicContent mp4Content(TagStream &stream, MusicFile &source)
{
    TagLib::MP4::File file(&stream);
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (file.hasMP4Tag())
        take(content, mp4Fields, file.tag());
    addMp4Numbers(content.fields, source);
    return content;
}

/// Programs write the texts of RIFF INFO in UTF-8 or in the local encoding, and do not say which.
class InfoTexts final : public TagLib::RIFF::Info::StringHandler
{
public:
    TagLib::String parse(const TagLib::ByteVector &data) const override
    {
        return stringOf(decodedText({data.data(), static_cast<qsizetype>(data.size())}));
    }
};

MusicContent wavContent(TagStream &stream)
{
    static const InfoTexts texts;
    static const bool isSet = (TagLib::RIFF::Info::Tag::setStringHandler(&texts), true);
    Q_UNUSED(isSet)
    TagLib::RIFF::WAV::File file(&stream);
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (file.hasInfoTag())
        take(content, riffInfoFields, file.InfoTag());
    return content;
}

MusicContent asfContent(TagStream &stream)
{
    TagLib::ASF::File file(&stream);
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (file.tag())
        take(content, asfFields, file.tag());
    return content;
}

/// A file of which TagLib knows no more than the tags around it.
class TaggedFile final : public TagLib::File
{
public:
    explicit TaggedFile(TagLib::IOStream &stream)
        : TagLib::File(&stream)
    {}

    TagLib::Tag *tag() const override { return nullptr; }
    TagLib::AudioProperties *audioProperties() const override { return nullptr; }
    bool save() override { return false; }
};

MusicContent id3Content(MusicFile &file, qint64 at)
{
    const auto frames = id3Frames(file, at, file.size());
    TagLib::ByteVectorStream stream(frames.tag);
    TaggedFile tagged(stream);
    const TagLib::ID3v2::Tag tag(&tagged, 0);
    return {id3v2Fields(tag), frames.picture};
}

void takeId3(MusicContent &content, MusicFile &file, const std::vector<qint64> &tags)
{
    for (const auto at : tags) {
        const auto found = id3Content(file, at);
        content.takeFrom(found.fields, found.picture);
    }
}

/// In formats that ID3 was made for, or that keep one in a chunk, it is the first to be asked.
bool isId3First(Container container)
{
    switch (container) {
    case Container::Mpeg:
    case Container::Adts:
    case Container::Latm:
    case Container::Ac3:
    case Container::Wav:
    case Container::Rf64:
    case Container::Wave64:
    case Container::Aiff:
    case Container::TrueAudio:
    case Container::Dsf:
    case Container::Dsdiff:
        return true;
    default:
        return false;
    }
}

template <typename File>
double secondsIn(TagStream &stream)
{
    const File file(&stream);
    return secondsOf(file.audioProperties());
}

/// What the file says beside the tags that can stand in, or around, any format.
MusicContent ownContent(MusicFile &file, TagStream &stream, const MusicLayout &layout)
{
    switch (layout.container) {
    case Container::Mpeg:
        return {.durationSeconds = secondsOf(TagLib::MPEG::File(&stream, frames()).audioProperties())};
    case Container::TrueAudio:
        return {.durationSeconds = secondsIn<TagLib::TrueAudio::File>(stream)};
    case Container::Aiff:
        return {.durationSeconds = secondsIn<TagLib::RIFF::AIFF::File>(stream)};
    case Container::MonkeysAudio:
        return {.durationSeconds = secondsIn<TagLib::APE::File>(stream)};
    case Container::WavPack:
        return {.durationSeconds = secondsIn<TagLib::WavPack::File>(stream)};
    case Container::Musepack:
        return {.durationSeconds = secondsIn<TagLib::MPC::File>(stream)};
    case Container::Flac:
        return flacContent(file, layout.outer.soundBegin, layout.outer.soundEnd);
    case Container::OggVorbis:
    case Container::OggOpus:
    case Container::OggSpeex:
    case Container::OggFlac:
        return oggContent(file, layout);
    case Container::Mp4:
        return mp4Content(stream, file);
    case Container::Wav:
        return wavContent(stream);
    case Container::Asf:
        return asfContent(stream);
    case Container::Adts:
    case Container::Latm:
    case Container::Ac3:
    case Container::Rf64:
    case Container::Wave64:
    case Container::Caf:
    case Container::Dsf:
    case Container::Dsdiff:
    case Container::Matroska:
        return {.durationSeconds = layout.soundSeconds};
    }
    return {};
}

/// By the order of trust: the tags that the format was made with, then the others.
MusicContent parsedContent(MusicFile &file, const MusicLayout &layout)
{
    const auto &outer = layout.outer;
    auto chunkNames = layout.id3Chunks;
    for (auto &at : chunkNames)
        at -= 8; // before the size
    TagStream inner(file, outer.soundBegin, outer.soundEnd, std::move(chunkNames));
    auto content = ownContent(file, inner, layout);

    TagStream whole(file, 0, file.size());
    TaggedFile tagged(whole);
    auto id3 = layout.id3Chunks;
    id3.insert(id3.end(), outer.id3.begin(), outer.id3.end());
    if (isId3First(layout.container)) {
        MusicContent first{.durationSeconds = content.durationSeconds};
        takeId3(first, file, id3);
        first.takeFrom(content.fields, content.picture);
        content = std::move(first);
    }
    if (outer.apeFooter) {
        const TagLib::APE::Tag tag(&tagged, *outer.apeFooter);
        take(content, apeFields, &tag);
    }
    if (!isId3First(layout.container))
        takeId3(content, file, id3);
    if (outer.id3v1) {
        const TagLib::ID3v1::Tag tag(&tagged, *outer.id3v1);
        take(content, id3v1Fields, &tag);
    }
    return content;
}

} // namespace

MusicContent musicContent(MusicFile &file, const MusicLayout &layout)
{
    auto content = parsedContent(file, layout);
    if (content.durationSeconds <= 0) {
        const auto found = avContent(file, layout.container);
        content.durationSeconds = found.durationSeconds;
        content.takeFrom(found.fields, found.picture);
    }
    return content;
}

} // namespace trackwise
