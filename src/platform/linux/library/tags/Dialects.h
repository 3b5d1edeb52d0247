// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/library/tags/TagFields.h"

#include <taglib/flacpicture.h>
#include <taglib/xiphcomment.h>

namespace trackwise {

// One function a tag dialect: what its frames, atoms and keys mean.

[[nodiscard]] TagFields xiphFields(const TagLib::Ogg::XiphComment &comment);

/// The front cover, else the first picture; empty when there is none.
[[nodiscard]] TagLib::ByteVector bestPicture(const TagLib::List<TagLib::FLAC::Picture *> &pictures);

} // namespace trackwise
