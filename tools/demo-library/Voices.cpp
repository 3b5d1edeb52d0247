// SPDX-License-Identifier: GPL-3.0-or-later
#include "Voices.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <numbers>
#include <stdexcept>

namespace trackwise::demo {

namespace {

using Samples = std::vector<float>;

constexpr double tau = 2 * std::numbers::pi;

// A small generator of our own, so that every system makes the same noise. Marsaglia's xorshift, 2003.
class Noise
{
public:
    explicit Noise(unsigned seed)
        : m_state(seed * 2654435761U + 1U)
    {}

    double next() // -1 to 1
    {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 17;
        m_state ^= m_state << 5;
        return m_state / 2147483648.0 - 1;
    }

private:
    std::uint32_t m_state;
};

// Loudness over a note: up, down to a level, held, and away after the release. Seconds.
struct Envelope
{
    double attack = 0.01;
    double decay = 0.1;
    double sustain = 0.8;
    double release = 0.1;

    [[nodiscard]] double at(double t, double held) const
    {
        const double pressed = std::min(t, held);
        double level = pressed < attack ? pressed / attack
                                        : sustain + (1 - sustain) * std::exp(-(pressed - attack) / decay);
        if (t > held)
            level *= std::exp(-4 * (t - held) / release);
        return level;
    }
    [[nodiscard]] double length(double held) const { return held + 1.5 * release; }
};

// Calls the wave with seconds since the start, for as long as the envelope sounds.
Samples shaped(const Tone &tone, const Envelope &envelope, const std::function<double(double)> &wave)
{
    Samples samples(static_cast<size_t>(envelope.length(tone.seconds) * sampleRateHz));
    for (size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i) / sampleRateHz;
        samples[i] = static_cast<float>(wave(t) * envelope.at(t, tone.seconds));
    }
    return samples;
}

// A plucked string: noise running round a delay line that loses its high tones. Karplus and Strong 1983; the
// fractional delay tunes it. `brightness` 0 to 1 is what each round keeps, `ring` how long it sounds in
// seconds.
Samples pluck(const Tone &tone, double brightness, double ring)
{
    // The filter holds a sound back by a part of a sample; the line makes up the rest of the period.
    const double period = sampleRateHz / tone.frequencyHz - 0.5 * (1 - brightness);
    const auto line = static_cast<size_t>(std::ceil(period));
    const double fraction = static_cast<double>(line) - period;
    Noise noise(tone.seed);
    std::vector<double> string(line);
    double last = 0;
    for (double &point : string)
        point = last = 0.5 * last + 0.5 * noise.next(); // a finger, not a knife
    const double keep = std::pow(0.001, 1 / (ring * tone.frequencyHz));
    Samples samples(static_cast<size_t>((std::min(ring, tone.seconds + 0.6)) * sampleRateHz));
    double previous = 0;
    size_t position = 0;
    for (size_t i = 0; i < samples.size(); ++i) {
        const size_t next = (position + 1) % string.size();
        const double out = (1 - fraction) * string[position] + fraction * string[next];
        const double filtered = keep * (brightness * out + (1 - brightness) * 0.5 * (out + previous));
        previous = out;
        string[position] = filtered;
        position = next;
        const double left = static_cast<double>(samples.size() - i) / (0.05 * sampleRateHz);
        samples[i] = static_cast<float>(1.6 * out * std::min(1.0, left));
    }
    return samples;
}

// One sine bending another. Chowning 1973. The bend fades with `fade` seconds.
Samples bent(const Tone &tone, const Envelope &envelope, double ratio, double depth, double fade)
{
    const double w = tau * tone.frequencyHz;
    return shaped(tone, envelope, [=](double t) {
        return 0.7 * std::sin(w * t + depth * std::exp(-t / fade) * std::sin(ratio * w * t));
    });
}

// A sum of overtones, with a slow vibrato and breath.
struct Overtones
{
    std::vector<double> levels; // of the fundamental, the octave, the twelfth …
    double vibratoHz = 0;
    double vibratoDepth = 0; // radians of phase at the fundamental
    double detune = 1;       // a second set of reeds at this ratio; 1: none
    double breath = 0;
};

Samples sung(const Tone &tone, const Envelope &envelope, const Overtones &overtones)
{
    Noise noise(tone.seed);
    const double w = tau * tone.frequencyHz;
    const auto sum = [&](double phase) {
        double value = 0;
        for (size_t n = 0; n < overtones.levels.size(); ++n) {
            const double multiple = static_cast<double>(n + 1);
            if (multiple * tone.frequencyHz < 0.45 * sampleRateHz)
                value += overtones.levels[n] * std::sin(multiple * phase);
        }
        return value;
    };
    return shaped(tone, envelope, [&](double t) {
        const double vibrato =
            overtones.vibratoDepth * std::min(1.0, 2 * t) * std::sin(tau * overtones.vibratoHz * t);
        double value = sum(w * t + vibrato);
        if (overtones.detune != 1)
            value = 0.5 * (value + sum(w * overtones.detune * t + vibrato));
        return 0.5 * value + overtones.breath * noise.next();
    });
}

// Saw or pulse waves through a low-pass that closes after the attack. Steps are rounded by a polynomial over
// one sample (PolyBLEP, Välimäki and Huovilainen 2007); the filter is Chamberlin's, run twice a sample.
struct Circuit
{
    double pulseWidth = 0; // 0: saw
    double spread = 0;     // detuning of three oscillators, as a ratio
    double openHz = 4000;
    double closedHz = 800;
    double closing = 0.2; // seconds
    double resonance = 0.3;
};

double roundedStep(double phase, double step)
{
    if (phase < step) {
        const double x = phase / step;
        return x + x - x * x - 1;
    }
    if (phase > 1 - step) {
        const double x = (phase - 1) / step;
        return x * x + x + x + 1;
    }
    return 0;
}

double oscillator(double phase, double step, double pulseWidth)
{
    phase -= std::floor(phase);
    const double saw = 2 * phase - 1 - roundedStep(phase, step);
    if (pulseWidth <= 0)
        return saw;
    double other = phase + pulseWidth;
    other -= std::floor(other);
    return saw - (2 * other - 1 - roundedStep(other, step));
}

Samples wired(const Tone &tone, const Envelope &envelope, const Circuit &circuit)
{
    const int voices = circuit.spread > 0 ? 3 : 1;
    constexpr int controlPeriod = 32; // samples for which the filter stays where it is
    int sample = 0;
    double f = 0;
    double low = 0;
    double band = 0;
    return shaped(tone, envelope, [&](double t) {
        double in = 0;
        for (int voice = 0; voice < voices; ++voice) {
            const double frequency = tone.frequencyHz * (1 + circuit.spread * (voice - 1) * (voices > 1));
            in += oscillator(frequency * t + 0.31 * voice, frequency / sampleRateHz, circuit.pulseWidth);
        }
        if (sample++ % controlPeriod == 0) {
            const double cutoff =
                circuit.closedHz + (circuit.openHz - circuit.closedHz) * std::exp(-t / circuit.closing);
            f = 2 * std::sin(std::numbers::pi * std::min(cutoff, 9000.0) / (2 * sampleRateHz));
        }
        for (int pass = 0; pass < 2; ++pass) {
            low += f * band;
            band += f * (in / voices - low - (1 - circuit.resonance) * 1.4 * band);
        }
        return 0.6 * low;
    });
}

// A drum skin: a sine that falls from one pitch to another, and some noise.
struct Skin
{
    double fromHz = 0;
    double toHz = 0;
    double falling = 0.03; // seconds
    double tone = 1;
    double ring = 0.15; // seconds
    double noise = 0;
    double noiseRing = 0.1;
    double roughness = 0; // 0: low noise, 1: only the highest
};

Samples struck(const Tone &tone, const Skin &skin)
{
    Noise noise(tone.seed);
    Samples samples(static_cast<size_t>(5 * std::max(skin.ring, skin.noiseRing) * sampleRateHz));
    double phase = 0;
    double before = 0;
    for (size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i) / sampleRateHz;
        phase += (skin.toHz + (skin.fromHz - skin.toHz) * std::exp(-t / skin.falling)) / sampleRateHz;
        const double white = noise.next();
        const double hiss = white - skin.roughness * before;
        before = white;
        samples[i] = static_cast<float>(skin.tone * std::sin(tau * phase) * std::exp(-t / skin.ring) +
                                        skin.noise * hiss * std::exp(-t / skin.noiseRing));
    }
    return samples;
}

