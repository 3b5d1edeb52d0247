// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

class QGuiApplication;

namespace trackwise {

/// The resource with our texts in the first of @p languages that we have, such as "de-CH" or "de". Empty when
/// English, the language they are written in, comes first.
[[nodiscard]] QString translationFor(const QStringList &languages);

/// Shows our texts in the user's language (LANGUAGE, LC_MESSAGES), from right to left where it is written so.
/// Call it once, before the first view is made.
void installTranslations(QGuiApplication &app);

} // namespace trackwise
