// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/SongTags.h"

namespace trackwise {

/// Everything that a dialect can say.
[[nodiscard]] inline SongTags everyTag()
{
    using namespace Qt::StringLiterals;
    return {
        .title = u"Tïtle ✓ 夜"_s,
        .artists = {u"First"_s, u"Second"_s},
        .albumTitle = u"Album"_s,
        .albumArtist = u"Album Artist"_s,
        .composer = u"Composer"_s,
        .genres = {u"Jazz"_s, u"Rock"_s},
        .grouping = u"Grouping"_s,
        .comments = u"Comment"_s,
        .lyrics = u"First line\nSecond line"_s,
        .titleSort = u"Title sort"_s,
        .artistSort = u"Artist sort"_s,
        .albumSort = u"Album sort"_s,
        .albumArtistSort = u"Album artist sort"_s,
        .releaseDate = PartialDate::fromText(u"2021-03-05"_s),
        .ratingPercent = 70,
        .playCount = 7,
        .beatsPerMinute = 128,
        .trackNumber = 3,
        .trackCount = 12,
        .discNumber = 1,
        .discCount = 2,
        .isCompilation = true,
        .advisory = Advisory::Explicit,
        .catalogID = u"1440857781"_s,
        .recordingMBID = u"11111111-2222-4333-8444-555555555555"_s,
    };
}

} // namespace trackwise
