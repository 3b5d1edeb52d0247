// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundDecoder.h"

#include "device/audio/SoundSource.h"
#include "fingerprint/Row.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <vector>

namespace trackwise {

namespace {

using fingerprint::sampleRateHz;

using DecoderPtr = std::unique_ptr<AVCodecContext, AvFree<avcodec_free_context>>;
using FramePtr = std::unique_ptr<AVFrame, AvFree<av_frame_free>>;
using PacketPtr = std::unique_ptr<AVPacket, AvFree<av_packet_free>>;
using ResamplerPtr = std::unique_ptr<SwrContext, AvFree<swr_free>>;

/// What libswresample can mix.
constexpr int mostChannels = 64;
/// From telephones of long ago to direct stream digital.
constexpr int lowestRateHz = 1000;
constexpr int highestRateHz = 6'000'000;
/// The filter's length at the engine's rate. The engine hears up to 5.6 kHz, so what folds back from between
/// 8 and 10.4 kHz does not matter: half of the usual length takes 60 dB off all beyond.
constexpr int filterSize = 16;
/// So many broken places in a row, and there is nothing good behind them.
constexpr int mostBroken = 1000;

DecoderPtr decoderOf(const AVStream &stream, const AVCodec *codec)
{
    DecoderPtr decoder(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0)
        return nullptr;
    decoder->pkt_timebase = stream.time_base;
    decoder->thread_count = 1;
    return avcodec_open2(decoder.get(), codec, nullptr) < 0 ? nullptr : std::move(decoder);
}

/// Turns frames into mono at the engine's rate, whatever they are, and however they change on the way.
class Mono
{
public:
    /// Adds what becomes of @p frame to @p sound.
    void add(const AVFrame &frame, std::vector<float> &sound)
    {
        if (!fits(frame)) {
            finish(sound);
            begin(frame);
        }
        if (m_resampler)
            convert(frame.extended_data, frame.nb_samples, sound);
    }
    /// Adds what is still held back.
    void finish(std::vector<float> &sound)
    {
        if (m_resampler)
            convert(nullptr, 0, sound);
        m_resampler.reset();
    }

private:
    [[nodiscard]] bool fits(const AVFrame &frame) const
    {
        return m_resampler && frame.sample_rate == m_rate && frame.format == m_format &&
               frame.ch_layout.nb_channels == m_channels;
    }

    void begin(const AVFrame &frame)
    {
        m_rate = frame.sample_rate;
        m_format = frame.format;
        m_channels = frame.ch_layout.nb_channels;
        if (m_channels < 1 || m_channels > mostChannels || m_rate < lowestRateHz || m_rate > highestRateHz)
            return;
        // Which loudspeaker a channel is meant for does not matter, and is not always known.
        AVChannelLayout mono = AV_CHANNEL_LAYOUT_MONO;
        AVChannelLayout many{};
        av_channel_layout_default(&many, m_channels);
        const std::vector<double> shares(std::size_t(m_channels), 1.0 / m_channels);
        SwrContext *made = nullptr;
        if (swr_alloc_set_opts2(&made, &mono, AV_SAMPLE_FMT_FLT, sampleRateHz, &many,
                                AVSampleFormat(m_format), m_rate, 0, nullptr) < 0)
            return;
        ResamplerPtr resampler(made);
        av_opt_set_int(made, "filter_size", filterSize, 0);
        if (swr_set_matrix(made, shares.data(), m_channels) >= 0 && swr_init(made) >= 0)
            m_resampler = std::move(resampler);
    }

    void convert(std::uint8_t **samples, int count, std::vector<float> &sound)
    {
        const int room = swr_get_out_samples(m_resampler.get(), count);
        if (room <= 0)
            return;
        const std::size_t before = sound.size();
        sound.resize(before + std::size_t(room));
        auto *place = reinterpret_cast<std::uint8_t *>(sound.data() + before);
        const int made =
            swr_convert(m_resampler.get(), &place, room, const_cast<const std::uint8_t **>(samples), count);
        sound.resize(before + std::size_t(std::max(0, made)));
    }

