// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/CatalogSurvey.h"

#include "fingerprint/StoreFolder.h"

#include <QLoggingCategory>

namespace trackwise {

namespace {

using fingerprint::CatalogFailure;
using fingerprint::CatalogStore;
using Stamps = std::unordered_map<std::uint64_t, std::uint64_t>; ///< by persistent IDs

Q_LOGGING_CATEGORY(log, "trackwise.recognizer", QtFatalMsg)

std::filesystem::path native(const QByteArray &path)
{
    return path.toStdString();
}

QString textOf(const CatalogFailure &failure)
{
    return QString::fromStdString(failure.detail);
}

/// What a catalog that others write has now.
Stamps stampsIn(const QByteArray &folder)
{
    Stamps stamps;
    const auto read = CatalogStore::read(native(folder));
    const auto *catalog = std::get_if<0>(&read);
    for (fingerprint::SongNumber number = 0; catalog && number < (*catalog)->songCount(); ++number) {
        if ((*catalog)->isRemoved(number) || !(*catalog)->originOf(number).empty())
            continue;
        const auto song = (*catalog)->song(number);
        stamps[song.persistentID] = song.stamp;
    }
    return stamps;
}

} // namespace

CatalogSurvey CatalogSurvey::of(const LibraryQuestions &library, const Order &order)
{
    CatalogSurvey survey;
    survey.open(order);
    if (!survey.store && !survey.isInUse)
        return survey;
    if (survey.store && order.beginning == Beginning::Anew) {
        if (const auto failure = survey.store->removeAll())
            survey.trouble = textOf(*failure);
    }
    const auto sounds = library.sounds();
    if (sounds)
        survey.compare(*sounds, survey.store ? survey.store->songs() : stampsIn(order.folder));
    else
        survey.trouble = sounds.failure().detail;
    survey.bytes = qint64(fingerprint::StoreFolder(native(order.folder)).byteCount());
    return survey;
}

void CatalogSurvey::open(const Order &order)
{
    store = order.store;
    if (store)
        return;
    auto opened = CatalogStore::open(native(order.folder), fingerprint::PairDensity::Full, order.note);
    if (auto *made = std::get_if<0>(&opened)) {
        store = std::move(*made);
        for (const CatalogFailure &damage : store->damages())
            qCWarning(log) << "opening the catalog of songs:" << textOf(damage);
        return;
    }
    const CatalogFailure &failure = std::get<CatalogFailure>(opened);
    isInUse = failure.kind == CatalogFailure::Kind::InUse;
    if (!isInUse)
        trouble = textOf(failure);
}

void CatalogSurvey::compare(const std::vector<SongSound> &sounds, Stamps known)
{
    for (auto sound = sounds.rbegin(); sound != sounds.rend(); ++sound) {
        if (sound->availability == Availability::FileGone)
            continue;
        const auto same = known.find(sound->song.value);
        const bool isKnown = same != known.end() && same->second == sound->stamp;
        if (same != known.end())
            known.erase(same);
        total += isKnown || sound->availability == Availability::Available ? 1 : 0;
        if (!isKnown && sound->availability == Availability::Available)
            todo.push_back(*sound);
    }
    std::vector<std::uint64_t> gone;
    gone.reserve(known.size());
    for (const auto &[song, stamp] : known)
        gone.push_back(song);
    if (gone.empty() || !store)
        return;
    if (const auto failure = store->remove(gone))
        trouble = textOf(*failure);
}

} // namespace trackwise
