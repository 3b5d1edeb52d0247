// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"

#include <QStringList>

#include <random>
#include <vector>

namespace trackwise {

class SongStore;

/// Songs that no file has, with words as unevenly frequent as those of real titles: the same ones each time.
class MadeUpSongs
{
public:
    MadeUpSongs();
    [[nodiscard]] std::vector<ScannedSong> next(int count);

private:
    [[nodiscard]] QString word();
    [[nodiscard]] QString phrase(int longest);
    [[nodiscard]] SongTags tags();
    void startAlbum();

    std::mt19937_64 m_random{20240601};
    QStringList m_words;
    std::vector<double> m_weights;
    std::discrete_distribution<int> m_pick;
    QStringList m_artists;
    QString m_artist;
    QString m_album;
    int m_leftOfAlbum = 0;
    int m_count = 0;
};

/// Writes that many of them, and makes them searchable. Stops the program where that fails.
void writeMadeUpSongs(SongStore &store, int count);

/// What somebody looking for music might type, letter after letter: rare and frequent words, several words,
/// other scripts.
[[nodiscard]] QStringList typedTexts();

} // namespace trackwise
