// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/LogSpectrum.h"

extern "C" {
#include <libavutil/tx.h>
}

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <new>
#include <numbers>

namespace trackwise::fingerprint {

namespace {

struct FreeTransform
{
    void operator()(AVTXContext *context) const { av_tx_uninit(&context); }
};

/// A tone of full scale has the magnitude 256. This is 108 dB below: what 16 bits cannot hold is all the
/// same.
constexpr float magnitudeFloor = 1e-3f;

/// The natural logarithm of a positive number, 0.0001 off at most, without a branch, so that a loop of it is
/// vectorised. What is no number has a finite one too.
float logarithm(float value)
{
    // The number is m · 2^e with m from √½ to √2; a fitted polynomial of fourth degree gives ln m.
    constexpr std::int32_t rootOfHalf = 0x3f3504f3;
    const auto bits = std::bit_cast<std::int32_t>(value);
    const std::int32_t exponent = (bits - rootOfHalf) >> 23;
    const float x = std::bit_cast<float>(bits - (exponent << 23)) - 1;
    const float mantissaPart = x * (0.99935f + x * (-0.50247f + x * (0.35871f - x * 0.22848f)));
    return float(exponent) * std::numbers::ln2_v<float> + mantissaPart;
}

/// Hann: what a tone leaks into bins further than two away is below a thousandth.
std::array<float, frameLength> hannWindow()
{
    std::array<float, frameLength> window;
    for (int i = 0; i < frameLength; ++i)
        window[i] = float(0.5 - 0.5 * std::cos(2 * std::numbers::pi * i / frameLength));
    return window;
}

} // namespace

struct LogSpectrum::Transform
{
    Transform()
    {
        const float scale = 1;
        AVTXContext *made = nullptr;
        if (av_tx_init(&made, &run, AV_TX_FLOAT_RDFT, 0, frameLength, &scale, 0) < 0)
            throw std::bad_alloc(); // of a size that is supported nothing else can go wrong
        context.reset(made);
    }

    std::unique_ptr<AVTXContext, FreeTransform> context;
    av_tx_fn run = nullptr;
    std::array<float, frameLength> window = hannWindow();
};

LogSpectrum::LogSpectrum(int hop)
    : m_transform(std::make_shared<const Transform>())
    , m_hop(hop)
{}

void LogSpectrum::push(std::span<const float> samples, const RowSink &sink)
{
    while (!samples.empty()) {
        const auto taken = std::min<std::size_t>(samples.size(), frameLength - m_filled);
        std::copy_n(samples.begin(), taken, m_frame.begin() + m_filled);
        samples = samples.subspan(taken);
        m_filled += int(taken);
        if (m_filled < frameLength)
            return;
        transform();
        std::copy(m_frame.begin() + m_hop, m_frame.end(), m_frame.begin());
        m_filled -= m_hop;
        sink(m_row);
    }
}

void LogSpectrum::transform()
{
    // The transform wants its ground aligned, and writes half a frame of complex numbers and one more.
    alignas(64) std::array<float, frameLength> windowed;
    alignas(64) std::array<float, frameLength + 16> spectrum;
    for (int i = 0; i < frameLength; ++i)
        windowed[i] = m_frame[i] * m_transform->window[i];
    m_transform->run(m_transform->context.get(), spectrum.data(), windowed.data(), sizeof(float));
    for (std::size_t bin = 0; bin < binCount; ++bin) {
        const float real = spectrum[2 * bin];
        const float imaginary = spectrum[2 * bin + 1];
        m_row[bin] = 0.5f * logarithm(real * real + imaginary * imaginary + magnitudeFloor * magnitudeFloor);
    }
}

} // namespace trackwise::fingerprint
