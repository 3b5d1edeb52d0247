// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/CatalogSnapshot.h"

namespace trackwise::fingerprint {

namespace {

/// More are made anew as one.
constexpr std::size_t mostDigests = 4;

} // namespace

std::shared_ptr<const Catalog> CatalogSnapshot::of(const StoreContents &contents)
{
    const std::vector<StoredSegment> &fresh = contents.fresh();
    std::size_t digested = 0;
    bool isBeginning = true; // whether the digests are of what the fresh songs begin with
    for (const Digest &digest : m_digests) {
        for (const Segment::Ptr &single : digest.of) {
            isBeginning = isBeginning && digested < fresh.size() && fresh[digested].songs.segment == single;
            ++digested;
        }
    }
    if (!isBeginning || m_digests.size() > mostDigests) {
        m_digests.clear();
        digested = 0;
    }
    digest(std::span(fresh).subspan(digested));

    std::vector<Catalog::Part> parts;
    for (const StoredSegment &segment : contents.settled())
        parts.push_back({segment.songs.segment, {}, segment.songs.removed});
    auto single = fresh.begin();
    for (const Digest &digest : m_digests) {
        Catalog::Part &part = parts.emplace_back(Catalog::Part{digest.merged, {}, {}});
        for (std::size_t i = 0; i < digest.of.size(); ++i, ++single)
            part.removed.push_back(single->songs.isRemoved(0));
    }
    for (const StoredSegment &segment : contents.added)
        parts.push_back({segment.songs.segment, segment.name, {}});
    return std::make_shared<const Catalog>(std::move(parts));
}

void CatalogSnapshot::digest(std::span<const StoredSegment> fresh)
{
    if (fresh.empty())
        return;
    std::vector<MergeInput> inputs;
    Digest digest;
    for (const StoredSegment &single : fresh) {
        inputs.push_back({single.songs.segment, {}}); // removed ones too: one could count again
        digest.of.push_back(single.songs.segment);
    }
    digest.merged = inputs.size() == 1 ? inputs.front().segment : mergedInMemory(inputs);
    m_digests.push_back(std::move(digest));
}

} // namespace trackwise::fingerprint
