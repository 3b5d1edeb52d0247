// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace trackwise::demo {

/// Writes @p sound (left and right by turns, at sampleRateHz) to @p path in the format of its ending, with
/// the ffmpeg tool, and with nothing in it that differs from run to run. Throws std::runtime_error when that
/// fails.
void encode(const std::vector<float> &sound, const QString &path);

} // namespace trackwise::demo
