// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/SoundFile.h"

#include "fingerprint/Row.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libswresample/swresample.h>
}

#include <memory>

namespace trackwise::bench {

namespace {

template <auto release>
struct AvFree
{
    template <typename T>
    void operator()(T *pointer) const
    {
        release(&pointer);
    }
};
using InputPtr = std::unique_ptr<AVFormatContext, AvFree<avformat_close_input>>;
using DecoderPtr = std::unique_ptr<AVCodecContext, AvFree<avcodec_free_context>>;
using FramePtr = std::unique_ptr<AVFrame, AvFree<av_frame_free>>;
using PacketPtr = std::unique_ptr<AVPacket, AvFree<av_packet_free>>;
using ResamplerPtr = std::unique_ptr<SwrContext, AvFree<swr_free>>;

InputPtr opened(const std::string &path)
{
    AVFormatContext *input = nullptr;
    if (avformat_open_input(&input, path.c_str(), nullptr, nullptr) < 0)
        return nullptr;
    InputPtr owned(input);
    return avformat_find_stream_info(input, nullptr) < 0 ? nullptr : std::move(owned);
}

DecoderPtr decoderOf(const AVStream &stream, const AVCodec *codec)
{
    DecoderPtr decoder(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0 ||
        avcodec_open2(decoder.get(), codec, nullptr) < 0)
        return nullptr;
    return decoder;
}

ResamplerPtr resamplerFor(AVFrame &frame)
{
    AVChannelLayout mono = AV_CHANNEL_LAYOUT_MONO;
    SwrContext *made = nullptr;
    if (swr_alloc_set_opts2(&made, &mono, AV_SAMPLE_FMT_FLT, fingerprint::sampleRateHz, &frame.ch_layout,
                            AVSampleFormat(frame.format), frame.sample_rate, 0, nullptr) < 0)
        return nullptr;
    ResamplerPtr resampler(made);
    return swr_init(made) < 0 ? nullptr : std::move(resampler);
}

/// Adds what becomes of @p frame, or, without one, what the resampler still holds.
void addResampled(SwrContext *resampler, const AVFrame *frame, std::vector<float> &sound)
{
    const int room = swr_get_out_samples(resampler, frame != nullptr ? frame->nb_samples : 0);
    if (room <= 0)
        return;
    const std::size_t before = sound.size();
    sound.resize(before + std::size_t(room));
    auto *place = reinterpret_cast<std::uint8_t *>(sound.data() + before);
    const auto **data = frame != nullptr ? const_cast<const std::uint8_t **>(frame->extended_data) : nullptr;
    const int made = swr_convert(resampler, &place, room, data, frame != nullptr ? frame->nb_samples : 0);
    sound.resize(before + std::size_t(std::max(0, made)));
}

} // namespace

std::vector<float> soundOf(const std::string &path)
{
    const InputPtr input = opened(path);
    const AVCodec *codec = nullptr;
    const int stream = input ? av_find_best_stream(input.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0) : -1;
    const DecoderPtr decoder = stream < 0 ? nullptr : decoderOf(*input->streams[stream], codec);
    if (!decoder)
        return {};
    std::vector<float> sound;
    ResamplerPtr resampler;
    const FramePtr frame(av_frame_alloc());
    const PacketPtr packet(av_packet_alloc());
    const auto takeFrames = [&] {
        while (avcodec_receive_frame(decoder.get(), frame.get()) >= 0) {
            if (!resampler)
                resampler = resamplerFor(*frame);
            if (resampler)
                addResampled(resampler.get(), frame.get(), sound);
        }
    };
    while (av_read_frame(input.get(), packet.get()) >= 0) {
        if (packet->stream_index == stream && avcodec_send_packet(decoder.get(), packet.get()) >= 0)
            takeFrames();
        av_packet_unref(packet.get());
    }
    avcodec_send_packet(decoder.get(), nullptr);
    takeFrames();
    if (resampler)
        addResampled(resampler.get(), nullptr, sound);
    return sound;
}

} // namespace trackwise::bench
