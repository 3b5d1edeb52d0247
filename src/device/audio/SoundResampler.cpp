// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundResampler.h"

#include "fingerprint/Row.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <cstdint>

namespace trackwise {

namespace {

SwrContext *resamplerFrom(int rateHz)
{
    AVChannelLayout mono = AV_CHANNEL_LAYOUT_MONO;
    SwrContext *made = nullptr;
    if (swr_alloc_set_opts2(&made, &mono, AV_SAMPLE_FMT_FLT, fingerprint::sampleRateHz, &mono,
                            AV_SAMPLE_FMT_FLT, rateHz, 0, nullptr) < 0)
        return nullptr;
    if (swr_init(made) < 0)
        swr_free(&made);
    return made;
}

} // namespace

SoundResampler::SoundResampler()
    : m_resampler(nullptr, [](SwrContext *context) { swr_free(&context); })
{}

SoundResampler::~SoundResampler() = default;

std::span<const float> SoundResampler::resampled(std::span<const float> samples, int rateHz)
{
    if (m_rateHz != rateHz) {
        m_rateHz = rateHz;
        m_resampler.reset(rateHz > 0 ? resamplerFrom(rateHz) : nullptr);
    }
    if (!m_resampler)
        return {};
    const int room = swr_get_out_samples(m_resampler.get(), int(samples.size()));
    m_sound.resize(std::size_t(std::max(room, 0)));
    const auto *in = reinterpret_cast<const std::uint8_t *>(samples.data());
    auto *out = reinterpret_cast<std::uint8_t *>(m_sound.data());
    const int made = swr_convert(m_resampler.get(), &out, room, &in, int(samples.size()));
    return std::span(m_sound).first(std::size_t(std::max(made, 0)));
}

} // namespace trackwise
