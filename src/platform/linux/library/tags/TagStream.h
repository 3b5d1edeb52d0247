// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/library/tags/MusicFile.h"

#include <taglib/tiostream.h>

namespace trackwise {

/// What TagLib reads a file through: read-only, from the file's windows (its own stream makes a system call
/// for each few bytes), and bounded: it hands out a limited amount, so that no file keeps it searching.
/// A stretch of the file can be left out, as if it had been cut away.
class TagStream final : public TagLib::IOStream
{
public:
    explicit TagStream(MusicFile &file);

    /// Leaves out [@p begin, @p end) and shows @p head in place of the file's first bytes.
    void cut(qint64 begin, qint64 end, QByteArray head);

    TagLib::FileName name() const override { return ""; }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void seek(long offset, Position from) override;
    long tell() const override { return m_position; }
    long length() override { return m_file.size() - (m_cutEnd - m_cutBegin); }
    bool readOnly() const override { return true; }
    bool isOpen() const override { return true; }

    void writeBlock(const TagLib::ByteVector &) override {}
    void insert(const TagLib::ByteVector &, unsigned long, unsigned long) override {}
    void removeBlock(unsigned long, unsigned long) override {}
    void truncate(long) override {}

private:
    void copyUncut(qint64 offset, char *to, qint64 length);

    MusicFile &m_file;
    qint64 m_position = 0;
    qint64 m_cutBegin = 0;
    qint64 m_cutEnd = 0;
    QByteArray m_head;
    qint64 m_budget; ///< bytes still handed out
};

} // namespace trackwise