    ResamplerPtr m_resampler;
    int m_rate = 0;
    int m_format = AV_SAMPLE_FMT_NONE;
    int m_channels = 0;
};

} // namespace

struct SoundDecoder::State
{
    std::unique_ptr<SoundSource> source;
    InputPtr input; ///< gone when all is read
    DecoderPtr decoder;
    int stream = -1;
    std::size_t left = 0; ///< samples that may still come
    FramePtr frame{av_frame_alloc()};
    PacketPtr packet{av_packet_alloc()};
    Mono mono;
    std::vector<float> piece;

    void takeFrames()
    {
        while (avcodec_receive_frame(decoder.get(), frame.get()) >= 0)
            mono.add(*frame, piece);
    }

    void end()
    {
        avcodec_send_packet(decoder.get(), nullptr);
        takeFrames();
        mono.finish(piece);
        input.reset();
    }

    /// Reads on until there is some sound, or the end.
    void read()
    {
        int broken = 0;
        while (piece.empty() && input) {
            const int result = source->isTooLate() ? AVERROR_EXIT : av_read_frame(input.get(), packet.get());
            const bool isBroken = result < 0 && result != AVERROR_EOF && result != AVERROR_EXIT;
            if (result < 0 && !(isBroken && ++broken <= mostBroken)) {
                end();
                return;
            }
            if (result >= 0 && packet->stream_index == stream &&
                avcodec_send_packet(decoder.get(), packet.get()) >= 0)
                takeFrames();
            av_packet_unref(packet.get());
        }
    }
};

SoundDecoder::SoundDecoder(std::unique_ptr<State> state)
    : m_state(std::move(state))
{}
SoundDecoder::SoundDecoder(SoundDecoder &&other) noexcept = default;
SoundDecoder::~SoundDecoder() = default;

Result<SoundDecoder> SoundDecoder::open(const QByteArray &path, Limits limits)
{
    auto source = SoundSource::open(path, limits.patience);
    return source ? of(*std::move(source), limits) : source.failure();
}

Result<SoundDecoder> SoundDecoder::openStream(int descriptor, Limits limits)
{
    auto source = SoundSource::ofStream(descriptor, limits.patience);
    return source ? of(*std::move(source), limits) : source.failure();
}

Result<SoundDecoder> SoundDecoder::of(std::unique_ptr<SoundSource> source, const Limits &limits)
{
    static const bool isQuiet = (av_log_set_level(AV_LOG_QUIET), true); // damaged files are reported by us
    Q_UNUSED(isQuiet)
    auto state = std::make_unique<State>();
    state->source = std::move(source);
    state->input = state->source->input();
    if (const auto &failure = state->source->failure())
        return *failure;
    if (!state->input)
        return Failure{FailureKind::Malformed, QStringLiteral("there is no sound in it")};
    const AVCodec *codec = nullptr;
    state->stream = av_find_best_stream(state->input.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
    if (state->stream == AVERROR_STREAM_NOT_FOUND)
        return Failure{FailureKind::Malformed, QStringLiteral("there is no sound in it")};
    if (state->stream >= 0)
        state->decoder = decoderOf(*state->input->streams[state->stream], codec);
    if (!state->decoder)
        return Failure{FailureKind::Unsupported, QStringLiteral("its sound is coded in an unknown way")};
    for (unsigned i = 0; i < state->input->nb_streams; ++i)
        state->input->streams[i]->discard = int(i) == state->stream ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    state->left = std::size_t(limits.longest.count()) * sampleRateHz;
    return SoundDecoder(std::move(state));
}

std::span<const float> SoundDecoder::next()
{
    m_state->piece.clear();
    m_state->read();
    m_state->piece.resize(std::min(m_state->piece.size(), m_state->left));
    m_state->left -= m_state->piece.size();
    if (m_state->left == 0)
        m_state->input.reset();
    if (!m_state->piece.empty())
        m_state->source->noteSound();
    return m_state->piece;
}

const std::optional<Failure> &SoundDecoder::failure() const
{
    return m_state->source->failure();
}

} // namespace trackwise
