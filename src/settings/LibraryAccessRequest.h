// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/SettingsList.h"

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace trackwise {

class MusicFolders;
class Presentation;

/// The device's question whether the app may use the music library. Answers exactly once: what the user
/// chose, or nothing when the question goes away before. Main thread.
class LibraryAccessRequest : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the device")
    Q_PROPERTY(trackwise::SettingsList *folders READ folders CONSTANT)

public:
    using Answer = std::function<void(std::optional<bool> isAllowed)>;

    /// @p folders must outlive the question. @p close takes it away, then calls what it is given.
    LibraryAccessRequest(MusicFolders &folders, std::function<void(std::function<void()>)> close,
                         Answer answer);
    ~LibraryAccessRequest() override;

    [[nodiscard]] SettingsList *folders() { return &m_lines; }

    Q_INVOKABLE void addFolder(const QUrl &folder);
    Q_INVOKABLE void allow() { finish(true); }
    Q_INVOKABLE void deny() { finish(false); }
    /// Decides nothing: the device will ask again.
    Q_INVOKABLE void postpone() { finish(std::nullopt); }

private:
    void finish(std::optional<bool> isAllowed);
    void updateFolders();

    MusicFolders &m_folders;
    std::function<void(std::function<void()>)> m_close;
    Answer m_answer;
    SettingsList m_lines;
};

/// Asks in a sheet of @p presentation. Where another sheet is up already nothing is decided.
void presentLibraryAccessRequest(MusicFolders &folders, Presentation &presentation,
                                 LibraryAccessRequest::Answer answer);

} // namespace trackwise
