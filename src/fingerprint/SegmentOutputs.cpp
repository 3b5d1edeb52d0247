// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SegmentOutputs.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trackwise::fingerprint {

namespace {

constexpr std::size_t bytesAtOnce = std::size_t(1) << 18;

} // namespace

void MemoryOutput::append(std::span<const std::uint8_t> bytes)
{
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

void MemoryOutput::putFirst(std::span<const std::uint8_t> bytes)
{
    std::copy(bytes.begin(), bytes.end(), m_bytes.begin());
}

FileOutput::FileOutput(std::filesystem::path path, Readers readers)
    : m_path(std::move(path))
    , m_beside(m_path)
{
    m_beside += ".new";
    const mode_t others = readers == Readers::All ? S_IRGRP | S_IROTH : 0;
    m_file = FileDescriptor(
        ::open(m_beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR | others));
    remember(bool(m_file));
}

FileOutput::~FileOutput()
{
    if (!m_isFinished && m_file)
        ::unlink(m_beside.c_str());
}

void FileOutput::append(std::span<const std::uint8_t> bytes)
{
    m_waiting.insert(m_waiting.end(), bytes.begin(), bytes.end());
    if (m_waiting.size() >= bytesAtOnce)
        flush();
}

void FileOutput::putFirst(std::span<const std::uint8_t> bytes)
{
    flush();
    if (m_error == 0)
        remember(writeAllAt(m_file.get(), bytes, 0));
}

std::optional<CatalogFailure> FileOutput::finish()
{
    flush();
    if (m_error == 0)
        remember(::fsync(m_file.get()) == 0);
    if (m_error == 0)
        remember(::rename(m_beside.c_str(), m_path.c_str()) == 0);
    m_isFinished = m_error == 0;
    if (m_isFinished) {
        syncFolder(m_path.parent_path());
        return std::nullopt;
    }
    return systemFailure(m_error, CatalogFailure::Kind::CannotWrite, "writing", m_path);
}

void FileOutput::flush()
{
    if (m_error == 0)
        remember(writeAll(m_file.get(), m_waiting));
    m_waiting.clear();
}

void FileOutput::remember(bool worked)
{
    if (!worked && m_error == 0)
        m_error = errno;
}

} // namespace trackwise::fingerprint
