// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/MusicContent.h"

#include "platform/linux/library/tags/AvContent.h"
#include "platform/linux/library/tags/ContainerContents.h"
#include "platform/linux/library/tags/Dialects.h"
#include "platform/linux/library/tags/Lyrics.h"
#include "platform/linux/library/tags/Mp4Boxes.h"
#include "platform/linux/library/tags/TagStream.h"
#include "platform/linux/library/tags/TagText.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/asffile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/trueaudiofile.h>
#include <taglib/vorbisfile.h>
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

MusicContent mpegContent(TagStream &stream)
{
    TagLib::MPEG::File file(&stream, frames());
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (file.hasID3v2Tag())
        take(content, id3v2Fields, file.ID3v2Tag());
    if (file.hasAPETag())
        take(content, apeFields, file.APETag());
    if (file.hasID3v1Tag())
        take(content, id3v1Fields, file.ID3v1Tag());
    return content;
}

template <typename File>
MusicContent oggContent(TagStream &stream)
{
    File file(&stream);
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (auto *comment = file.tag())
        content.takeFrom(xiphFields(*comment), bestPicture(comment->pictureList()));
    return content;
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
        Number{"plID", Field::AlbumCatalogID},
        Number{"atID", Field::ArtistCatalogID},
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
    if (file.hasID3v2Tag())
        take(content, id3v2Fields, file.ID3v2Tag());
    if (file.hasInfoTag())
        take(content, riffInfoFields, file.InfoTag());
    return content;
}

MusicContent aiffContent(TagStream &stream)
{
    TagLib::RIFF::AIFF::File file(&stream);
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (file.hasID3v2Tag())
        take(content, id3v2Fields, file.tag());
    return content;
}

template <typename File>
MusicContent apeTaggedContent(File &file)
{
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (file.hasAPETag())
        take(content, apeFields, file.APETag());
    if (file.hasID3v1Tag())
        take(content, id3v1Fields, file.ID3v1Tag());
    return content;
}

MusicContent trueAudioContent(TagStream &stream)
{
    TagLib::TrueAudio::File file(&stream, frames());
    MusicContent content{.durationSeconds = secondsOf(file.audioProperties())};
    if (file.hasID3v2Tag())
        take(content, id3v2Fields, file.ID3v2Tag());
    if (file.hasID3v1Tag())
        take(content, id3v1Fields, file.ID3v1Tag());
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
    explicit TaggedFile(TagStream &stream)
        : TagLib::File(&stream)
    {}

    TagLib::Tag *tag() const override { return nullptr; }
    TagLib::AudioProperties *audioProperties() const override { return nullptr; }
    bool save() override { return false; }
};

void takeOuterTags(MusicContent &content, TagStream &stream, const MusicLayout &layout)
{
    TaggedFile file(stream);
    const auto cut = layout.outer.id3CutEnd - layout.outer.id3CutBegin;
    if (layout.id3Offset > 0 || layout.outer.soundBegin > 0) {
        const TagLib::ID3v2::Tag tag(&file, layout.id3Offset);
        take(content, id3v2Fields, &tag);
    }
    if (layout.outer.apeFooter) {
        const TagLib::APE::Tag tag(&file, *layout.outer.apeFooter - cut);
        take(content, apeFields, &tag);
    }
    if (layout.outer.id3v1) {
        const TagLib::ID3v1::Tag tag(&file, *layout.outer.id3v1 - cut);
        take(content, id3v1Fields, &tag);
    }
}

MusicContent parsedContent(MusicFile &file, TagStream &stream, const MusicLayout &layout)
{
    switch (layout.container) {
    case Container::Mpeg:
        return mpegContent(stream);
    case Container::Flac: {
        auto content = flacContent(file, layout.outer.soundBegin, layout.outer.soundEnd);
        takeOuterTags(content, stream, layout);
        return content;
    }
    case Container::OggVorbis:
        return oggContent<TagLib::Ogg::Vorbis::File>(stream);
    case Container::OggOpus:
        return oggContent<TagLib::Ogg::Opus::File>(stream);
    case Container::OggSpeex:
        return oggContent<TagLib::Ogg::Speex::File>(stream);
    case Container::OggFlac:
        return oggContent<TagLib::Ogg::FLAC::File>(stream);
    case Container::Mp4:
        return mp4Content(stream, file);
    case Container::Wav:
        return wavContent(stream);
    case Container::Aiff:
        return aiffContent(stream);
    case Container::MonkeysAudio: {
        TagLib::APE::File parsed(&stream);
        return apeTaggedContent(parsed);
    }
    case Container::WavPack: {
        TagLib::WavPack::File parsed(&stream);
        return apeTaggedContent(parsed);
    }
    case Container::Musepack: {
        TagLib::MPC::File parsed(&stream);
        return apeTaggedContent(parsed);
    }
    case Container::TrueAudio:
        return trueAudioContent(stream);
    case Container::Asf:
        return asfContent(stream);
    case Container::Adts:
    case Container::Ac3:
    case Container::Dsf:
    case Container::Dsdiff:
    case Container::Matroska: {
        MusicContent content{.durationSeconds = layout.soundSeconds};
        takeOuterTags(content, stream, layout);
        return content;
    }
    }
    return {};
}

} // namespace

MusicContent musicContent(MusicFile &file, const MusicLayout &layout)
{
    TagStream stream(file);
    if (layout.outer.id3CutEnd > layout.outer.id3CutBegin)
        stream.cut(layout.outer.id3CutBegin, layout.outer.id3CutEnd, layout.outer.id3Head);
    auto content = parsedContent(file, stream, layout);
    if (content.durationSeconds <= 0) {
        const auto found = avContent(file, layout.container);
        content.durationSeconds = found.durationSeconds;
        content.fields.fillGapsFrom(found.fields);
        if (content.picture.isEmpty())
            content.picture = found.picture;
    }
    return content;
}

} // namespace trackwise
