// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDate>

/// The manual page in the mdoc(7) language: @p pattern, with the lines in it that name a part of the table of
/// options and commands ("@OPTIONS@") replaced by that part.
[[nodiscard]] QByteArray manualPage(const QByteArray &pattern, QDate date);
