// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Pieces.h"

#include "fingerprint/Row.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace trackwise::fingerprint {

namespace {

void addNote(Sound &sound, std::size_t start, double hertz, double loudness, double decay, double brightness)
{
    const std::size_t end = std::min(sound.size(), start + std::size_t(1.2 * sampleRateHz));
    for (int partial = 1; partial * hertz < 5500 && partial <= 8; ++partial) {
        const double step = 2 * std::numbers::pi * partial * hertz / sampleRateHz;
        // A tone that fades is a resonator that was struck: each value follows from the two before it.
        const double loss = std::exp(-decay * partial / sampleRateHz);
        const double recent = 2 * loss * std::cos(step);
        double before = 0;
        double value = loudness * std::pow(brightness, partial) * loss * std::sin(step);
        for (std::size_t i = start; i < end; ++i) {
            sound[i] += float(value);
            const double next = recent * value - loss * loss * before;
            before = value;
            value = next;
        }
    }
}

} // namespace

Sound piece(unsigned seed, double seconds)
{
    std::mt19937 random(seed);
    const auto upTo = [&random](int count) { return int(random() % unsigned(count)); };
    const auto share = [&random] { return double(random()) / 4294967296.0; };
    // No recording is silent: all of them have some hiss.
    Sound sound = noise(seed, std::size_t(seconds * sampleRateHz), 1e-5);
    constexpr int scale[]{0, 2, 3, 5, 7, 9, 10};
    const double ground = 110 * std::exp2(upTo(24) / 12.0 + share() / 12);
    const double brightness = 0.6 + 0.3 * share();
    const auto beat = std::size_t(sampleRateHz * (0.11 + 0.08 * share()));
    for (std::size_t start = 0; start < sound.size(); start += beat) {
        for (int voice = 0; voice < 3; ++voice) {
            if (upTo(3) == 0)
                continue;
            const double hertz = ground * std::exp2(voice + scale[upTo(7)] / 12.0);
            addNote(sound, start, hertz, 0.05 + 0.05 * share(), 3 + 4 * share(), brightness);
        }
        if (upTo(2) == 0) {
            const Sound stroke = noise(random(), 800, 0.01);
            for (std::size_t i = 0; i < stroke.size() && start + i < sound.size(); ++i)
                sound[start + i] += stroke[i] * float(std::exp(-double(i) / 200));
        }
    }
    return sound;
}

Sound noise(unsigned seed, std::size_t samples, double power)
{
    std::mt19937 random(seed);
    std::normal_distribution<float> value(0, float(std::sqrt(power)));
    Sound sound(samples);
    std::generate(sound.begin(), sound.end(), [&] { return value(random); });
    return sound;
}

double powerOf(std::span<const float> sound)
{
    double sum = 0;
    for (const float value : sound)
        sum += double(value) * value;
    return sum / double(sound.size());
}

} // namespace trackwise::fingerprint
