// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/CatalogManifest.h"

#include "fingerprint/Bits.h"
#include "fingerprint/SegmentFormat.h"

#include <algorithm>
#include <array>

namespace trackwise::fingerprint {

namespace {

constexpr std::array<std::uint8_t, 8> magic{0x93, 'T', 'W', 'M', '\r', '\n', 0x1a, '\n'};
constexpr std::uint32_t version = 1;
constexpr std::size_t checksumBytes = sizeof(std::uint64_t);

/// Takes what the writing put; nothing behind the end.
class Fields
{
public:
    explicit Fields(std::span<const std::uint8_t> bytes)
        : m_rest(bytes)
    {}
    std::uint32_t number()
    {
        const auto bytes = take(sizeof(std::uint32_t));
        return bytes.empty() ? 0 : loadLittle<std::uint32_t>(bytes.data());
    }
    /// A count of things of @p size bytes at least; 0 where there cannot be as many.
    std::uint32_t count(std::size_t size)
    {
        const std::uint32_t value = number();
        return value <= m_rest.size() / size ? value : 0;
    }
    std::string text()
    {
        const auto bytes = take(count(1));
        return {bytes.begin(), bytes.end()};
    }

private:
    std::span<const std::uint8_t> take(std::size_t size)
    {
        if (size > m_rest.size())
            return m_rest = {};
        const auto bytes = m_rest.first(size);
        m_rest = m_rest.subspan(size);
        return bytes;
    }
    std::span<const std::uint8_t> m_rest;
};

} // namespace

std::vector<std::uint8_t> CatalogManifest::bytes() const
{
    std::vector<std::uint8_t> result(magic.begin(), magic.end());
    appendLittle(result, version);
    appendLittle(result, nextNumber);
    appendLittle(result, journal);
    appendLittle(result, std::uint32_t(own.size()));
    for (const auto &[number, removed] : own) {
        appendLittle(result, number);
        appendLittle(result, std::uint32_t(removed.size()));
        for (const SongNumber song : removed)
            appendLittle(result, song);
    }
    appendLittle(result, std::uint32_t(added.size()));
    for (const auto &[number, name] : added) {
        appendLittle(result, number);
        appendLittle(result, std::uint32_t(name.size()));
        result.insert(result.end(), name.begin(), name.end());
    }
    appendLittle(result, checksumOf(result));
    return result;
}

CatalogResult<CatalogManifest> CatalogManifest::of(std::span<const std::uint8_t> bytes)
{
    using Kind = CatalogFailure::Kind;
    if (bytes.size() < magic.size() + sizeof(version) + checksumBytes ||
        !std::equal(magic.begin(), magic.end(), bytes.begin()))
        return CatalogFailure{Kind::Damaged, "the manifest has another beginning"};
    Fields fields(bytes.subspan(magic.size(), bytes.size() - magic.size() - checksumBytes));
    if (fields.number() > version)
        return CatalogFailure{Kind::NewerVersion, "the manifest is of a later version"};
    const std::uint8_t *const checksum = bytes.data() + bytes.size() - checksumBytes;
    if (loadLittle<std::uint64_t>(checksum) != checksumOf(bytes.first(bytes.size() - checksumBytes)))
        return CatalogFailure{Kind::Damaged, "the manifest does not have its checksum"};
    CatalogManifest manifest;
    manifest.nextNumber = fields.number();
    manifest.journal = fields.number();
    manifest.own.resize(fields.count(8));
    for (auto &[number, removed] : manifest.own) {
        number = fields.number();
        removed.resize(fields.count(4));
        for (SongNumber &song : removed)
            song = fields.number();
    }
    manifest.added.resize(fields.count(8));
    for (auto &[number, name] : manifest.added) {
        number = fields.number();
        name = fields.text();
    }
    return manifest;
}

} // namespace trackwise::fingerprint
