// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/MusicLayout.h"

#include "platform/linux/library/tags/ContainerLayouts.h"

namespace trackwise {

Result<MusicLayout> musicLayout(MusicFile &file)
{
    const auto start = file.view(0, 16);
    if (stands(start, 0, "fLaC"))
        return flacLayout(file, 0, file.size());
    return Failure{FailureKind::Unsupported, QStringLiteral("not an audio file")};
}

} // namespace trackwise
