// SPDX-License-Identifier: GPL-3.0-or-later
#include "Tags.h"

#include <QFile>

#include <attachedpictureframe.h>
#include <fileref.h>
#include <flacfile.h>
#include <flacpicture.h>
#include <id3v2tag.h>
#include <mp4coverart.h>
#include <mp4file.h>
#include <mp4tag.h>
#include <mpegfile.h>
#include <popularimeterframe.h>
#include <textidentificationframe.h>
#include <tpropertymap.h>
#include <xiphcomment.h>

#include <cmath>
#include <memory>
#include <stdexcept>

namespace trackwise::demo {

namespace {

TagLib::String text(const QString &value)
{
    return {value.toUtf8().constData(), TagLib::String::UTF8};
}

TagLib::ByteVector bytes(const QByteArray &value)
{
    return {value.constData(), static_cast<unsigned>(value.size())};
}

TagLib::PropertyMap propertiesOf(const Piece &piece)
{
    TagLib::PropertyMap properties;
    for (auto tag = piece.tags.begin(); tag != piece.tags.end(); ++tag)
        properties.insert(text(tag.key()), TagLib::StringList(text(tag.value())));
    if (!piece.lyrics.isEmpty())
        properties.insert("LYRICS", TagLib::StringList(text(piece.lyrics)));
    return properties;
}

void writeRating(TagLib::ID3v2::Tag &tag, const QString &fraction)
{
    if (fraction.isEmpty())
        return;
    // Five stars are 255 of the frame's one byte; players write them in steps of about 64.
    auto frame = std::make_unique<TagLib::ID3v2::PopularimeterFrame>();
    frame->setEmail("Windows Media Player 9 Series");
    frame->setRating(std::min(255, static_cast<int>(std::lround(fraction.toDouble() * 256))));
    tag.addFrame(frame.release());
}

void writeID3v2(TagLib::MPEG::File &file, const Piece &piece, const QByteArray &cover)
{
    TagLib::ID3v2::Tag &tag = *file.ID3v2Tag(true);
    if (!cover.isEmpty()) {
        auto frame = std::make_unique<TagLib::ID3v2::AttachedPictureFrame>();
        frame->setMimeType("image/jpeg");
        frame->setType(TagLib::ID3v2::AttachedPictureFrame::FrontCover);
        frame->setPicture(bytes(cover));
        tag.addFrame(frame.release());
    }
    writeRating(tag, piece.tags.value(QStringLiteral("FMPS_RATING")));
}

// What the format keeps in atoms of its own, and TagLib's property names do not reach.
void writeAtoms(TagLib::MP4::Tag &tag, const Piece &piece, const QByteArray &cover)
{
    if (!cover.isEmpty()) {
        TagLib::MP4::CoverArtList covers;
        covers.append(TagLib::MP4::CoverArt(TagLib::MP4::CoverArt::JPEG, bytes(cover)));
        tag.setItem("covr", covers);
    }
    const QString catalogID = piece.tags.value(QStringLiteral("ITUNESCATALOGID"));
    if (!catalogID.isEmpty())
        tag.setItem("cnID", TagLib::MP4::Item(catalogID.toInt()));
    const QString rating = piece.tags.value(QStringLiteral("FMPS_RATING"));
    if (!rating.isEmpty())
        tag.setItem("----:com.apple.iTunes:FMPS_Rating", TagLib::MP4::Item(TagLib::StringList(text(rating))));
}

std::unique_ptr<TagLib::FLAC::Picture> pictureOf(const QByteArray &cover)
{
    auto picture = std::make_unique<TagLib::FLAC::Picture>();
    picture->setType(TagLib::FLAC::Picture::FrontCover);
    picture->setMimeType("image/jpeg");
    picture->setData(bytes(cover));
    return picture;
}

} // namespace

void writeTags(const QString &path, const Piece &piece, const QByteArray &cover)
{
    if (piece.tags.isEmpty() && cover.isEmpty())
        return;
    const TagLib::FileRef opened(QFile::encodeName(path).constData());
    TagLib::File *file = opened.file();
    if (opened.isNull() || !file->isValid())
        throw std::runtime_error("cannot tag " + path.toStdString());

    file->setProperties(propertiesOf(piece));
    if (auto *mpeg = dynamic_cast<TagLib::MPEG::File *>(file))
        writeID3v2(*mpeg, piece, cover);
    else if (auto *mp4 = dynamic_cast<TagLib::MP4::File *>(file))
        writeAtoms(*mp4->tag(), piece, cover);
    else if (auto *flac = dynamic_cast<TagLib::FLAC::File *>(file); flac && !cover.isEmpty())
        flac->addPicture(pictureOf(cover).release());
    else if (auto *comment = dynamic_cast<TagLib::Ogg::XiphComment *>(file->tag());
             comment && !cover.isEmpty())
        comment->addPicture(pictureOf(cover).release());
    if (!file->save())
        throw std::runtime_error("cannot save " + path.toStdString());
}

} // namespace trackwise::demo
