// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundResampler.h"

#include "fingerprint/Row.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <algorithm>

namespace trackwise {

namespace {

/// What libswresample can mix.
constexpr int mostChannels = 64;
/// From telephones of long ago to direct stream digital.
constexpr int lowestRateHz = 1000;
constexpr int highestRateHz = 6'000'000;
/// The filter's length at the engine's rate. The engine hears up to 5.6 kHz, so what folds back from between
/// 8 and 10.4 kHz does not matter: half of the usual length takes 60 dB off all beyond.
constexpr int filterSize = 16;

} // namespace

SoundResampler::SoundResampler()
    : m_resampler(nullptr, [](SwrContext *context) { swr_free(&context); })
{}

SoundResampler::~SoundResampler() = default;

void SoundResampler::add(const Format &format, const std::uint8_t *const *planes, int frames,
                         std::vector<float> &sound)
{
    if (format != m_format) {
        finish(sound);
        m_format = format;
        begin();
    }
    convert(planes, frames, sound);
}

void SoundResampler::add(std::span<const float> samples, int rateHz, std::vector<float> &sound)
{
    const auto *plane = reinterpret_cast<const std::uint8_t *>(samples.data());
    add({rateHz, 1, AV_SAMPLE_FMT_FLT}, &plane, int(samples.size()), sound);
}

void SoundResampler::finish(std::vector<float> &sound)
{
    convert(nullptr, 0, sound);
    m_resampler.reset();
    m_format = {};
}

void SoundResampler::begin()
{
    const auto &[rateHz, channels, samples] = m_format;
    if (channels < 1 || channels > mostChannels || rateHz < lowestRateHz || rateHz > highestRateHz)
        return;
    // Which loudspeaker a channel is meant for does not matter, and is not always known.
    AVChannelLayout mono = AV_CHANNEL_LAYOUT_MONO;
    AVChannelLayout many{};
    av_channel_layout_default(&many, channels);
    const std::vector<double> shares(std::size_t(channels), 1.0 / channels);
    SwrContext *made = nullptr;
    if (swr_alloc_set_opts2(&made, &mono, AV_SAMPLE_FMT_FLT, fingerprint::sampleRateHz, &many,
                            AVSampleFormat(samples), rateHz, 0, nullptr) < 0)
        return;
    m_resampler.reset(made);
    av_opt_set_int(made, "filter_size", filterSize, 0);
    if (swr_set_matrix(made, shares.data(), channels) < 0 || swr_init(made) < 0)
        m_resampler.reset();
}

void SoundResampler::convert(const std::uint8_t *const *planes, int frames, std::vector<float> &sound)
{
    const int room = m_resampler ? swr_get_out_samples(m_resampler.get(), frames) : 0;
    if (room <= 0)
        return;
    const std::size_t before = sound.size();
    sound.resize(before + std::size_t(room));
    auto *place = reinterpret_cast<std::uint8_t *>(sound.data() + before);
    const int made =
        swr_convert(m_resampler.get(), &place, room, const_cast<const std::uint8_t **>(planes), frames);
    sound.resize(before + std::size_t(std::max(0, made)));
}

} // namespace trackwise
