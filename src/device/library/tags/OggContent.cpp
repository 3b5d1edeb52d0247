// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerContents.h"
#include "device/library/tags/Dialects.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <string_view>

namespace trackwise {

namespace {

constexpr qint64 longestText = qint64{2} * 1024 * 1024;
constexpr qint64 largestComment = qint64{16} * 1024 * 1024; ///< without the pictures

/// A packet's bytes, which lie in pieces among the headers of pages.
class Packet
{
public:
    Packet(MusicFile &file, const std::vector<AudioExtent> &pieces)
        : m_file(file)
        , m_pieces(pieces)
    {
        for (const auto &piece : pieces)
            m_left += piece.size;
    }

    [[nodiscard]] qint64 left() const { return m_left; }

    QByteArray take(qint64 count)
    {
        QByteArray bytes(std::clamp<qint64>(count, 0, m_left), Qt::Uninitialized);
        qint64 done = 0;
        while (done < bytes.size()) {
            const auto &piece = m_pieces[m_piece];
            const auto some = std::min(bytes.size() - done, piece.size - m_inPiece);
            const auto seen = m_file.view(piece.offset + m_inPiece, some);
            if (seen.empty() && some > 0)
                break;
            std::copy(seen.begin(), seen.end(), bytes.begin() + done);
            done += static_cast<qint64>(seen.size());
            advance(static_cast<qint64>(seen.size()));
        }
        bytes.truncate(done);
        return bytes;
    }

    void skip(qint64 count)
    {
        count = std::clamp<qint64>(count, 0, m_left);
        while (count > 0) {
            const auto some = std::min(count, m_pieces[m_piece].size - m_inPiece);
            advance(some);
            count -= some;
        }
    }

private:
    void advance(qint64 count)
    {
        m_inPiece += count;
        m_left -= count;
        while (m_piece < m_pieces.size() && m_inPiece == m_pieces[m_piece].size) {
            ++m_piece;
            m_inPiece = 0;
        }
    }

    MusicFile &m_file;
    const std::vector<AudioExtent> &m_pieces;
    std::size_t m_piece = 0;
    qint64 m_inPiece = 0;
    qint64 m_left = 0;
};

qint64 length(Packet &packet)
{
    const auto bytes = packet.take(4);
    return static_cast<qint64>(littleEndian(
        {reinterpret_cast<const std::uint8_t *>(bytes.constData()), static_cast<std::size_t>(bytes.size())},
        0, 4));
}

QByteArray littleEndian32(qint64 value)
{
    QByteArray bytes(4, '\0');
    for (auto &byte : bytes) {
        byte = static_cast<char>(value & 0xff);
        value >>= 8;
    }
    return bytes;
}

/// What stands before the comments depends on the codec.
void skipSignature(Packet &packet, Container container)
{
    switch (container) {
    case Container::OggVorbis: // "\3vorbis"
        return packet.skip(7);
    case Container::OggOpus: // "OpusTags"
        return packet.skip(8);
    case Container::OggFlac: // a metadata block's header
        return packet.skip(4);
    default:
        return;
    }
}

/// Base64 piece by piece: a cover of 50 MB is not to stand in memory three times.
TagLib::ByteVector unpacked(Packet &packet, qint64 length)
{
    constexpr qint64 pieceSize = qint64{1024} * 1024; // of whole groups of four
    TagLib::ByteVector picture;
    while (length > 0) {
        const auto text = packet.take(std::min(length, pieceSize));
        if (text.isEmpty())
            break;
        const auto bytes = QByteArray::fromBase64(text);
        const auto at = picture.size();
        picture.resize(at + static_cast<unsigned>(bytes.size()));
        std::copy(bytes.begin(), bytes.end(), picture.begin() + at);
        length -= text.size();
    }
    return picture;
}

/// The comments without their pictures, as one packet, and the best picture.
struct Comments
{
    QByteArray texts;
    TagLib::ByteVector picture;
};

void takePicture(Comments &comments, bool &isFront, Packet &packet, qint64 length)
{
    constexpr qint64 largestPicture = qint64{96} * 1024 * 1024; // 72 MB when it is unpacked
    constexpr char frontCover = 3;
    constexpr qint64 kindLength = 8; // eight characters hold the four bytes of the kind
    const auto start = packet.take(std::min(length, kindLength));
    const auto kind = QByteArray::fromBase64(start);
    const bool isBetter =
        comments.picture.isEmpty() || (!isFront && kind.startsWith(QByteArray("\0\0\0\3", 4)));
    if (length <= kindLength || length > largestPicture || !isBetter)
        return packet.skip(length - start.size());
    auto block = TagLib::ByteVector(kind.constData(), static_cast<unsigned>(kind.size()));
    block.append(unpacked(packet, length - kindLength));
    TagLib::FLAC::Picture picture;
    if (picture.parse(block) && !picture.data().isEmpty()) {
        comments.picture = picture.data();
        isFront = picture.type() == frontCover;
    }
}

/// Vendor, number of comments, comments of length and "KEY=value" (Vorbis I, section 5).
Comments commentsOf(Packet &packet)
{
    static constexpr std::string_view pictureKey = "METADATA_BLOCK_PICTURE=";
    constexpr qint64 mostComments = 20'000;
    Comments comments;
    packet.skip(length(packet));
    const auto count = std::min(length(packet), mostComments);
    bool isFront = false;
    qint64 kept = 0;
    for (qint64 i = 0; i < count && packet.left() > 4; ++i) {
        const auto size = std::min(length(packet), packet.left());
        auto text = packet.take(std::min<qint64>(size, pictureKey.size()));
        if (text.toUpper() == QByteArrayView(pictureKey)) {
            takePicture(comments, isFront, packet, size - text.size());
        } else {
            const auto rest = size - text.size();
            text += packet.take(std::min(rest, longestText));
            packet.skip(size - text.size());
            if (comments.texts.size() + text.size() > largestComment)
                break;
            comments.texts += littleEndian32(text.size()) + text;
            ++kept;
        }
    }
    comments.texts.prepend(littleEndian32(0) + littleEndian32(kept));
    return comments;
}

} // namespace

MusicContent oggContent(MusicFile &file, const MusicLayout &layout)
{
    Packet packet(file, layout.comment);
    skipSignature(packet, layout.container);
    const auto comments = commentsOf(packet);
    TagLib::Ogg::XiphComment parsed(
        TagLib::ByteVector(comments.texts.constData(), static_cast<unsigned>(comments.texts.size())));
    MusicContent content{.picture = comments.picture, .durationSeconds = layout.soundSeconds};
    content.takeFrom(xiphFields(parsed), bestPicture(parsed.pictureList()));
    return content;
}

} // namespace trackwise
