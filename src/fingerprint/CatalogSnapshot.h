// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Catalog.h"
#include "fingerprint/StoreContents.h"

namespace trackwise::fingerprint {

/// Makes catalogs of what a store has at different times. The songs of its journal, each a segment of its
/// own, are put together for this: a catalog of many segments is asked slowly.
class CatalogSnapshot
{
public:
    [[nodiscard]] std::shared_ptr<const Catalog> of(const StoreContents &contents);

private:
    struct Digest
    {
        Segment::Ptr merged;
        std::vector<Segment::Ptr> of;
    };
    void digest(std::span<const StoredSegment> fresh);

    std::vector<Digest> m_digests; ///< of the fresh songs, in their order
};

} // namespace trackwise::fingerprint
