// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/TagFields.h"

#include <taglib/apetag.h>
#include <taglib/asftag.h>
#include <taglib/flacpicture.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mp4tag.h>
#include <taglib/xiphcomment.h>

namespace trackwise {

// For each tag dialect: what its frames, atoms and keys mean, and which of its pictures is the cover (the
// front cover, else the first picture; empty when there is none).

[[nodiscard]] TagFields id3v2Fields(const TagLib::ID3v2::Tag &tag);

[[nodiscard]] TagFields id3v1Fields(const TagLib::ID3v1::Tag &tag);

[[nodiscard]] TagFields xiphFields(const TagLib::Ogg::XiphComment &comment);
[[nodiscard]] TagLib::ByteVector bestPicture(const TagLib::List<TagLib::FLAC::Picture *> &pictures);

[[nodiscard]] TagFields apeFields(const TagLib::APE::Tag &tag);
[[nodiscard]] TagLib::ByteVector bestPicture(const TagLib::APE::Tag &tag);

[[nodiscard]] TagFields mp4Fields(const TagLib::MP4::Tag &tag);
[[nodiscard]] TagLib::ByteVector bestPicture(const TagLib::MP4::Tag &tag);

[[nodiscard]] TagFields riffInfoFields(const TagLib::RIFF::Info::Tag &tag);

[[nodiscard]] TagFields asfFields(const TagLib::ASF::Tag &tag);
[[nodiscard]] TagLib::ByteVector bestPicture(const TagLib::ASF::Tag &tag);

} // namespace trackwise
