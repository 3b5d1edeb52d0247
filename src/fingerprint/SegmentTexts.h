// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogSong.h"

#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// Appends title, artist and catalog identifier, each with its length before it (2 bytes); of longer ones the
/// first 4 kB.
void appendTexts(std::vector<std::uint8_t> &bytes, const CatalogSong &song);
/// Takes them from the beginning of @p bytes, which may be anything: what is not whole is empty. The bytes
/// behind the texts.
std::span<const std::uint8_t> takeTexts(std::span<const std::uint8_t> bytes, CatalogSong &song);

} // namespace trackwise::fingerprint
