// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LibraryQuestions.h"
#include "fingerprint/CatalogStore.h"

#include <memory>
#include <vector>

namespace trackwise {

/// Where the catalog of a library is kept: beside its database.
[[nodiscard]] QByteArray catalogFolder(const QByteArray &databasePath);

/// The catalog of a library as it is now, read without changing anything; an empty one where there is none.
/// The detail of a failure is a sentence for the user.
[[nodiscard]] Result<std::shared_ptr<const fingerprint::Catalog>> readCatalog(const QByteArray &databasePath);

/// How much of a library its catalog knows.
struct CatalogSummary
{
    qsizetype songs = 0; ///< of the library, that were listened to
    qsizetype left = 0;  ///< that were not yet, or have changed since
    /// Songs of a catalog that was added.
    struct Added
    {
        QString name;
        qsizetype songs = 0;
    };
    std::vector<Added> added;
};
[[nodiscard]] CatalogSummary summaryOf(const fingerprint::Catalog &catalog,
                                       const std::vector<SongSound> &library);

/// Names a catalog's own songs as @p library, which must outlive it, has them at the moment; one that is not
/// there any more stays as it is. Any thread.
[[nodiscard]] fingerprint::SongNaming namingBy(const LibraryQuestions &library);

/// A failure of the catalog as one of the device.
[[nodiscard]] Failure asFailure(const fingerprint::CatalogFailure &failure);

} // namespace trackwise
