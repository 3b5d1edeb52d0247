// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"

#include <QByteArray>

#include <mutex>
#include <vector>

namespace trackwise {

/// Which files are being read at this moment, kept in a small file beside the database, so that it is known
/// when one of them has ended the program. The system holds what is written there however the process dies;
/// nothing waits for the disk, since a machine that loses power was not brought down by a song.
///
/// One process at a time keeps a record; a second one that scans meanwhile goes without. Any thread.
class ReadingRecord
{
public:
    /// Takes the record at @p path over, or makes it.
    explicit ReadingRecord(const QByteArray &path);
    ReadingRecord(const ReadingRecord &) = delete;
    ReadingRecord &operator=(const ReadingRecord &) = delete;
    /// Deletes the record: the process lives.
    ~ReadingRecord();

    /// What was being read when the process died that kept the record before.
    [[nodiscard]] const std::vector<FileName> &leftBehind() const { return m_leftBehind; }
    /// To be called when that has been noted elsewhere: the record is used for new files from then on.
    void startAnew();

    /// Stands for one file being read.
    class Reading
    {
    public:
        Reading(ReadingRecord &record, const QByteArray &path);
        Reading(const Reading &) = delete;
        Reading &operator=(const Reading &) = delete;
        ~Reading();

    private:
        ReadingRecord &m_record;
        std::size_t m_slot;
    };

private:
    [[nodiscard]] std::size_t takeSlot();
    void write(std::size_t slot, const QByteArray &path) const;

    QByteArray m_path;
    int m_descriptor = -1; ///< -1: no record is kept
    std::vector<FileName> m_leftBehind;
    std::mutex m_mutex;
    std::vector<bool> m_isTaken; ///< of each slot
};

} // namespace trackwise
