// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detail/SupportServices.h"
#include "information/FormatLocale.h"

#include <QThreadPool>
#include <QTimeZone>

#include <functional>
#include <memory>

namespace trackwise {

class AddressOpener;
struct ArtworkServices;
class CatalogLookup;
class MediaLibrary;
class MediaPicker;
class Preferences;
class Presentation;
struct RecognitionServices;
class SystemMusicPlayer;

/// What detail controllers need of the device and the app; one for all windows.
struct DetailServices
{
    MediaLibrary &library;
    SystemMusicPlayer &systemPlayer;
    Preferences &preferences;
    AddressOpener &addresses;
    const ArtworkServices &artwork;
    const CatalogLookup &catalog;
    const RecognitionServices &recognition;
    QThreadPool &searches; ///< for searches of the library; waited for before the library goes
    std::function<std::shared_ptr<MediaPicker>()> makePicker;
    std::function<int()> connectedScenes;
    /// Opens the settings screen in the window of that presentation; may be empty.
    std::function<void(Presentation &)> openSettings;
    FormatLocale locale;
    QTimeZone zone;
    SupportServices support;
};

} // namespace trackwise
