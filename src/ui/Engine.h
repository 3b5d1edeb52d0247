// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QQmlEngine;

namespace trackwise {

class Theme;

/// Makes @p engine find our QML modules and symbols. Call it before the first component is made.
void prepareEngine(QQmlEngine &engine);

/// The theme of all views of @p engine, which owns it.
[[nodiscard]] Theme &themeOf(QQmlEngine &engine);

} // namespace trackwise
