// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/StoreFolder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace trackwise::fingerprint {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 3> prefixes{"segment-", "journal-", "added-"};
constexpr std::string_view unfinished = ".new";

std::string_view prefixOf(StoreFolder::Kind kind)
{
    return prefixes[std::size_t(kind)];
}

std::optional<std::uint32_t> numberIn(const std::string &name, std::string_view prefix)
{
    std::uint32_t number = 0;
    if (!name.starts_with(prefix))
        return std::nullopt;
    const char *const end = name.data() + name.size();
    const auto [last, error] = std::from_chars(name.data() + prefix.size(), end, number);
    return error == std::errc() && last == end ? std::optional(number) : std::nullopt;
}

/// Calls @p take with each file; what cannot be read is passed over.
template <typename Take>
void forEachFile(const fs::path &folder, Take &&take)
{
    std::error_code error;
    for (fs::directory_iterator file(folder, error); !error && file != fs::directory_iterator();
         file.increment(error))
        take(file->path());
}

} // namespace

fs::path StoreFolder::file(Kind kind, std::uint32_t number) const
{
    return m_path / (std::string(prefixOf(kind)) + std::to_string(number));
}

std::vector<std::uint32_t> StoreFolder::numbers(Kind kind) const
{
    std::vector<std::uint32_t> found;
    forEachFile(m_path, [&](const fs::path &path) {
        if (const auto number = numberIn(path.filename().string(), prefixOf(kind)))
            found.push_back(*number);
    });
    std::sort(found.begin(), found.end());
    return found;
}

void StoreFolder::removeAllBut(const std::vector<fs::path> &kept) const
{
    std::vector<fs::path> superfluous;
    forEachFile(m_path, [&](const fs::path &path) {
        const std::string name = path.filename().string();
        const bool isOurs = name.ends_with(unfinished) ||
                            std::any_of(prefixes.begin(), prefixes.end(),
                                        [&](std::string_view prefix) { return numberIn(name, prefix); });
        if (isOurs && std::find(kept.begin(), kept.end(), path) == kept.end())
            superfluous.push_back(path);
    });
    for (const fs::path &path : superfluous) {
        std::error_code ignored; // it is tried again at the next start
        fs::remove(path, ignored);
    }
}

std::uint64_t StoreFolder::byteCount() const
{
    std::uint64_t sum = 0;
    forEachFile(m_path, [&](const fs::path &path) {
        std::error_code error;
        const auto size = fs::file_size(path, error);
        sum += error ? 0 : size;
    });
    return sum;
}

} // namespace trackwise::fingerprint
