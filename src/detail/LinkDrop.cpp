// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/LinkDrop.h"

#include "lookup/CatalogLink.h"
#include "lookup/CatalogLookup.h"
#include "lookup/LibrarySearch.h"
#include "platform/Background.h"

#include <QPointer>

namespace trackwise {

namespace {

AlertMessage songNotFound(LinkProblem problem)
{
    return {LinkDrop::tr("Song Not Found"), problem == LinkProblem::NotACatalogLink
                                                ? LinkDrop::tr("This doesn't seem to be an Apple Music song.")
                                                : LinkDrop::tr("This doesn't seem to be a valid song.")};
}

AlertMessage failedLookup(const Failure &failure)
{
    if (failure.kind == FailureKind::Malformed)
        return {LinkDrop::tr("Failed to Look Up Song"),
                LinkDrop::tr("You can try to find it via Select Song.")};
    return {LinkDrop::tr("Failed to Load Song"),
            LinkDrop::tr(
                "Please check your internet connection and try again. Or you can find it via Select Song "
                "without an internet connection.")};
}

AlertMessage couldNotFindSong()
{
    return {LinkDrop::tr("Couldn't Find Song"),
            LinkDrop::tr(
                "Songs do need to be added to your library to get their info. If this song isn't in your "
                "library, add it then try again.")};
}

} // namespace

LinkDrop::LinkDrop(LibraryAccessGate &gate, MediaLibrary &library, const CatalogLookup &catalog,
                   QThreadPool &pool, Actions actions, QObject *parent)
    : QObject(parent)
    , m_gate(gate)
    , m_library(library)
    , m_catalog(catalog)
    , m_pool(pool)
    , m_actions(std::move(actions))
{}

void LinkDrop::handleDroppedURLs(const QStringList &addresses)
{
    const auto link = catalogLink(addresses, m_catalog.configuration().hostMarker);
    if (const auto *problem = std::get_if<LinkProblem>(&link)) {
        m_actions.presentAlert(songNotFound(*problem));
        return;
    }
    m_gate.requestLibraryAccess(
        RefusalAlerts::Shown,
        [self = QPointer(this), identifier = std::get<CatalogLink>(link).identifier](bool authorized) {
            if (self && authorized)
                self->searchLibrary(identifier);
        });
}

void LinkDrop::searchLibrary(const QString &identifier)
{
    runInBackground(
        m_pool, this,
        [&library = m_library, identifier] { return findLibrarySongByCatalogID(library, identifier); },
        [this, identifier](const std::optional<MediaItem> &song) { libraryWasSearched(song, identifier); });
}

void LinkDrop::libraryWasSearched(const std::optional<MediaItem> &song, const QString &identifier)
{
    if (song)
        m_actions.display(*song);
    else
        lookUpCatalogSong(identifier);
}

void LinkDrop::lookUpCatalogSong(const QString &identifier)
{
    m_catalog.lookUp(identifier, this,
                     [this](const Result<CatalogSong> &answer) { catalogAnswered(answer); });
}

void LinkDrop::catalogAnswered(const Result<CatalogSong> &answer)
{
    if (!answer) {
        m_actions.presentAlert(failedLookup(answer.failure()));
        return;
    }
    runInBackground(
        m_pool, this,
        [&library = m_library, song = *answer] {
            return findLibrarySong(library, song.title, song.artist, song.album);
        },
        [this](const std::optional<MediaItem> &song) {
            if (song)
                m_actions.display(*song);
            else
                m_actions.presentAlert(couldNotFindSong());
        });
}

} // namespace trackwise
