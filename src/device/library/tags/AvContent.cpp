// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/AvContent.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <memory>

extern "C" {
#include <libavformat/avformat.h>
}

namespace trackwise {

namespace {

using Clock = std::chrono::steady_clock;

/// What libavformat's callbacks work on.
struct Source
{
    MusicFile &file;
    qint64 position = 0;
    qint64 budget = qint64{64} * 1024 * 1024;
    Clock::time_point deadline = Clock::now() + std::chrono::seconds(2);
};

int readPacket(void *opaque, std::uint8_t *to, int length)
{
    auto &source = *static_cast<Source *>(opaque);
    const auto count = source.file.read(source.position, to, std::min<qint64>(length, source.budget));
    source.position += count;
    source.budget -= count;
    return count > 0 ? static_cast<int>(count) : AVERROR_EOF;
}

std::int64_t seekTo(void *opaque, std::int64_t offset, int whence)
{
    auto &source = *static_cast<Source *>(opaque);
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return source.file.size();
    case SEEK_SET:
        break;
    case SEEK_CUR:
        offset += source.position;
        break;
    case SEEK_END:
        offset += source.file.size();
        break;
    default:
        return AVERROR(EINVAL);
    }
    if (offset < 0)
        return AVERROR(EINVAL);
    return source.position = offset;
}

int isTooLate(void *opaque)
{
    return Clock::now() > static_cast<Source *>(opaque)->deadline ? 1 : 0;
}

int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM); // playlists and the like must not lead elsewhere
}

struct FreeIo
{
    void operator()(AVIOContext *io) const
    {
        av_freep(&io->buffer);
        avio_context_free(&io);
    }
};
struct CloseInput
{
    void operator()(AVFormatContext *format) const { avformat_close_input(&format); }
};
using IoPtr = std::unique_ptr<AVIOContext, FreeIo>;
using FormatPtr = std::unique_ptr<AVFormatContext, CloseInput>;

const char *demuxerOf(Container container)
{
    switch (container) {
    case Container::Mpeg:
        return "mp3";
    case Container::Adts:
        return "aac";
    case Container::Latm:
        return "loas";
    case Container::Ac3:
        return "ac3";
    case Container::Flac:
        return "flac";
    case Container::OggVorbis:
    case Container::OggOpus:
    case Container::OggSpeex:
    case Container::OggFlac:
        return "ogg";
    case Container::Mp4:
        return "mp4";
    case Container::Wav:
    case Container::Rf64:
        return "wav";
    case Container::Wave64:
        return "w64";
    case Container::Caf:
        return "caf";
    case Container::Aiff:
        return "aiff";
    case Container::MonkeysAudio:
        return "ape";
    case Container::WavPack:
        return "wv";
    case Container::Musepack:
        return "mpc8";
    case Container::TrueAudio:
        return "tta";
    case Container::Asf:
        return "asf";
    case Container::Matroska:
        return "matroska";
    case Container::Dsf:
        return "dsf";
    case Container::Dsdiff:
        return "iff";
    }
    return "";
}

FormatPtr opened(AVIOContext &io, Source &source, const AVInputFormat *demuxer)
{
    auto *format = avformat_alloc_context();
    if (!format)
        return nullptr;
    format->pb = &io;
    format->flags |= AVFMT_FLAG_CUSTOM_IO;
    format->interrupt_callback = {isTooLate, &source};
    format->io_open = refuseToOpen;
    format->max_analyze_duration = AV_TIME_BASE;
    format->probesize = 1 << 20;
    format->max_streams = 64;
    if (avformat_open_input(&format, "", demuxer, nullptr) < 0) // frees the context when it fails
        return nullptr;
    return FormatPtr(format);
}

void addMetadata(TagFields &fields, const AVDictionary *metadata, int rank)
{
    const AVDictionaryEntry *entry = nullptr;
    while ((entry = av_dict_get(metadata, "", entry, AV_DICT_IGNORE_SUFFIX))) {
        std::string key(entry->key);
        std::ranges::transform(key, key.begin(), [](unsigned char c) { return std::toupper(c); });
        if (const auto meaning = freeFormName(key))
            fields.add(meaning->field, QString::fromUtf8(entry->value), meaning->rank + rank);
    }
}

/// In a video the first track may be something else: look for one with sound.
bool takeStreams(MusicContent &content, const AVFormatContext &format)
{
    bool hasSound = false;
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        const auto &stream = *format.streams[i];
        if (stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
            hasSound = true;
            if (stream.duration > 0)
                content.durationSeconds = std::max(
                    content.durationSeconds, static_cast<double>(stream.duration) * av_q2d(stream.time_base));
            addMetadata(content.fields, stream.metadata, 20);
        } else if ((stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0 && content.picture.isEmpty()) {
            content.picture =
                TagLib::ByteVector(reinterpret_cast<const char *>(stream.attached_pic.data),
                                   static_cast<unsigned>(std::max(0, stream.attached_pic.size)));
        }
    }
    return hasSound;
}

} // namespace

MusicContent avContent(MusicFile &file, Container container)
{
    constexpr int bufferSize = 32 * 1024;
    static const bool isQuiet = (av_log_set_level(AV_LOG_QUIET), true); // damaged files are reported by us
    Q_UNUSED(isQuiet)
    const auto *demuxer = av_find_input_format(demuxerOf(container));
    auto *buffer = static_cast<unsigned char *>(av_malloc(bufferSize));
    if (!demuxer || !buffer) {
        av_free(buffer);
        return {};
    }
    Source source{.file = file};
    const IoPtr io(avio_alloc_context(buffer, bufferSize, 0, &source, readPacket, nullptr, seekTo));
    const auto format = io ? opened(*io, source, demuxer) : nullptr;
    if (!format)
        return {};

    MusicContent content;
    bool hasSound = takeStreams(content, *format);
    const auto wholeSeconds = [&] {
        return format->duration > 0 ? static_cast<double>(format->duration) / AV_TIME_BASE : 0;
    };
    if (content.durationSeconds <= 0)
        content.durationSeconds = wholeSeconds();
    if ((!hasSound || content.durationSeconds <= 0) &&
        avformat_find_stream_info(format.get(), nullptr) >= 0) {
        hasSound = takeStreams(content, *format);
        if (content.durationSeconds <= 0)
            content.durationSeconds = wholeSeconds();
    }
    addMetadata(content.fields, format->metadata, 0);
    if (!hasSound)
        content.durationSeconds = 0;
    return content;
}

} // namespace trackwise
