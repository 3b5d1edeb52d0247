// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LibraryQuestions.h"
#include "fingerprint/CatalogStore.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace trackwise {

/// What a library and the catalog of its songs' sounds say of one another.
struct CatalogSurvey
{
    std::shared_ptr<fingerprint::CatalogStore> store; ///< nothing where it cannot be written
    std::vector<SongSound> todo;                      ///< the first one last
    qsizetype total = 0;
    qint64 bytes = 0;
    QString trouble;      ///< empty: none
    bool isInUse = false; ///< another process writes the catalog; the numbers are of what it holds now

    enum class Beginning { WithWhatIsThere, Anew };
    struct Order
    {
        QByteArray folder;
        std::shared_ptr<fingerprint::CatalogStore> store; ///< where it is open already
        Beginning beginning = Beginning::WithWhatIsThere;
        fingerprint::CatalogStore::Note note = fingerprint::CatalogStore::Note::None;
    };
    /// Takes out of the catalog what is not in the library any more. Blocks. Any thread.
    [[nodiscard]] static CatalogSurvey of(const LibraryQuestions &library, const Order &order);

private:
    void open(const Order &order);
    void compare(const std::vector<SongSound> &sounds,
                 std::unordered_map<std::uint64_t, std::uint64_t> known);
};

} // namespace trackwise
