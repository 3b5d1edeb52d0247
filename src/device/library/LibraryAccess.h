// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MediaLibrary.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <vector>

class QSettings;

namespace trackwise {

/// Whether the app may use the user's music: the user's answer, kept in the device's settings file, and what
/// the system allows. Main thread.
class LibraryAccess : public QObject
{
    Q_OBJECT

public:
    /// What the user answers; nothing when the question went away without an answer.
    using Answer = std::function<void(std::optional<bool> isAllowed)>;
    /// Asks the user and hands the answer over, now or later; never answering counts as not decided.
    using Question = std::function<void(Answer answer)>;

    /// @p settings must outlive this object.
    LibraryAccess(QSettings &settings, std::vector<QByteArray> musicFolders, QObject *parent = nullptr);

    /// Restricted where there are music folders and the system lets us read none of them.
    [[nodiscard]] LibraryAuthorizationStatus status() const;
    void setMusicFolders(std::vector<QByteArray> folders);
    void setStatus(LibraryAuthorizationStatus status);

    /// Who asks the user; without one, nothing is ever decided.
    void setQuestion(Question question) { m_question = std::move(question); }
    /// Asks only when nothing has been decided. Requests made while the user thinks share the answer.
    void request(MediaLibrary::AuthorizationHandler handler);

Q_SIGNALS:
    void statusDidChange();

private:
    void answer(std::optional<bool> isAllowed);

    QSettings &m_settings;
    std::vector<QByteArray> m_musicFolders;
    Question m_question;
    std::vector<MediaLibrary::AuthorizationHandler> m_waiting;
};

} // namespace trackwise
