// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/BatchWriter.h"

#include <algorithm>

namespace trackwise {

namespace {
using namespace std::chrono_literals;

constexpr std::size_t batchSize = 500;
constexpr auto longestWait = 1s; ///< until songs that have been read are seen
constexpr int indexStep = 4000;  ///< songs; about a tenth of a second of writing
constexpr int renewStep = 1000;  ///< songs whose words are both taken out and put in
constexpr qsizetype songsBetweenIndexing = 20'000;

Instant now()
{
    return std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

/// @p step: whether more is waiting behind it.
template <typename Step>
Result<Done> repeated(Step step, const std::stop_token &stop)
{
    for (;;) {
        const Result<bool> isMoreWaiting = step();
        if (!isMoreWaiting)
            return isMoreWaiting.failure();
        if (!*isMoreWaiting || stop.stop_requested())
            return Done{};
    }
}
} // namespace

void BatchWriter::gather(Outcome outcome)
{
    if (auto *song = std::get_if<ScannedSong>(&outcome))
        m_songs.push_back(std::move(*song));
    else if (auto *problem = std::get_if<ScanProblem>(&outcome))
        m_problems.push_back(std::move(*problem));
    else if (auto *image = std::get_if<FolderImage>(&outcome))
        m_images.push_back(std::move(*image));
    else
        m_monitor.noteHandled(1);
}

Result<Done> BatchWriter::writeIfDue()
{
    const bool isFull = m_songs.size() + m_problems.size() >= batchSize;
    return isFull || std::chrono::steady_clock::now() - m_lastWrite > longestWait ? write() : Done{};
}

Result<Done> BatchWriter::write()
{
    m_lastWrite = std::chrono::steady_clock::now();
    if (m_songs.empty() && m_problems.empty())
        return Done{};
    // The readers finish out of order; the library's order is that of the names.
    std::ranges::sort(m_songs, {},
                      [](const ScannedSong &song) { return std::tie(song.file.folder, song.file.name); });
    HeardSounds heard;
    for (std::span<const ScannedSong> rest = m_songs;;) {
        const Result<SongStore::Written> written = m_store.write(rest, m_problems, now(), heard);
        if (!written)
            return written.failure();
        rest = rest.subspan(written->songs);
        if (rest.empty())
            break;
        for (const QByteArray &path : written->unheard)
            heard.emplace(path, m_listen(path));
    }
    m_summary.songsRead += std::ssize(m_songs);
    m_summary.filesFailed += std::ssize(m_problems);
    m_sinceIndexing += std::ssize(m_songs);
    m_monitor.noteHandled(std::ssize(m_songs) + std::ssize(m_problems));
    m_monitor.noteLibraryChange();
    m_songs.clear();
    m_problems.clear();
    return m_sinceIndexing >= songsBetweenIndexing ? index({}) : Done{};
}

Result<Done> BatchWriter::writeImages()
{
    return m_images.empty() ? Done{} : m_store.writeFolderImages(m_images);
}

Result<Done> BatchWriter::index(const std::stop_token &stop)
{
    m_sinceIndexing = 0;
    return repeated([this] { return m_store.indexNext(indexStep); }, stop);
}

Result<Done> BatchWriter::finishIndex(const std::stop_token &stop)
{
    const Result<Done> indexed = index(stop);
    return indexed ? repeated([this] { return m_store.renewNext(renewStep); }, stop) : indexed;
}

} // namespace trackwise
