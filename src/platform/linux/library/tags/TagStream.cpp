// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/TagStream.h"

#include <algorithm>
#include <cstring>

namespace trackwise {

namespace {

constexpr qint64 mebibyte = qint64{1024} * 1024;

} // namespace

/// A parser has no reason to see a file more than a few times over, or more than the largest tags of it.
TagStream::TagStream(MusicFile &file)
    : m_file(file)
    , m_budget(std::min(mebibyte + 4 * std::min(file.size(), 16 * mebibyte), 64 * mebibyte))
{}

void TagStream::cut(qint64 begin, qint64 end, QByteArray head)
{
    m_cutBegin = begin;
    m_cutEnd = end;
    m_head = std::move(head);
}

TagLib::ByteVector TagStream::readBlock(unsigned long length)
{
    const auto available = std::max<qint64>(0, this->length() - m_position);
    const auto count =
        std::min({static_cast<qint64>(std::min<unsigned long>(length, INT32_MAX)), available, m_budget});
    if (count <= 0)
        return {};
    m_budget -= count;

    TagLib::ByteVector block;
    const auto beforeCut =
        m_cutBegin == m_cutEnd ? count : std::clamp<qint64>(m_cutBegin - m_position, 0, count);
    if (beforeCut == count && count <= MusicFile::windowSize && m_position >= m_head.size()) {
        const auto bytes = m_file.view(m_position, count);
        block = TagLib::ByteVector(reinterpret_cast<const char *>(bytes.data()),
                                   static_cast<unsigned>(bytes.size()));
    } else {
        block.resize(static_cast<unsigned>(count));
        copyUncut(m_position, block.data(), beforeCut);
        copyUncut(m_position + beforeCut + (m_cutEnd - m_cutBegin), block.data() + beforeCut,
                  count - beforeCut);
        if (const auto headBytes = std::min<qint64>(count, m_head.size() - m_position); headBytes > 0)
            std::memcpy(block.data(), m_head.constData() + m_position, static_cast<size_t>(headBytes));
    }
    m_position += block.size();
    return block;
}

void TagStream::copyUncut(qint64 offset, char *to, qint64 length)
{
    if (length <= 0)
        return;
    if (length <= MusicFile::windowSize) {
        const auto bytes = m_file.view(offset, length);
        std::memcpy(to, bytes.data(), bytes.size());
    } else {
        m_file.read(offset, to, length);
    }
}

void TagStream::seek(long offset, Position from)
{
    const auto base = from == Beginning ? 0 : from == Current ? m_position : length();
    m_position = std::clamp<qint64>(base + offset, 0, length());
}

} // namespace trackwise
