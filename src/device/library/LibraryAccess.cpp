// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryAccess.h"

#include <QPointer>
#include <QSettings>

#include <unistd.h>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {
constexpr QLatin1StringView accessKey("Access/Library");
// In the order of the status; what the system decides is never stored.
constexpr std::array words{QLatin1StringView("notDetermined"), QLatin1StringView("denied"),
                           QLatin1StringView("notDetermined"), QLatin1StringView("allowed")};

bool isThere(const QByteArray &folder)
{
    return access(folder.constData(), F_OK) == 0;
}

bool isReadable(const QByteArray &folder)
{
    return access(folder.constData(), R_OK | X_OK) == 0;
}
} // namespace

LibraryAccess::LibraryAccess(QSettings &settings, std::vector<QByteArray> musicFolders, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_musicFolders(std::move(musicFolders))
{}

LibraryAuthorizationStatus LibraryAccess::status() const
{
    if (std::ranges::any_of(m_musicFolders, isThere) && std::ranges::none_of(m_musicFolders, isReadable))
        return LibraryAuthorizationStatus::Restricted;
    const QString word = m_settings.value(accessKey).toString();
    if (word == words[static_cast<std::size_t>(LibraryAuthorizationStatus::Authorized)])
        return LibraryAuthorizationStatus::Authorized;
    if (word == words[static_cast<std::size_t>(LibraryAuthorizationStatus::Denied)])
        return LibraryAuthorizationStatus::Denied;
    return LibraryAuthorizationStatus::NotDetermined;
}

void LibraryAccess::setMusicFolders(std::vector<QByteArray> folders)
{
    const LibraryAuthorizationStatus before = status();
    m_musicFolders = std::move(folders);
    if (status() != before)
        Q_EMIT statusDidChange();
}

void LibraryAccess::setStatus(LibraryAuthorizationStatus status)
{
    const LibraryAuthorizationStatus before = this->status();
    m_settings.setValue(accessKey, QString(words.at(static_cast<std::size_t>(status))));
    if (this->status() != before)
        Q_EMIT statusDidChange();
}

void LibraryAccess::request(MediaLibrary::AuthorizationHandler handler)
{
    const LibraryAuthorizationStatus known = status();
    if (known != LibraryAuthorizationStatus::NotDetermined || !m_question) {
        handler(known);
        return;
    }
    m_waiting.push_back(std::move(handler));
    if (m_waiting.size() > 1)
        return;
    m_question([access = QPointer(this)](std::optional<bool> isAllowed) {
        if (access)
            access->answer(isAllowed);
    });
}

void LibraryAccess::answer(std::optional<bool> isAllowed)
{
    if (isAllowed)
        setStatus(*isAllowed ? LibraryAuthorizationStatus::Authorized : LibraryAuthorizationStatus::Denied);
    const auto waiting = std::exchange(m_waiting, {});
    for (const MediaLibrary::AuthorizationHandler &handler : waiting)
        handler(status());
}

} // namespace trackwise
