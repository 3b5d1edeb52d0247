// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/MadeUpSongs.h"

#include "device/library/store/SongStore.h"

#include <algorithm>
#include <array>

namespace trackwise {

namespace {
constexpr int vocabulary = 20'000;
constexpr int artistCount = 40'000;
constexpr int longestAlbum = 18;

QStringList frequentWords()
{
    return QStringLiteral(
               "the of love you me my night a in time to day heart blue life one world song for on dance "
               "live fire rain light remix down home girl summer 夜 東京 さくら любовь ночь 사랑")
        .split(u' ');
}

QString inventedWord(std::mt19937_64 &random)
{
    static constexpr std::array onsets{"b", "d", "f", "g", "k", "l",  "m",  "n",
                                       "p", "r", "s", "t", "v", "ch", "st", "tr"};
    static constexpr std::array vowels{"a", "e", "i", "o", "u", "ai", "ea", "oo", "ö", "é"};
    QString word;
    const auto syllables = 1 + random() % 4;
    for (std::uint64_t i = 0; i < syllables; ++i) {
        word += QString::fromUtf8(onsets[random() % onsets.size()]);
        word += QString::fromUtf8(vowels[random() % vowels.size()]);
    }
    return word;
}
} // namespace

MadeUpSongs::MadeUpSongs()
    : m_words(frequentWords())
{
    while (m_words.size() < vocabulary)
        m_words << inventedWord(m_random);
    for (int i = 0; i < vocabulary; ++i)
        m_weights.push_back(1.0 / (i + 10)); // as words are distributed in any language
    m_pick = std::discrete_distribution<int>(m_weights.begin(), m_weights.end());
    for (int i = 0; i < artistCount; ++i)
        m_artists << phrase(3);
}

QString MadeUpSongs::word()
{
    QString word = m_words[m_pick(m_random)];
    word[0] = word[0].toUpper();
    return word;
}

QString MadeUpSongs::phrase(int longest)
{
    QString text = word();
    for (auto more = m_random() % static_cast<unsigned>(longest); more > 0; --more)
        text += u' ' + word();
    return text;
}

void MadeUpSongs::startAlbum()
{
    m_leftOfAlbum = 1 + static_cast<int>(m_random() % longestAlbum);
    m_artist = m_artists[static_cast<qsizetype>(m_random() % artistCount)];
    m_album = phrase(4);
}

SongTags MadeUpSongs::tags()
{
    if (m_leftOfAlbum-- == 0)
        startAlbum();
    SongTags tags;
    tags.title = phrase(5);
    tags.artists = {m_artist};
    tags.albumTitle = m_album;
    tags.albumArtist = m_artist;
    if (m_random() % 3 == 0)
        tags.composer = phrase(3);
    tags.durationSeconds = 180;
    tags.trackNumber = static_cast<unsigned>(m_leftOfAlbum + 1);
    tags.catalogID = QString::number(1'000'000'000 + m_count);
    tags.audioHash = m_random();
    return tags;
}

std::vector<ScannedSong> MadeUpSongs::next(int count)
{
    std::vector<ScannedSong> songs;
    for (int i = 0; i < count; ++i) {
        ++m_count;
        const auto number = static_cast<std::uint64_t>(m_count);
        songs.push_back(
            {{"/music/folder " + QByteArray::number(m_count / 12), QByteArray::number(m_count) + ".flac"},
             {{1, number}, 1000, m_count},
             tags()});
    }
    return songs;
}

void writeMadeUpSongs(SongStore &store, int count)
{
    MadeUpSongs songs;
    constexpr int batch = 1000;
    for (int written = 0; written < count; written += batch) {
        const auto next = songs.next(std::min(batch, count - written));
        const Instant when(std::chrono::seconds{written});
        if (const auto result = store.write(next, {}, when); !result)
            qFatal("%s", qPrintable(result.failure().detail));
    }
    while (*store.indexNext(10'000)) {
    }
}

QStringList typedTexts()
{
    return QStringLiteral("love|the night|a b c|the of a|heart of the|t d|stea|trea l|zzzz|9|東京|さくら "
                          "夜|любовь|사랑|a a a a a")
        .split(u'|');
}

} // namespace trackwise
