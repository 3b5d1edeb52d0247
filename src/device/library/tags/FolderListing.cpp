// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/FolderListing.h"

#include "device/library/tags/AudioHash.h"
#include "device/library/tags/TagReader.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include <dirent.h>

namespace trackwise {

namespace {

constexpr std::array<std::string_view, 5> imageStems = {"cover", "folder", "front", "album", "albumart"};
constexpr std::array<std::string_view, 4> imageEndings = {"jpg", "jpeg", "png", "webp"};

struct CloseFolder
{
    void operator()(DIR *folder) const { closedir(folder); }
};

/// A name without its ending, and the ending in lower case without the dot.
std::pair<QByteArrayView, QByteArray> splitName(QByteArrayView name)
{
    const auto dot = name.lastIndexOf('.');
    if (dot < 0)
        return {name, {}};
    return {name.first(dot), name.sliced(dot + 1).toByteArray().toLower()};
}

/// Place in the order of preference; nothing when the name is not that of a cover.
std::optional<std::size_t> imageRank(QByteArrayView name)
{
    const auto [stem, ending] = splitName(name);
    if (ending.isEmpty() || stem.size() > 8)
        return std::nullopt;
    const auto lowerStem = stem.toByteArray().toLower();
    const auto stemPlace = std::ranges::find(imageStems, std::string_view(lowerStem)) - imageStems.begin();
    const auto endingPlace = std::ranges::find(imageEndings, std::string_view(ending)) - imageEndings.begin();
    if (stemPlace == std::ssize(imageStems) || endingPlace == std::ssize(imageEndings))
        return std::nullopt;
    return static_cast<std::size_t>(stemPlace) * imageEndings.size() + static_cast<std::size_t>(endingPlace);
}

bool mayBeLyrics(QByteArrayView name)
{
    if (name.size() < 5 || name[name.size() - 4] != '.')
        return false;
    const auto ending = name.last(3).toByteArray().toLower();
    return ending == "lrc" || ending == "txt";
}

} // namespace

FolderListing::FolderListing(QByteArray folder, const std::vector<QByteArray> &fileNames)
    : m_folder(std::move(folder))
{
    if (!m_folder.endsWith('/'))
        m_folder += '/';
    auto bestRank = imageStems.size() * imageEndings.size();
    for (const auto &name : fileNames) {
        if (mayBeLyrics(name)) {
            m_lyricsFiles.insert(name);
        } else if (const auto rank = imageRank(name);
                   rank && (*rank < bestRank || (*rank == bestRank && name < *m_image))) {
            bestRank = *rank;
            m_image = name;
        }
    }
}

FolderListing FolderListing::ofFolder(const QByteArray &folder)
{
    const std::unique_ptr<DIR, CloseFolder> stream(opendir(folder.constData()));
    std::vector<QByteArray> names;
    while (const auto *entry = stream ? readdir(stream.get()) : nullptr)
        names.emplace_back(entry->d_name);
    return FolderListing(folder, names);
}

std::optional<QByteArray> FolderListing::lyricsFile(QByteArrayView songPath) const
{
    if (m_lyricsFiles.empty())
        return std::nullopt;
    const auto stem = splitName(songPath.sliced(songPath.lastIndexOf('/') + 1)).first;
    for (const auto *ending : {".lrc", ".LRC", ".Lrc", ".txt", ".TXT", ".Txt"}) {
        if (const auto found = m_lyricsFiles.find(stem.toByteArray() + ending); found != m_lyricsFiles.end())
            return m_folder + *found;
    }
    return std::nullopt;
}

std::optional<QByteArray> FolderListing::imageFile() const
{
    return m_image ? std::optional(m_folder + *m_image) : std::nullopt;
}

std::optional<ArtworkSummary> FolderListing::artwork() const
{
    const auto path = imageFile();
    const auto image = path ? readImageFile(*path) : std::nullopt;
    if (!image)
        return std::nullopt;
    return ArtworkSummary{ArtworkSummary::Place::FolderImage, *path, pictureKey(image->bytes)};
}

} // namespace trackwise
