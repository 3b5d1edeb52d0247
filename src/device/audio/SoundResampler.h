// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

struct SwrContext;

namespace trackwise {

/// Makes sound of the recogniser's rate and one channel, the mean of all, out of any other, however that
/// changes on the way. One thread.
class SoundResampler
{
public:
    struct Format
    {
        int rateHz = 0;
        int channels = 0;
        int samples = 0; ///< an AVSampleFormat
        friend bool operator==(const Format &, const Format &) = default;
    };

    SoundResampler();
    ~SoundResampler();

    /// Adds what becomes of @p frames of the sound at @p planes (an address for each channel, or one where
    /// they are interleaved) to @p sound: nothing where the format cannot be.
    void add(const Format &format, const std::uint8_t *const *planes, int frames, std::vector<float> &sound);
    /// The same for one channel of full scale ±1.
    void add(std::span<const float> samples, int rateHz, std::vector<float> &sound);
    /// Adds what is still held back.
    void finish(std::vector<float> &sound);

private:
    void begin();
    void convert(const std::uint8_t *const *planes, int frames, std::vector<float> &sound);

    std::unique_ptr<SwrContext, void (*)(SwrContext *)> m_resampler;
    Format m_format;
};

} // namespace trackwise
