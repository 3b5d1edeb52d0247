// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Catalog.h"
#include "fingerprint/Peak.h"

#include <functional>
#include <stop_token>
#include <unordered_map>

namespace trackwise::fingerprint {

class StoreState;

/// A catalog that was made elsewhere.
struct AddedCatalog
{
    std::string name; ///< of the file that it was added from, without its ending
    SongNumber songCount = 0;
    std::uint64_t byteCount = 0;
};

/// Puts what a song is called today into a CatalogSong.
using SongNaming = std::function<void(CatalogSong &)>;

/// The catalog of a library in a folder of its own, and catalogs that were made elsewhere. What was added or
/// removed is on the disk when the call returns, whatever happens to the program or the system then. All of
/// it may be called from any thread, and waits for no merging.
class CatalogStore
{
public:
    /// Whether one who finds a store in use leaves a note for the one who has it.
    enum class Note { None, Left };
    /// Opens @p folder to write, and makes it where there is none. InUse where another process writes there.
    /// What is damaged is left out (its songs are not known then, and can be added again); see damages().
    /// @p density: of songs that are added from now on.
    static CatalogResult<std::unique_ptr<CatalogStore>> open(const std::filesystem::path &folder,
                                                             PairDensity density = PairDensity::Full,
                                                             Note note = Note::None);
    /// Whether somebody has left a note since it was opened: a file in the folder.
    [[nodiscard]] bool isWanted() const;
    /// What @p folder holds now, for those who only ask; another process may write there meanwhile.
    static CatalogResult<std::shared_ptr<const Catalog>> read(const std::filesystem::path &folder);

    ~CatalogStore();
    CatalogStore(const CatalogStore &) = delete;
    CatalogStore &operator=(const CatalogStore &) = delete;

    /// Adds a song by its @p peaks in songDensity, in the place of the one that has its persistent ID.
    std::optional<CatalogFailure> add(const CatalogSong &song, std::span<const Peak> peaks);
    /// Unknown ones are passed over.
    std::optional<CatalogFailure> remove(std::span<const std::uint64_t> persistentIDs);
    /// Forgets all songs of the own library, to begin anew.
    std::optional<CatalogFailure> removeAll();

    /// What there is now. It goes on to be valid while songs come and go.
    [[nodiscard]] std::shared_ptr<const Catalog> catalog() const;
    /// The songs of the own library: the stamps, by persistent IDs.
    [[nodiscard]] std::unordered_map<std::uint64_t, std::uint64_t> songs() const;

    /// One step of tidying up, which may take many seconds and is for a thread in the background: songs that
    /// were added one by one become a segment, segments a larger one. False: there is nothing to do, or @p
    /// stop ended it before anything was changed.
    CatalogResult<bool> mergeSome(const std::stop_token &stop = {});

    /// Writes the songs of the own library into one file that others can add, as @p naming names them.
    std::optional<CatalogFailure> exportTo(const std::filesystem::path &path, const SongNaming &naming) const;
    /// Copies a catalog that was made elsewhere, when all of it is whole; in the place of one of its name.
    CatalogResult<AddedCatalog> addCatalog(const std::filesystem::path &path);
    /// Unknown where there is none of that name.
    std::optional<CatalogFailure> removeCatalog(const std::string &name);
    [[nodiscard]] std::vector<AddedCatalog> addedCatalogs() const;

    /// What all of it takes on the disk.
    [[nodiscard]] std::uint64_t byteCount() const;
    /// What was left out when the folder was opened.
    [[nodiscard]] std::vector<CatalogFailure> damages() const;

private:
    explicit CatalogStore(std::unique_ptr<StoreState> state);
    std::unique_ptr<StoreState> m_state;
};

} // namespace trackwise::fingerprint
