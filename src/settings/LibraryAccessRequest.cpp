// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/LibraryAccessRequest.h"

#include "platform/MusicFolders.h"
#include "settings/SettingsScreen.h"
#include "ui/Presentation.h"

#include <QPointer>

#include <utility>

namespace trackwise {

LibraryAccessRequest::LibraryAccessRequest(MusicFolders &folders,
                                           std::function<void(std::function<void()>)> close, Answer answer)
    : m_folders(folders)
    , m_close(std::move(close))
    , m_answer(std::move(answer))
{
    connect(&m_folders, &MusicFolders::foldersDidChange, this, &LibraryAccessRequest::updateFolders);
    updateFolders();
}

LibraryAccessRequest::~LibraryAccessRequest()
{
    if (m_answer)
        m_answer(std::nullopt);
}

void LibraryAccessRequest::addFolder(const QUrl &folder)
{
    if (folder.isLocalFile())
        m_folders.add(folder.toLocalFile());
}

void LibraryAccessRequest::finish(std::optional<bool> isAllowed)
{
    if (!m_answer)
        return;
    // What the answer leads to may be presented in the place of this sheet, so that has to go first.
    m_close([answer = std::exchange(m_answer, nullptr), isAllowed] { answer(isAllowed); });
}

void LibraryAccessRequest::updateFolders()
{
    std::vector<SettingsLine> lines;
    for (const MusicFolder &folder : m_folders.folders())
        lines.push_back({.key = folder.path, .title = folderForPeople(folder.path)});
    m_lines.setLines(std::move(lines));
}

void presentLibraryAccessRequest(MusicFolders &folders, Presentation &presentation,
                                 LibraryAccessRequest::Answer answer)
{
    auto request = std::make_shared<LibraryAccessRequest>(
        folders,
        [target = QPointer(&presentation)](std::function<void()> then) {
            if (target)
                target->dismiss(std::move(then));
            else
                then();
        },
        std::move(answer));
    QObject::connect(&presentation, &Presentation::sheetCancelRequested, request.get(),
                     &LibraryAccessRequest::postpone);
    auto view = std::make_shared<HostedView>(
        SettingsScreen::tr("Music Access"),
        QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Settings/LibraryAccessView.qml")), "request", request);
    view->setQuestion(true);
    presentation.present(std::move(view));
}

} // namespace trackwise
