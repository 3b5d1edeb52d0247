// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicFile.h"

#include <taglib/tiostream.h>

#include <vector>

namespace trackwise {

/// What TagLib reads a file through: read-only, from the file's windows (its own stream makes a system call
/// for each few bytes), and bounded: it hands out a limited amount, so that no file keeps it searching.
/// What stands around the music is left out, as if it had been cut away.
class TagStream final : public TagLib::IOStream
{
public:
    /// Shows what lies from @p begin to @p end as if it was the whole file. The chunks whose names begin at
    /// @p passedOver show another name, so that nobody looks into them.
    TagStream(MusicFile &file, qint64 begin, qint64 end, std::vector<qint64> passedOver = {});

    TagLib::FileName name() const override { return ""; }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void seek(long offset, Position from) override;
    long tell() const override { return m_position; }
    long length() override { return m_end - m_begin; }
    bool readOnly() const override { return true; }
    bool isOpen() const override { return true; }

    void writeBlock(const TagLib::ByteVector &) override {}
    void insert(const TagLib::ByteVector &, unsigned long, unsigned long) override {}
    void removeBlock(unsigned long, unsigned long) override {}
    void truncate(long) override {}

private:
    MusicFile &m_file;
    qint64 m_position = 0;
    qint64 m_begin;
    qint64 m_end;
    std::vector<qint64> m_passedOver;
    qint64 m_budget; ///< bytes still handed out
};

} // namespace trackwise
