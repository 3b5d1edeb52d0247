// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Id3Frames.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <string_view>

namespace trackwise {

namespace {

using namespace std::string_view_literals;

constexpr qint64 tagHeaderSize = 10;
constexpr int mostFrames = 20'000;
constexpr int mostKept = 1000;
constexpr qint64 largestText = qint64{2} * 1024 * 1024;
constexpr qint64 largestPicture = qint64{64} * 1024 * 1024;
constexpr qint64 largestCompressed = qint64{64} * 1024; ///< 1 to 1032 at most: 66 MB when it is unpacked

struct Renamed
{
    std::string_view from;
    std::string_view to;
};

/// Frames of ID3v2.2 by the names of ID3v2.3.
constexpr std::array renamed = {
    Renamed{"CNT", "PCNT"}, Renamed{"COM", "COMM"}, Renamed{"GP1", "GRP1"}, Renamed{"PIC", "APIC"},
    Renamed{"POP", "POPM"}, Renamed{"SLT", "SYLT"}, Renamed{"TAL", "TALB"}, Renamed{"TBP", "TBPM"},
    Renamed{"TCM", "TCOM"}, Renamed{"TCO", "TCON"}, Renamed{"TCP", "TCMP"}, Renamed{"TCR", "TCOP"},
    Renamed{"TDA", "TDAT"}, Renamed{"TIM", "TIME"}, Renamed{"TKE", "TKEY"}, Renamed{"TOR", "TORY"},
    Renamed{"TP1", "TPE1"}, Renamed{"TP2", "TPE2"}, Renamed{"TPA", "TPOS"}, Renamed{"TPB", "TPUB"},
    Renamed{"TRC", "TSRC"}, Renamed{"TRD", "TDRC"}, Renamed{"TRK", "TRCK"}, Renamed{"TS2", "TSO2"},
    Renamed{"TSA", "TSOA"}, Renamed{"TSC", "TSOC"}, Renamed{"TSP", "TSOP"}, Renamed{"TST", "TSOT"},
    Renamed{"TT1", "TIT1"}, Renamed{"TT2", "TIT2"}, Renamed{"TXX", "TXXX"}, Renamed{"TYE", "TYER"},
    Renamed{"UFI", "UFID"}, Renamed{"ULT", "USLT"},
};

/// Seven bits a byte (ID3v2.4 structure, section 6.2).
qint64 synchsafe(MusicFile::Bytes bytes, std::size_t at)
{
    qint64 value = 0;
    for (std::size_t i = at; i < at + 4 && i < bytes.size(); ++i)
        value = value << 7 | (bytes[i] & 0x7f);
    return value;
}

MusicFile::Bytes bytesOf(const QByteArray &bytes)
{
    return {reinterpret_cast<const std::uint8_t *>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}

/// Takes out the zeros that keep players from seeing a frame of sound (section 6.1).
QByteArray synchronised(QByteArray bytes)
{
    return bytes.replace(QByteArray("\xff\0", 2), QByteArray("\xff", 1));
}

/// The frames' bytes: on the disk, or in memory where all of the tag is written without sync bytes.
class Source
{
public:
    Source(MusicFile &file, const Id3Header &header, qint64 end)
        : m_file(file)
        , m_begin(header.framesBegin)
        , m_size(std::max<qint64>(0, std::min(header.framesEnd, end) - header.framesBegin))
    {
        constexpr int unsynchronised = 0x80;
        if (header.version < 4 && (header.flags & unsynchronised) != 0) {
            m_decoded = synchronised(read(0, std::min(m_size, largestPicture)));
            m_size = m_decoded.size();
        }
    }

    [[nodiscard]] qint64 size() const { return m_size; }
    [[nodiscard]] QByteArray read(qint64 at, qint64 length) const
    {
        length = std::clamp<qint64>(m_size - at, 0, length);
        if (!m_decoded.isNull())
            return m_decoded.mid(at, length);
        if (length <= 1024) {
            const auto bytes = m_file.view(m_begin + at, length);
            return {reinterpret_cast<const char *>(bytes.data()), static_cast<qsizetype>(bytes.size())};
        }
        QByteArray bytes(length, Qt::Uninitialized);
        bytes.truncate(m_file.read(m_begin + at, bytes.data(), length));
        return bytes;
    }

private:
    MusicFile &m_file;
    qint64 m_begin;
    qint64 m_size;
    QByteArray m_decoded;
};

bool isUpperCase(QByteArrayView id)
{
    return std::ranges::all_of(id, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

struct Frame
{
    QByteArray id; ///< as of ID3v2.3 or later; empty when it is of no use
    qint64 content = 0;
    qint64 size = 0;
    QByteArray flags = QByteArray(2, '\0');
    qint64 prefix = 0; ///< of the content: what flags tell about it
    bool isUnsynchronised = false;
    bool isCompressed = false;

    [[nodiscard]] qint64 end() const { return content + size; }
};

class Walk
{
public:
    Walk(const Source &source, const Id3Header &header)
        : m_source(source)
        , m_version(header.version)
        , m_isUnsynchronised(header.version == 4 && (header.flags & 0x80) != 0)
        , m_at((header.flags & 0x40) != 0 ? behindExtendedHeader() : 0)
    {}

    /// The next frame; nothing where padding begins, or what cannot be a frame.
    std::optional<Frame> next()
    {
        const auto frame = frameAt(m_at);
        if (frame)
            m_at = frame->end();
        return frame;
    }

private:
    [[nodiscard]] qint64 headerSize() const { return m_version == 2 ? 6 : 10; }
    [[nodiscard]] bool isFrameAt(qint64 at) const
    {
        const auto id = m_source.read(at, m_version == 2 ? 3 : 4);
        return at + headerSize() < m_source.size() && isUpperCase(id);
    }

    /// Its size counts itself in ID3v2.4 and does not in ID3v2.3; not every program has it that way, and some
    /// set the flag alone.
    [[nodiscard]] qint64 behindExtendedHeader() const
    {
        const auto start = m_source.read(0, 4);
        const auto plain = static_cast<qint64>(bigEndian(bytesOf(start), 0, 4));
        const auto safe = synchsafe(bytesOf(start), 0);
        const auto asTold = m_version == 4 ? safe : plain + 4;
        for (const auto at : {qint64{0}, asTold, plain, plain + 4, safe + 4}) {
            if (isFrameAt(at))
                return at;
        }
        return asTold;
    }

    /// Some write plain numbers in ID3v2.4 too: what stands behind the frame tells.
    [[nodiscard]] qint64 sizeFrom(MusicFile::Bytes header, qint64 content) const
    {
        if (m_version == 2)
            return static_cast<qint64>(bigEndian(header, 3, 3));
        const auto plain = static_cast<qint64>(bigEndian(header, 4, 4));
        if (m_version == 3)
            return plain;
        const auto safe = synchsafe(header, 4);
        const auto fits = [&](qint64 size) {
            return content + size == m_source.size() || isFrameAt(content + size);
        };
        return plain != safe && !fits(safe) && fits(plain) ? plain : safe;
    }

    [[nodiscard]] std::optional<Frame> frameAt(qint64 at) const
    {
        const auto header = m_source.read(at, headerSize());
        if (header.size() < headerSize() || header[0] == '\0')
            return std::nullopt;
        Frame frame{.content = at + headerSize()};
        frame.size = sizeFrom(bytesOf(header), frame.content);
        if (frame.size > m_source.size() - frame.content)
            return std::nullopt;
        frame.id = idFrom(header);
        if (m_version > 2)
            takeFlags(frame, header.mid(8, 2));
        return frame;
    }

    /// Lower case counts as upper; ID3v2.2's three letters also stand in later tags, with a blank or zero.
    [[nodiscard]] QByteArray idFrom(const QByteArray &header) const
    {
        auto id = header.left(m_version == 2 ? 3 : 4).toUpper();
        if (id.endsWith('\0') || id.endsWith(' '))
            id.chop(1);
        if (id.size() == 3) {
            const auto found =
                std::ranges::lower_bound(renamed, std::string_view(id.constData(), 3), {}, &Renamed::from);
            const bool isKnown = found != renamed.end() && id == QByteArrayView(found->from);
            return isKnown ? QByteArrayView(found->to).toByteArray() : QByteArray();
        }
        return isUpperCase(id) ? id : QByteArray();
    }

    /// ID3v2.3, section 3.3.1; ID3v2.4 structure, section 4.1.
    void takeFlags(Frame &frame, const QByteArray &flags) const
    {
        const auto format = static_cast<unsigned char>(flags[1]);
        const bool isLater = m_version > 3;
        frame.flags = flags;
        frame.isCompressed = (format & (isLater ? 0x08 : 0x80)) != 0;
        if ((format & (isLater ? 0x04 : 0x40)) != 0) // encrypted
            frame.id.clear();
        frame.prefix = (format & (isLater ? 0x40 : 0x20)) != 0 ? 1 : 0; // group
        frame.prefix += isLater && (format & 0x01) != 0 ? 4 : 0;        // length
        frame.isUnsynchronised = m_isUnsynchronised || (isLater && (format & 0x02) != 0);
        if (m_isUnsynchronised)
            frame.flags[1] = static_cast<char>(format | 0x02);
    }

    const Source &m_source;
    int m_version;
    bool m_isUnsynchronised;
    qint64 m_at;
};

bool isRead(const QByteArray &id)
{
    static constexpr std::array others = {"COMM"sv, "GRP1"sv, "PCNT"sv, "POPM"sv,
                                          "SYLT"sv, "UFID"sv, "USLT"sv};
    return id.startsWith('T') ||
           std::ranges::find(others, std::string_view(id.constData(), static_cast<std::size_t>(id.size()))) !=
               others.end();
}

/// A text in UTF-16 must say its byte order first. Where it does not: the bytes that are zero are the high
/// ones.
QByteArray withByteOrder(const QByteArray &text)
{
    if (text.size() < 2 || text.startsWith("\xff\xfe") || text.startsWith("\xfe\xff"))
        return text;
    int first = 0;
    int second = 0;
    for (qsizetype i = 0; i + 1 < text.size(); i += 2) {
        first += text[i] == '\0' ? 1 : 0;
        second += text[i + 1] == '\0' ? 1 : 0;
    }
    return (first > second ? "\xfe\xff" : "\xff\xfe") + text;
}

/// Where a text in two-byte units ends.
qsizetype wideZero(const QByteArray &bytes, qsizetype from)
{
    while (from + 1 < bytes.size() && (bytes[from] != '\0' || bytes[from + 1] != '\0'))
        from += 2;
    return std::min(from, bytes.size());
}

/// The content of a frame of texts, each of which says its byte order.
QByteArray withByteOrders(const QByteArray &id, const QByteArray &content)
{
    constexpr char utf16 = 1;
    const bool isWorded = id == "COMM" || id == "USLT"; // with three letters of language
    if (!(id.startsWith('T') || id == "GRP1" || isWorded) || !content.startsWith(utf16))
        return content;
    qsizetype at = isWorded ? 4 : 1;
    auto result = content.left(at);
    while (at < content.size()) {
        const auto end = wideZero(content, at);
        result += withByteOrder(content.mid(at, end - at));
        result += content.mid(end, 2);
        at = end + 2;
    }
    return result;
}

/// What a picture's frame holds before the picture (ID3v2.4 frames, section 4.14).
struct PictureHead
{
    int type = 0;
    qsizetype size = 0;
};

std::optional<PictureHead> pictureHead(const QByteArray &content, int version)
{
    const auto type = version == 2 ? 4 : content.indexOf('\0', 1) + 1;
    if (type < 2 || type >= content.size())
        return std::nullopt;
    // An empty description of wide characters is often ended by one zero alone.
    const bool isEmptyAndShort =
        content.mid(type + 1, 1) == QByteArray(1, '\0') && content.mid(type + 2, 1) != QByteArray(1, '\0');
    const bool isWide = (content[0] == 1 || content[0] == 2) && !isEmptyAndShort;
    const auto zero = isWide ? wideZero(content, type + 1) : content.indexOf('\0', type + 1);
    const auto size = zero + (isWide ? 2 : 1);
    if (zero < 0 || size > content.size())
        return std::nullopt;
    return PictureHead{content[type], size};
}

class Collector
{
public:
    Collector(const Source &source, int version)
        : m_source(source)
        , m_version(version)
    {}

    void take(const Frame &frame)
    {
        if (frame.size <= frame.prefix)
            return;
        if (frame.id == "APIC")
            takePicture(frame);
        else if (isRead(frame.id) && m_kept < mostKept)
            keep(frame);
    }

    [[nodiscard]] Id3Frames result() &&
    {
        const auto version = static_cast<char>(m_version == 4 ? 4 : 3);
        const auto tag =
            "ID3" + QByteArray(1, version) + QByteArray(2, '\0') + safeSize(m_frames.size()) + m_frames;
        return {TagLib::ByteVector(tag.constData(), static_cast<unsigned>(tag.size())), m_picture};
    }

private:
    [[nodiscard]] static QByteArray number(qint64 value, int bits)
    {
        QByteArray bytes(4, '\0');
        for (int i = 3; i >= 0; --i, value >>= bits)
            bytes[i] = static_cast<char>(value & ((1 << bits) - 1));
        return bytes;
    }
    [[nodiscard]] static QByteArray safeSize(qint64 size) { return number(size, 7); }

    [[nodiscard]] QByteArray contentOf(const Frame &frame, qint64 limit) const
    {
        auto content =
            m_source.read(frame.content + frame.prefix, std::min(frame.size - frame.prefix, limit));
        return frame.isUnsynchronised ? synchronised(std::move(content)) : content;
    }

    void keep(const Frame &frame)
    {
        if (frame.isCompressed) {
            if (frame.size <= largestCompressed)
                append(frame.id, frame.flags, m_source.read(frame.content, frame.size));
        } else if (const auto content = contentOf(frame, largestText); !content.isEmpty()) {
            append(frame.id == "TCON" ? QByteArray(id3GenreFrame) : frame.id, QByteArray(2, '\0'),
                   withByteOrders(frame.id, content));
        }
    }

    void append(const QByteArray &id, const QByteArray &flags, const QByteArray &content)
    {
        constexpr qint64 largestTag = qint64{16} * 1024 * 1024;
        if (m_frames.size() + content.size() > largestTag)
            return;
        m_frames += id + number(content.size(), m_version == 4 ? 7 : 8) + flags + content;
        ++m_kept;
    }

    void takePicture(const Frame &frame)
    {
        constexpr int frontCover = 3;
        constexpr qint64 longestHead = 4096;
        const auto head = pictureHead(contentOf(frame, longestHead), m_version);
        if (!head || frame.isCompressed || frame.size > largestPicture ||
            !(m_picture.isEmpty() || (head->type == frontCover && !m_isFront)))
            return;
        const auto content = contentOf(frame, largestPicture);
        if (content.size() <= head->size)
            return;
        m_picture = TagLib::ByteVector(content.constData() + head->size,
                                       static_cast<unsigned>(content.size() - head->size));
        m_isFront = head->type == frontCover;
    }

    const Source &m_source;
    int m_version;
    int m_kept = 0;
    QByteArray m_frames;
    TagLib::ByteVector m_picture;
    bool m_isFront = false;
};

} // namespace

std::optional<Id3Header> id3HeaderAt(MusicFile &file, qint64 at)
{
    const auto bytes = file.view(at, tagHeaderSize);
    if (bytes.size() < tagHeaderSize || !stands(bytes, 0, "ID3") || bytes[3] == 0xff || bytes[4] == 0xff ||
        ((bytes[6] | bytes[7] | bytes[8] | bytes[9]) & 0x80) != 0)
        return std::nullopt;
    Id3Header header{.version = bytes[3], .flags = bytes[5], .framesBegin = at + tagHeaderSize};
    header.framesEnd = header.framesBegin + synchsafe(bytes, 6);
    header.end = header.framesEnd + ((header.flags & 0x10) != 0 ? tagHeaderSize : 0);
    return header;
}

Id3Frames id3Frames(MusicFile &file, qint64 at, qint64 end)
{
    const auto header = id3HeaderAt(file, at);
    const bool isPacked = header && header->version == 2 && (header->flags & 0x40) != 0; // nobody knows how
    if (!header || header->version < 2 || header->version > 4 || isPacked)
        return {};
    const Source source(file, *header, end);
    Walk walk(source, *header);
    Collector collector(source, header->version);
    for (int count = 0; count < mostFrames; ++count) {
        const auto frame = walk.next();
        if (!frame)
            break;
        collector.take(*frame);
    }
    return std::move(collector).result();
}

} // namespace trackwise
