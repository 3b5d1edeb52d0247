// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// What each shell reads to complete the program's command line, made of the table of options and commands.
[[nodiscard]] QByteArray bashCompletion();
[[nodiscard]] QByteArray zshCompletion();
[[nodiscard]] QByteArray fishCompletion();
