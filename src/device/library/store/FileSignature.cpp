// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/FileSignature.h"

#include <sys/stat.h>

#include <array>

#include <xxhash.h>

namespace trackwise {

namespace {
std::int64_t nanoseconds(const timespec &time)
{
    constexpr std::int64_t inSecond = 1'000'000'000;
    return time.tv_sec * inSecond + time.tv_nsec;
}
} // namespace

StatSignature signatureOf(const struct stat &status)
{
    return {{status.st_dev, status.st_ino},
            status.st_size,
            nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

std::optional<StatSignature> signatureAt(const QByteArray &path)
{
    struct stat status = {};
    return stat(path.constData(), &status) == 0 ? std::optional(signatureOf(status)) : std::nullopt;
}

std::int64_t sidecarSignature(QByteArrayView name, const StatSignature &file)
{
    // Not the inode: some disks make them up anew each time.
    const std::array values{file.size, file.modified, file.changed};
    const XXH64_hash_t ofName = XXH3_64bits(name.data(), static_cast<std::size_t>(name.size()));
    const XXH64_hash_t hash = XXH3_64bits_withSeed(values.data(), sizeof(values), ofName);
    return hash == 0 ? 1 : static_cast<std::int64_t>(hash);
}

} // namespace trackwise
