// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundSource.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace trackwise {

namespace {

constexpr int bufferSize = 64 * 1024;

/// The containers of sound. Playlists and scripts, which lead elsewhere, are not among them.
constexpr char containers[] =
    "aac,ac3,aiff,amr,ape,asf,au,avi,caf,dsf,eac3,flac,flv,iff,loas,matroska,mov,mp3,mpc,mpc8,mpeg,mpegts,"
    "ogg,rso,sox,tak,tta,voc,w64,wav,wv,xwma";

/// Decoders of sound alone: to find out about a file libavformat would decode its pictures too.
const std::string &soundDecoders()
{
    static const std::string names = [] {
        std::string all;
        void *place = nullptr;
        while (const AVCodec *codec = av_codec_iterate(&place)) {
            if (codec->type == AVMEDIA_TYPE_AUDIO && av_codec_is_decoder(codec) != 0)
                all += std::string(all.empty() ? "" : ",") + codec->name;
        }
        return all;
    }();
    return names;
}

int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EPERM);
}

Failure failureToOpen(int error)
{
    const QString detail = QString::fromLocal8Bit(std::strerror(error));
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
        return {FailureKind::NotFound, detail};
    case ENXIO: // a socket, or a pipe without a partner
        return {FailureKind::Unsupported, QStringLiteral("not a regular file")};
    default:
        return {FailureKind::Unreadable, detail};
    }
}

} // namespace

void SoundSource::FreeIo::operator()(AVIOContext *io) const
{
    av_freep(&io->buffer);
    avio_context_free(&io);
}

Result<std::unique_ptr<SoundSource>> SoundSource::open(const QByteArray &path,
                                                       std::chrono::milliseconds patience)
{
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        return failureToOpen(errno);
    std::unique_ptr<SoundSource> source(new SoundSource(descriptor, patience));
    if (!source->isFile())
        return Failure{FailureKind::Unsupported, QStringLiteral("not a regular file")};
    return source;
}

Result<std::unique_ptr<SoundSource>> SoundSource::ofStream(int descriptor, std::chrono::milliseconds patience)
{
    const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    if (own < 0)
        return failureToOpen(errno);
    return std::unique_ptr<SoundSource>(new SoundSource(own, patience));
}

SoundSource::SoundSource(int descriptor, std::chrono::milliseconds patience)
    : m_descriptor(descriptor)
    , m_patience(patience)
{
    struct stat status = {};
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
        m_size = status.st_size;
    auto *buffer = static_cast<unsigned char *>(av_malloc(bufferSize));
    m_io.reset(avio_alloc_context(buffer, bufferSize, 0, this, &SoundSource::read, nullptr,
                                  isFile() ? &SoundSource::seek : nullptr));
    if (!m_io) {
        av_free(buffer);
        close(descriptor);
        throw std::bad_alloc();
    }
}

SoundSource::~SoundSource()
{
    close(m_descriptor);
}

InputPtr SoundSource::input()
{
    AVFormatContext *made = avformat_alloc_context();
    if (!made)
        return nullptr;
    made->pb = m_io.get();
    made->flags |= AVFMT_FLAG_CUSTOM_IO;
    made->io_open = refuseToOpen;
    made->interrupt_callback = {
        [](void *source) { return static_cast<SoundSource *>(source)->isTooLate() ? 1 : 0; }, this};
    made->max_streams = 64;
    // Freed with the input, and so they have to be libav's.
    made->format_whitelist = av_strdup(containers);
    made->protocol_whitelist = av_strdup("none");
    made->codec_whitelist = av_strdup(soundDecoders().c_str());
    if (avformat_open_input(&made, "", nullptr, nullptr) < 0) // frees it when it fails
        return nullptr;
    InputPtr input(made);
    return avformat_find_stream_info(made, nullptr) < 0 ? nullptr : std::move(input);
}

bool SoundSource::isTooLate()
{
    const auto now = Clock::now();
    m_busy += now - m_looked;
    m_looked = now;
    if (m_busy > m_patience && !m_failure)
        m_failure = Failure{FailureKind::Unavailable, QStringLiteral("reading it takes too long")};
    return m_failure.has_value();
}

int SoundSource::read(void *source, std::uint8_t *to, int length)
{
    auto &self = *static_cast<SoundSource *>(source);
    if (self.isTooLate())
        return AVERROR_EXIT;
    ssize_t count = 0;
    do {
        count = ::read(self.m_descriptor, to, std::size_t(length));
    } while (count < 0 && errno == EINTR);
    if (!self.isFile())
        self.m_looked = Clock::now();
    if (count < 0)
        self.m_failure = Failure{FailureKind::Unreadable, QString::fromLocal8Bit(std::strerror(errno))};
    return count > 0 ? int(count) : count == 0 ? AVERROR_EOF : AVERROR_EXIT;
}

std::int64_t SoundSource::seek(void *source, std::int64_t offset, int whence)
{
    const auto &self = *static_cast<SoundSource *>(source);
    if ((whence & AVSEEK_SIZE) != 0)
        return self.m_size;
    const off_t place = lseek(self.m_descriptor, offset, whence & ~AVSEEK_FORCE);
    return place < 0 ? AVERROR(errno) : place;
}

} // namespace trackwise
