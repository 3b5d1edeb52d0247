// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/SongTags.h"

#include <algorithm>

namespace trackwise {

namespace {

std::optional<QString> joined(const QStringList &values)
{
    if (values.isEmpty())
        return std::nullopt;
    return values.join(QStringLiteral(", "));
}

} // namespace

std::optional<QString> SongTags::displayArtist() const
{
    return joined(artists);
}

std::optional<QString> SongTags::displayGenre() const
{
    return joined(genres);
}

unsigned SongTags::stars() const
{
    const auto percent = std::clamp(ratingPercent.value_or(0), 0, 100);
    if (percent == 0)
        return 0;
    return static_cast<unsigned>(std::max(1, (percent + 10) / 20));
}

} // namespace trackwise
