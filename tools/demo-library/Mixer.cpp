// SPDX-License-Identifier: GPL-3.0-or-later
#include "Mixer.h"

#include "Voices.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>

namespace trackwise::demo {

namespace {

constexpr double tailSeconds = 1.5;
constexpr float peak = 0.89F; // -1 dB: lossy encoders overshoot

double secondsAt(const Piece &piece, double beat)
{
    // The second half of a beat comes late in a swinging piece.
    const double within = beat - std::floor(beat);
    const bool isOffBeat = within > 0.3 && within < 0.9;
    return (beat + (isOffBeat ? piece.swing : 0)) * 60 / piece.beatsPerMinute;
}

void add(std::vector<float> &mix, const std::vector<float> &sound, double start, double gain, double pan)
{
    // Constant power across the stage.
    const double angle = (pan + 1) * std::numbers::pi / 4;
    const auto left = static_cast<float>(gain * std::cos(angle));
    const auto right = static_cast<float>(gain * std::sin(angle));
    const auto first = static_cast<size_t>(start * sampleRateHz);
    for (size_t i = 0; i < sound.size() && 2 * (first + i) + 1 < mix.size(); ++i) {
        mix[2 * (first + i)] += left * sound[i];
        mix[2 * (first + i) + 1] += right * sound[i];
    }
}

// A room: four combs and two all-passes for each side. Schroeder 1962; the delays are prime numbers of
// samples.
class Room
{
public:
    explicit Room(bool isRight)
    {
        constexpr std::array<size_t, 4> combs{1557, 1617, 1493, 1423};
        constexpr std::array<size_t, 2> passes{223, 557};
        const size_t shift = isRight ? 23 : 0;
        for (const size_t delay : combs)
            m_combs.push_back({std::vector<float>(delay + shift), 0, 0});
        for (const size_t delay : passes)
            m_passes.push_back({std::vector<float>(delay + shift), 0, 0});
    }

    float hear(float in)
    {
        float out = 0;
        for (Line &comb : m_combs) {
            const float heard = comb.samples[comb.position];
            comb.memory = 0.7F * heard + 0.3F * comb.memory; // walls swallow the high tones
            comb.write(in + 0.82F * comb.memory);
            out += 0.25F * heard;
        }
        for (Line &pass : m_passes) {
            const float heard = pass.samples[pass.position];
            pass.write(out + 0.5F * heard);
            out = heard - 0.5F * out;
        }
        return out;
    }

private:
    struct Line
    {
        std::vector<float> samples;
        size_t position = 0;
        float memory = 0;

        void write(float value)
        {
            samples[position] = value;
            position = (position + 1) % samples.size();
        }
    };
    std::vector<Line> m_combs;
    std::vector<Line> m_passes;
};

void addRoom(std::vector<float> &mix, double amount)
{
    Room left(false);
    Room right(true);
    const auto wet = static_cast<float>(amount);
    for (size_t i = 0; i + 1 < mix.size(); i += 2) {
        mix[i] += wet * left.hear(mix[i]);
        mix[i + 1] += wet * right.hear(mix[i + 1]);
    }
}

void normalise(std::vector<float> &mix)
{
    float loudest = 0;
    for (const float sample : mix)
        loudest = std::max(loudest, std::abs(sample));
    if (loudest <= 0)
        return;
    const size_t fade = 2 * static_cast<size_t>(0.5 * sampleRateHz);
    for (size_t i = 0; i < mix.size(); ++i) {
        const size_t left = mix.size() - i;
        const float fading = left < fade ? static_cast<float>(left) / static_cast<float>(fade) : 1;
        mix[i] *= peak / loudest * fading;
    }
}

} // namespace

std::vector<float> render(const Piece &piece)
{
    const double seconds = piece.beats * 60 / piece.beatsPerMinute + tailSeconds;
    std::vector<float> mix(2 * static_cast<size_t>(seconds * sampleRateHz));
    unsigned played = 0;
    for (const Part &part : piece.parts) {
        std::map<std::pair<double, double>, std::vector<float>> tones; // figures come again and again
        for (const Note &note : part.notes) {
            std::vector<float> &tone = tones[{note.pitch, note.length}];
            if (tone.empty())
                tone = play(part.instrument, {.frequencyHz = 440 * std::exp2((note.pitch - 69) / 12),
                                              .seconds = note.length * 60 / piece.beatsPerMinute,
                                              .seed = static_cast<unsigned>(tones.size())});
            // Nobody strikes twice with the same force.
            const double force = note.velocity * (0.9 + 0.1 * std::sin(12.9898 * ++played));
            add(mix, tone, secondsAt(piece, note.start), part.gain * force, part.pan);
        }
    }
    if (piece.reverb > 0)
        addRoom(mix, piece.reverb);
    normalise(mix);
    return mix;
}

} // namespace trackwise::demo
