// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/DetailAlerts.h"

#include <QCoreApplication>

namespace trackwise {

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(DetailAlerts)
};
} // namespace

std::unique_ptr<Alert> makeAlert(const AlertMessage &message, const AlertDestinations &destinations)
{
    std::vector<AlertAction> actions;
    if (message.includesOpenMusic)
        actions.push_back({Texts::tr("Open Music"), AlertAction::Style::Default, destinations.openMusic});
    if (message.includesOpenSettings && destinations.openSettings)
        actions.push_back(
            {Texts::tr("Open Settings"), AlertAction::Style::Default, destinations.openSettings});

    const bool offersWayOut = !actions.empty();
    const int preferred = offersWayOut ? static_cast<int>(actions.size()) - 1 : 0;
    actions.push_back({offersWayOut ? Texts::tr("Cancel") : Texts::tr("OK"), AlertAction::Style::Cancel, {}});
    return std::make_unique<Alert>(message.title, message.message, std::move(actions), preferred);
}

AlertMessage songNotAddedToLibrary()
{
    return {
        .title = Texts::tr("Song Not Added to Library"),
        .message = Texts::tr(
            "This song needs to be added to your Music Library to access its information. You can do this "
            "in the Music app."),
        .includesOpenMusic = true};
}

AlertMessage libraryAccessDenied()
{
    return {
        .title = Texts::tr("No Music Access"),
        .message = Texts::tr(
            "Trackwise does not currently have access to your music library. Please turn on Media & Apple "
            "Music access in the Settings app."),
        .includesOpenSettings = true};
}

AlertMessage libraryAccessRestricted()
{
    return {.title = Texts::tr("No Music Access"),
            .message = Texts::tr("Trackwise does not have access to your music library due to restrictions "
                                 "enabled on your device."),
            .includesOpenSettings = true};
}

AlertMessage noSongPlaying()
{
    return {.title = Texts::tr("No Song Playing"),
            .message = Texts::tr("Would you like to play something?"),
            .includesOpenMusic = true};
}

AlertMessage microphoneAccessDenied()
{
    return {.title = Texts::tr("No Microphone Access"),
            .message =
                Texts::tr("Trackwise does not currently have access to your microphone. Please turn on "
                          "Microphone access in the Settings app."),
            .includesOpenSettings = true};
}

} // namespace trackwise
