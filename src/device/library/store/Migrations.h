// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/Sqlite.h"

namespace trackwise {

/// The version of the schema that this program writes.
[[nodiscard]] int currentSchemaVersion();

/// Brings a database of any earlier version, or an empty one, up to date: all steps or none.
///
/// Failures: Unsupported (a newer program made it), Malformed (damaged, or another program's database).
[[nodiscard]] Result<Done> migrate(const sqlite::Connection &connection);

/// Whether the database is ours and of the current version; changes nothing. Failures as in
/// migrate(), NotFound (empty) and Busy (made by an earlier version).
[[nodiscard]] Result<Done> checkSchema(const sqlite::Connection &connection);

} // namespace trackwise
