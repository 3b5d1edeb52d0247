// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/TagStream.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr qint64 mebibyte = qint64{1024} * 1024;

} // namespace

/// A parser has no reason to see a file more than a few times over, or more than the largest tags of it.
TagStream::TagStream(MusicFile &file, qint64 begin, qint64 end, std::vector<qint64> passedOver)
    : m_file(file)
    , m_begin(begin)
    , m_end(end)
    , m_passedOver(std::move(passedOver))
    , m_budget(std::min(mebibyte + 4 * std::min(file.size(), 16 * mebibyte), 64 * mebibyte))
{}

TagLib::ByteVector TagStream::readBlock(unsigned long length)
{
    const auto available = std::max<qint64>(0, this->length() - m_position);
    const auto count =
        std::min({static_cast<qint64>(std::min<unsigned long>(length, INT32_MAX)), available, m_budget});
    if (count <= 0)
        return {};
    m_budget -= count;

    TagLib::ByteVector block;
    const auto from = m_begin + m_position;
    if (count <= MusicFile::windowSize) {
        const auto bytes = m_file.view(from, count);
        block = TagLib::ByteVector(reinterpret_cast<const char *>(bytes.data()),
                                   static_cast<unsigned>(bytes.size()));
    } else {
        block.resize(static_cast<unsigned>(count));
        m_file.read(from, block.data(), count);
    }
    for (const auto name : m_passedOver) {
        for (auto at = std::max(name, from); at < std::min(name + 4, from + qint64{block.size()}); ++at)
            block[static_cast<int>(at - from)] = 'x';
    }
    m_position += block.size();
    return block;
}

void TagStream::seek(long offset, Position from)
{
    const auto base = from == Beginning ? 0 : from == Current ? m_position : length();
    m_position = std::clamp<qint64>(base + offset, 0, length());
}

} // namespace trackwise
