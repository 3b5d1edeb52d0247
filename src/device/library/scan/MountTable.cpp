// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/MountTable.h"

#include <QList>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace trackwise {

namespace {
/// Blanks, and what else would be taken for the end of a field, are written as "\040".
QByteArray unescaped(const QByteArray &field)
{
    constexpr qsizetype digits = 3;
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool isOctal = false;
        const int code = field[i] == '\\' ? field.mid(i + 1, digits).toInt(&isOctal, 8) : 0;
        text += isOctal ? static_cast<char>(code) : field[i];
        i += isOctal ? digits : 0;
    }
    return text;
}

QByteArray placeIn(const QByteArray &line)
{
    constexpr qsizetype placeField = 4;
    const QList<QByteArray> fields = line.split(' ');
    return fields.size() > placeField ? unescaped(fields[placeField]) : QByteArray();
}
} // namespace

MountTable::MountTable()
    : m_descriptor(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC))
    , m_known(lines())
{}

MountTable::~MountTable()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

std::set<QByteArray> MountTable::lines() const
{
    constexpr std::size_t page = 4096;
    std::array<char, page> part{};
    QByteArray table;
    if (lseek(m_descriptor, 0, SEEK_SET) == 0) {
        for (ssize_t size = 0; (size = read(m_descriptor, part.data(), part.size())) > 0;)
            table.append(part.data(), size);
    }
    const QList<QByteArray> all = table.split('\n');
    return {all.begin(), all.end()};
}

std::set<QByteArray> MountTable::takeChangedPlaces()
{
    std::set<QByteArray> now = lines();
    std::vector<QByteArray> different;
    std::ranges::set_symmetric_difference(now, m_known, std::back_inserter(different));
    m_known = std::move(now);
    std::set<QByteArray> places;
    for (const QByteArray &line : different)
        places.insert(placeIn(line));
    return places;
}

} // namespace trackwise
