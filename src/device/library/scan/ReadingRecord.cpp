// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/ReadingRecord.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>

namespace trackwise {

namespace {
// A slot: the length of the path in this machine's byte order, then the path. Zero: the slot is free.
using Length = std::uint32_t;
constexpr std::size_t slotSize = std::size_t{2} * PATH_MAX;

off_t placeOf(std::size_t slot)
{
    return static_cast<off_t>(slot * slotSize);
}

bool writeWhole(int descriptor, const QByteArray &bytes, off_t place)
{
    return pwrite(descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()), place) ==
           bytes.size();
}

std::vector<FileName> filesIn(int descriptor)
{
    std::vector<FileName> files;
    std::array<char, slotSize> bytes{};
    for (std::size_t slot = 0;; ++slot) {
        const ssize_t count = pread(descriptor, bytes.data(), bytes.size(), placeOf(slot));
        Length length = 0;
        if (count < static_cast<ssize_t>(sizeof(length)))
            return files;
        std::copy_n(bytes.data(), sizeof(length), reinterpret_cast<char *>(&length));
        if (length > 0 && length <= static_cast<std::size_t>(count) - sizeof(length))
            files.push_back(
                FileName::ofPath(QByteArray(bytes.data() + sizeof(length), static_cast<qsizetype>(length))));
    }
}
} // namespace

ReadingRecord::ReadingRecord(const QByteArray &path)
    : m_path(path)
    , m_descriptor(open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600))
{
    if (m_descriptor < 0)
        return;
    if (flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        close(std::exchange(m_descriptor, -1));
        return;
    }
    m_leftBehind = filesIn(m_descriptor);
}

ReadingRecord::~ReadingRecord()
{
    if (m_descriptor < 0)
        return;
    unlink(m_path.constData());
    close(m_descriptor);
}

void ReadingRecord::startAnew()
{
    if (m_descriptor >= 0 && ftruncate(m_descriptor, 0) != 0)
        close(std::exchange(m_descriptor, -1));
}

std::size_t ReadingRecord::takeSlot()
{
    const std::scoped_lock lock(m_mutex);
    const auto free = std::find(m_isTaken.begin(), m_isTaken.end(), false);
    const auto slot = static_cast<std::size_t>(free - m_isTaken.begin());
    if (free == m_isTaken.end())
        m_isTaken.push_back(true);
    else
        *free = true;
    return slot;
}

void ReadingRecord::write(std::size_t slot, const QByteArray &path) const
{
    if (m_descriptor < 0 || path.size() > static_cast<qsizetype>(slotSize - sizeof(Length)))
        return;
    const auto length = static_cast<Length>(path.size());
    const QByteArray head(reinterpret_cast<const char *>(&length), sizeof(length));
    // In one piece: a process that dies leaves the whole of it or nothing. A disk without room leaves
    // nothing.
    (void)writeWhole(m_descriptor, head + path, placeOf(slot));
}

ReadingRecord::Reading::Reading(ReadingRecord &record, const QByteArray &path)
    : m_record(record)
    , m_slot(record.takeSlot())
{
    m_record.write(m_slot, path);
}

ReadingRecord::Reading::~Reading()
{
    m_record.write(m_slot, {});
    const std::scoped_lock lock(m_record.m_mutex);
    m_record.m_isTaken[m_slot] = false;
}

} // namespace trackwise
