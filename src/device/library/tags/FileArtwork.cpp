// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/FileArtwork.h"

#include "device/library/tags/TagReader.h"

#include <utility>

namespace trackwise {

FileArtwork::FileArtwork(ArtworkSummary summary)
    : m_summary(std::move(summary))
{}

ArtworkPtr FileArtwork::fromSummary(const ArtworkSummary &summary)
{
    if (summary.place == ArtworkSummary::Place::None)
        return nullptr;
    return std::make_shared<FileArtwork>(summary);
}

std::optional<EncodedImage> FileArtwork::read() const
{
    switch (m_summary.place) {
    case ArtworkSummary::Place::Embedded:
        return readEmbeddedArtwork(m_summary.path);
    case ArtworkSummary::Place::FolderImage:
        return readImageFile(m_summary.path);
    case ArtworkSummary::Place::None:
        break;
    }
    return std::nullopt;
}

} // namespace trackwise
