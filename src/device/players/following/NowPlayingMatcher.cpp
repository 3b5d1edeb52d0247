// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/NowPlayingMatcher.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

#include <sys/stat.h>

#include <algorithm>

namespace trackwise {

using std::chrono::milliseconds;

namespace {

constexpr milliseconds lengthTolerance{3000};
constexpr int mostCandidates = 1000; ///< "Intro" is the title of many songs
constexpr int mostSimilar = 200;

/// What a player says, folded for comparing.
struct Wanted
{
    QString title;
    QStringList artists;
    QString album;
    milliseconds length;
};

/// The names in a text that may join several: "a & b", "a feat. b", "a; b".
QStringList namesIn(const QString &folded)
{
    static const QRegularExpression separators(
        QStringLiteral("\\s*(?:;|,|/|\\s&\\s|\\sx\\s|\\s(?:feat|ft|featuring|vs)\\b\\.?)\\s*"));
    QStringList names = folded.split(separators, Qt::SkipEmptyParts);
    if (!folded.isEmpty() && !names.contains(folded))
        names << folded;
    return names;
}

bool artistsAgree(const Wanted &wanted, const SongCandidate &song)
{
    if (wanted.artists.isEmpty())
        return song.foldedArtist.isEmpty() && song.foldedAlbumArtist.isEmpty();
    const QStringList names = namesIn(song.foldedArtist) + namesIn(song.foldedAlbumArtist);
    return std::any_of(wanted.artists.begin(), wanted.artists.end(),
                       [&names](const QString &artist) { return names.contains(artist); });
}

milliseconds lengthDifference(const Wanted &wanted, const SongCandidate &song)
{
    if (wanted.length.count() == 0 || song.length.count() == 0)
        return milliseconds(0); // one of them does not know: no contradiction
    return std::chrono::abs(wanted.length - song.length);
}

std::optional<PersistentID> bestOf(const Wanted &wanted, std::vector<SongCandidate> songs)
{
    std::erase_if(songs, [&wanted](const SongCandidate &song) {
        return !artistsAgree(wanted, song) || lengthDifference(wanted, song) > lengthTolerance;
    });
    const auto closer = [&wanted](const SongCandidate &a, const SongCandidate &b) {
        return lengthDifference(wanted, a) < lengthDifference(wanted, b);
    };
    if (!wanted.album.isEmpty()) {
        std::vector<SongCandidate> onAlbum = songs;
        std::erase_if(onAlbum,
                      [&wanted](const SongCandidate &song) { return song.foldedAlbum != wanted.album; });
        const auto best = std::min_element(onAlbum.begin(), onAlbum.end(), closer); // copies: the closest
        if (best != onAlbum.end())
            return best->id;
    }
    return songs.size() == 1 ? std::optional(songs.front().id) : std::nullopt;
}

/// The parts of "Artist - Title", which streams put into the title.
std::optional<Wanted> splitTitle(const Wanted &wanted)
{
    const QString dash = QStringLiteral(" - ");
    const qsizetype at = wanted.title.indexOf(dash);
    if (!wanted.artists.isEmpty() || at <= 0)
        return std::nullopt;
    Wanted split = wanted;
    split.artists = namesIn(wanted.title.left(at));
    split.title = wanted.title.mid(at + dash.size());
    return split;
}

} // namespace

std::optional<PersistentID> NowPlayingMatcher::match(const TrackMetadata &track) const
{
    if (const auto song = byFile(track))
        return song;
    if (const auto song = byIdentifier(track))
        return song;
    return byTexts(track);
}

std::optional<PersistentID> NowPlayingMatcher::byFile(const TrackMetadata &track) const
{
    const QByteArray path = localPath(track.url);
    if (path.isEmpty())
        return std::nullopt;
    if (const auto song = m_library.idOfPath(path))
        return song;
    struct stat status
    {};
    if (::stat(path.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return m_library.idOfFile({status.st_dev, status.st_ino});
}

std::optional<PersistentID> NowPlayingMatcher::byIdentifier(const TrackMetadata &track) const
{
    if (const QString identifier = catalogIdentifierIn(track.url); !identifier.isEmpty()) {
        if (const auto song = m_library.idOfCatalogID(identifier))
            return song;
    }
    return track.musicBrainzId.isEmpty() ? std::nullopt : m_library.idOfMusicBrainzID(track.musicBrainzId);
}

std::optional<PersistentID> NowPlayingMatcher::byTexts(const TrackMetadata &track) const
{
    Wanted wanted{m_library.folded(track.title), {}, m_library.folded(track.albumTitle), track.length};
    if (wanted.title.isEmpty())
        return std::nullopt;
    for (const QString &artist : track.artists.isEmpty() ? track.albumArtists : track.artists)
        wanted.artists += namesIn(m_library.folded(artist));

    std::vector<Wanted> readings{wanted};
    if (auto split = splitTitle(wanted))
        readings.push_back(*std::move(split));
    for (const Wanted &reading : readings) {
        if (const auto song = bestOf(reading, m_library.songsTitled(reading.title, mostCandidates)))
            return song;
    }
    for (const Wanted &reading : readings) {
        if (const auto song = bestOf(reading, similarlyTitled(withoutEdition(reading.title))))
            return song;
    }
    return std::nullopt;
}

/// Songs whose title is @p strippedTitle but for additions of an edition.
std::vector<SongCandidate> NowPlayingMatcher::similarlyTitled(const QString &strippedTitle) const
{
    std::vector<SongCandidate> songs = m_library.songsTitled(strippedTitle, mostCandidates);
    for (SongCandidate &song :
         m_library.songsWithTitlePrefix(strippedTitle + QLatin1Char(' '), mostSimilar)) {
        if (withoutEdition(song.foldedTitle) == strippedTitle)
            songs.push_back(std::move(song));
    }
    return songs;
}

QString catalogIdentifierIn(const QString &url)
{
    const QUrl address(url, QUrl::StrictMode);
    if (address.scheme() != QLatin1String("https") && address.scheme() != QLatin1String("http"))
        return {};
    const auto isNumber = [](const QString &text) {
        return !text.isEmpty() &&
               std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    };
    // The song on an album's page, or a page of its own: /album/<name>/<album>?i=<song>, /song/<name>/<song>
    if (const QString song = QUrlQuery(address).queryItemValue(QStringLiteral("i")); isNumber(song))
        return song;
    const QStringList parts = address.path().split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return parts.contains(QStringLiteral("song")) && isNumber(parts.constLast()) ? parts.constLast()
                                                                                 : QString();
}

QString withoutEdition(const QString &foldedTitle)
{
    static const QString words = QStringLiteral(
        "\\b(?:(?:\\d{4}\\s)?(?:digital(?:ly)?\\s)?re-?master(?:ed)?|live|mono|stereo|deluxe|bonus|explicit|"
        "clean|"
        "feat|ft|featuring|(?:single|album|radio|original|extended|\\d{4})\\s(?:version|edit|mix))\\b");
    static const QRegularExpression endings(
        QStringLiteral("\\s*(?:\\([^()]*%1[^()]*\\)|\\[[^\\[\\]]*%1[^\\[\\]]*\\]|\\s[-–—]\\s[^-–—]*%1[^-–—]*|"
                       "\\s(?:feat|ft|featuring)\\b\\.?\\s.*)$")
            .arg(words));
    QString title = foldedTitle;
    for (auto found = endings.match(title); found.hasMatch() && found.capturedStart() > 0;
         found = endings.match(title))
        title.truncate(found.capturedStart());
    return title;
}

} // namespace trackwise
