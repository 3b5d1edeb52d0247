// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicLayout.h"

#include <optional>

namespace trackwise {

// One function a container format. Each is given the stretch of the file between the tags that may stand
// around any format (ID3v2 before; ID3v1 and APEv2 behind).

[[nodiscard]] Result<MusicLayout> flacLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> oggLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> mp4Layout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> wavLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> rf64Layout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> wave64Layout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> cafLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> aiffLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> dsfLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> dsdiffLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> asfLayout(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] Result<MusicLayout> matroskaLayout(MusicFile &file, qint64 begin, qint64 end);

/// A stream of bare frames (MPEG audio, ADTS, LATM, AC-3, E-AC-3), found by several of them in a row.
[[nodiscard]] std::optional<MusicLayout> frameLayout(MusicFile &file, qint64 begin, qint64 end);

} // namespace trackwise
