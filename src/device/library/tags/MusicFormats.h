// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicLayout.h"

#include <QByteArrayView>

#include <array>
#include <span>
#include <string_view>

namespace trackwise {

/// A format that can be read. The list of them is the only one: folders are walked by its suffixes, files
/// told by its signatures, and README and desktop file say what it says.
struct MusicFormat
{
    struct Mark
    {
        std::size_t at = 0;
        std::string_view bytes;
    };
    using Layout = Result<MusicLayout> (*)(MusicFile &file, qint64 begin, qint64 end);

    std::string_view name;
    std::string_view suffixes;          ///< lower case, separated by blanks
    std::string_view mimeTypes;         ///< of sound, by the shared MIME database; separated by blanks
    std::array<Mark, 2> signature = {}; ///< both of them stand in a file; empty: told by its frames
    Layout layout = nullptr;
};

[[nodiscard]] std::span<const MusicFormat> musicFormats();

/// Whether a file with this name is taken for music. Letter case does not matter.
[[nodiscard]] bool hasMusicSuffix(QByteArrayView name);

} // namespace trackwise