using Voice = std::function<Samples(const Tone &)>;

const std::map<QString, Voice> &voices()
{
    static const Envelope key{0.005, 0.4, 0.3, 0.25};
    static const Envelope slow{0.6, 1, 0.9, 1.2};
    static const Envelope wind{0.05, 0.2, 0.85, 0.12};
    static const std::map<QString, Voice> table{
        {QStringLiteral("guitar"), [](const Tone &t) { return pluck(t, 0.35, 3.0); }},
        {QStringLiteral("koto"), [](const Tone &t) { return pluck(t, 0.8, 2.2); }},
        {QStringLiteral("oud"), [](const Tone &t) { return pluck(t, 0.1, 1.6); }},
        {QStringLiteral("bass"), [](const Tone &t) { return pluck(t, 0.02, 2.5); }},
        {QStringLiteral("bell"),
         [](const Tone &t) {
             return bent(t, {0.002, 0.9, 0, 1.2}, 3.51, 2.2, 0.6);
         }},
        {QStringLiteral("epiano"),
         [](const Tone &t) {
             return bent(t, {0.004, 0.8, 0.15, 0.3}, 1, 1.6, 0.3);
         }},
        {QStringLiteral("marimba"),
         [](const Tone &t) {
             return bent(t, {0.002, 0.25, 0, 0.2}, 4, 0.9, 0.05);
         }},
        {QStringLiteral("brass"),
         [](const Tone &t) {
             return wired(t, {0.06, 0.3, 0.8, 0.15}, {0, 0.003, 1200, 2600, 0.09, 0.2});
         }},
        {QStringLiteral("organ"),
         [](const Tone &t) {
             return sung(t, {0.02, 0.1, 1, 0.15}, {{0.5, 0.35, 0.25, 0.2, 0, 0.1, 0, 0.12}});
         }},
        {QStringLiteral("accordion"),
         [](const Tone &t) {
             return sung(t, wind, {{0.4, 0.35, 0.25, 0.2, 0.16, 0.1, 0.08}, 5, 0.1, 1.006});
         }},
        {QStringLiteral("clarinet"),
         [](const Tone &t) {
             return sung(t, wind, {{0.8, 0.03, 0.4, 0.04, 0.22, 0.02, 0.1}, 4.6, 0.15});
         }},
        {QStringLiteral("flute"),
         [](const Tone &t) {
             return sung(t, wind, {{0.8, 0.25, 0.06, 0.02}, 5.2, 0.3, 1, 0.012});
         }},
        {QStringLiteral("choir"),
         [](const Tone &t) {
             return sung(t, slow, {{0.5, 0.4, 0.2, 0.05, 0.04, 0.03}, 4.9, 0.5, 1.004, 0.006});
         }},
        {QStringLiteral("pad"),
         [](const Tone &t) {
             return wired(t, slow, {0, 0.006, 900, 1800, 1.5, 0.1});
         }},
        {QStringLiteral("lead"),
         [](const Tone &t) {
             return wired(t, {0.01, 0.2, 0.7, 0.15}, {0, 0.004, 5200, 2400, 0.25, 0.5});
         }},
        {QStringLiteral("chip"),
         [](const Tone &t) {
             return wired(t, {0.002, 0.3, 0.5, 0.04}, {0.25, 0, 9000, 9000, 1, 0});
         }},
        {QStringLiteral("square"),
         [](const Tone &t) {
             return wired(t, {0.002, 0.3, 0.6, 0.05}, {0.5, 0, 6000, 3000, 0.2, 0.1});
         }},
        {QStringLiteral("synthbass"),
         [](const Tone &t) {
             return wired(t, key, {0, 0, 2400, 180, 0.09, 0.6});
         }},
        {QStringLiteral("kick"),
         [](const Tone &t) {
             return struck(t, {170, 46, 0.03, 1, 0.14, 0.08, 0.01, 0});
         }},
        {QStringLiteral("snare"),
         [](const Tone &t) {
             return struck(t, {240, 180, 0.02, 0.45, 0.06, 0.5, 0.09, 0.4});
         }},
        {QStringLiteral("brush"),
         [](const Tone &t) {
             return struck(t, {200, 180, 0.02, 0.1, 0.04, 0.3, 0.12, 0.7});
         }},
        {QStringLiteral("hat"),
         [](const Tone &t) {
             return struck(t, {0, 0, 1, 0, 0.02, 0.35, 0.03, 1});
         }},
        {QStringLiteral("shaker"),
         [](const Tone &t) {
             return struck(t, {0, 0, 1, 0, 0.02, 0.25, 0.05, 0.9});
         }},
        {QStringLiteral("dum"),
         [](const Tone &t) {
             return struck(t, {150, 88, 0.02, 1, 0.2, 0.05, 0.02, 0});
         }},
        {QStringLiteral("tek"),
         [](const Tone &t) {
             return struck(t, {620, 480, 0.01, 0.5, 0.03, 0.4, 0.03, 0.5});
         }},
        {QStringLiteral("wood"),
         [](const Tone &t) {
             return struck(t, {930, 900, 0.01, 0.9, 0.03, 0.05, 0.01, 0});
         }},
        {QStringLiteral("surf"),
         [](const Tone &t) {
             return struck(t, {0, 0, 1, 0, 0.1, 0.12, 1.2, 0.3});
         }},
    };
    return table;
}

} // namespace

std::vector<float> play(const QString &instrument, const Tone &tone)
{
    const auto voice = voices().find(instrument);
    if (voice == voices().end())
        throw std::runtime_error("no such instrument: " + instrument.toStdString());
    return voice->second(tone);
}

} // namespace trackwise::demo
