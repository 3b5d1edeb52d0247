// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundDecoder.h"

#include "device/audio/SoundResampler.h"
#include "device/audio/SoundSource.h"
#include "fingerprint/Row.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <vector>

namespace trackwise {

namespace {

using fingerprint::sampleRateHz;

using DecoderPtr = std::unique_ptr<AVCodecContext, AvFree<avcodec_free_context>>;
using FramePtr = std::unique_ptr<AVFrame, AvFree<av_frame_free>>;
using PacketPtr = std::unique_ptr<AVPacket, AvFree<av_packet_free>>;

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
    SoundResampler mono;
    std::vector<float> piece;

    void takeFrames()
    {
        while (avcodec_receive_frame(decoder.get(), frame.get()) >= 0)
            mono.add({frame->sample_rate, frame->ch_layout.nb_channels, frame->format}, frame->extended_data,
                     frame->nb_samples, piece);
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
