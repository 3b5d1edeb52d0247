// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowMenus.h"

#include "detail/DetailViewController.h"
#include "ui/Presentation.h"

#include <QCoreApplication>

namespace trackwise {

WindowMenus::WindowMenus(DetailViewController &detail, Presentation &presentation, QObject *parent)
    : QObject(parent)
    , m_detail(detail)
    , m_presentation(presentation)
    , m_applicationMenu(QStringLiteral("Trackwise"),
                        [this](int command) { perform(static_cast<KeyCommand>(command)); })
    , m_fileMenu(KeyCommands::fileMenuTitle(),
                 [this](int command) { perform(static_cast<KeyCommand>(command)); })
{
    connect(&detail, &DetailViewController::songDidChange, this, &WindowMenus::update);
    connect(&detail, &DetailViewController::shazamStateDidChange, this, &WindowMenus::update);
    connect(&presentation, &Presentation::sheetChanged, this, &WindowMenus::update);
    connect(&presentation, &Presentation::alertChanged, this, &WindowMenus::update);
    connect(&presentation, &Presentation::didPush, this, &WindowMenus::update);
    connect(&presentation, &Presentation::didPop, this, &WindowMenus::update);
    update();
}

void WindowMenus::update()
{
    const auto isValid = [this](KeyCommand command) { return validate(command); };
    m_applicationMenu.setEntries(KeyCommands::applicationMenu(isValid));
    m_fileMenu.setEntries(KeyCommands::fileMenu(isValid));
}

void WindowMenus::setPlace(std::optional<MenuBarPlace> place)
{
    if (place == m_place)
        return;
    m_place = place;
    Q_EMIT placeDidChange();
}

bool WindowMenus::validate(KeyCommand command) const
{
    const bool isCovered = m_presentation.isSheetVisible() || m_presentation.isAlertVisible();
    switch (command) {
    case KeyCommand::NewWindow:
    case KeyCommand::CloseWindow:
    case KeyCommand::Quit:
        return true;
    case KeyCommand::PresentAbout:
    case KeyCommand::PresentHelp:
    case KeyCommand::OpenSettings:
        return !isCovered;
    default:
        return !isCovered && m_presentation.pushedViews().empty() && m_detail.validateCommand(command);
    }
}

void WindowMenus::perform(KeyCommand command)
{
    Q_EMIT willPerform();
    switch (command) {
    case KeyCommand::NewWindow:
        Q_EMIT newWindowKeyCommanded();
        break;
    case KeyCommand::CloseWindow:
        Q_EMIT closeWindowKeyCommanded();
        break;
    case KeyCommand::Quit:
        // Not from within the window's own key handling.
        QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                                  Qt::QueuedConnection);
        break;
    case KeyCommand::PresentAbout:
        m_detail.presentAbout();
        break;
    case KeyCommand::PresentHelp:
        m_detail.presentHelp();
        break;
    case KeyCommand::OpenSettings:
        m_detail.presentSettings();
        break;
    case KeyCommand::SelectSong:
        m_detail.selectSongKeyCommanded();
        break;
    case KeyCommand::SelectSongNowPlaying:
        m_detail.selectSongNowPlayingKeyCommanded();
        break;
    case KeyCommand::SelectSongMusicRecognition:
        m_detail.selectSongMusicRecognitionKeyCommanded();
        break;
    case KeyCommand::ClearSelectedSong:
        m_detail.clearSelectedSongKeyCommanded();
        break;
    case KeyCommand::PasteLink:
        m_detail.pasteLink();
        break;
    }
}

} // namespace trackwise
