// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/FileDescriptor.h"
#include "fingerprint/SegmentWriter.h"

namespace trackwise::fingerprint {

class MemoryOutput : public SegmentOutput
{
public:
    void append(std::span<const std::uint8_t> bytes) override;
    void putFirst(std::span<const std::uint8_t> bytes) override;
    [[nodiscard]] std::vector<std::uint8_t> take() { return std::move(m_bytes); }

private:
    std::vector<std::uint8_t> m_bytes;
};

/// A file that has its name when it is whole, and on the disk.
class FileOutput : public SegmentOutput
{
public:
    enum class Readers { Owner, All };
    /// What has that name is replaced in the end. @p readers: who may read it, as far as the system's mask
    /// lets them.
    explicit FileOutput(std::filesystem::path path, Readers readers = Readers::Owner);
    ~FileOutput() override;

    void append(std::span<const std::uint8_t> bytes) override;
    void putFirst(std::span<const std::uint8_t> bytes) override;
    /// Without this nothing stays of the file.
    std::optional<CatalogFailure> finish();

private:
    void flush();
    void remember(bool worked);

    std::filesystem::path m_path;
    std::filesystem::path m_beside;
    FileDescriptor m_file;
    std::vector<std::uint8_t> m_waiting;
    int m_error = 0;
    bool m_isFinished = false;
};

} // namespace trackwise::fingerprint
