// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace trackwise {

/// Starts a program that lives on without us. What it writes goes nowhere: our terminal is not its own. False
/// where there is no such program.
[[nodiscard]] bool startDetached(const QString &program, const QStringList &arguments);

} // namespace trackwise
