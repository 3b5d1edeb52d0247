// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <span>
#include <vector>

struct SwrContext;

namespace trackwise {

/// Makes sound of the recogniser's rate out of one channel of any other, piece by piece. One thread.
class SoundResampler
{
public:
    SoundResampler();
    ~SoundResampler();

    /// What becomes of @p samples, which are of @p rateHz; valid until the next call. Nothing where the rate
    /// cannot be. A new rate begins anew.
    std::span<const float> resampled(std::span<const float> samples, int rateHz);

private:
    std::unique_ptr<SwrContext, void (*)(SwrContext *)> m_resampler;
    int m_rateHz = 0;
    std::vector<float> m_sound;
};

} // namespace trackwise
