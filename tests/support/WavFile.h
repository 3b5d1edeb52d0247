// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <span>

namespace trackwise {

/// A WAV file of 16 bits: @p samples of full scale ±1, those of all channels of one moment together. What
/// stands in @p info (such as "INAM") goes into its tags.
[[nodiscard]] inline QByteArray wavFile(std::span<const float> samples, int rateHz, int channels = 1,
                                        std::initializer_list<std::pair<const char *, QByteArray>> info = {})
{
    const auto number = [](auto value) {
        QByteArray bytes(sizeof(value), 0);
        qToLittleEndian(value, bytes.data());
        return bytes;
    };
    const auto chunk = [&](const char *name, const QByteArray &content) {
        return name + number(quint32(content.size())) + content + QByteArray(content.size() % 2, 0);
    };
    QByteArray data;
    data.reserve(qsizetype(samples.size()) * 2);
    for (const float sample : samples)
        data += number(qint16(std::clamp(sample, -1.0F, 1.0F) * 32767));
    QByteArray tags = "INFO";
    for (const auto &[name, value] : info)
        tags += chunk(name, value);
    const QByteArray format = number(quint16(1)) + number(quint16(channels)) + number(quint32(rateHz)) +
                              number(quint32(rateHz * channels * 2)) + number(quint16(channels * 2)) +
                              number(quint16(16));
    return chunk("RIFF", "WAVE" + chunk("fmt ", format) + chunk("LIST", tags) + chunk("data", data));
}

} // namespace trackwise
