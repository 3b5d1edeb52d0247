// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace trackwise {

class Presentation;
struct SupportServices;

/// Presents the help screen. @p contactSupport is called when the user asks for it and the screen has gone.
void presentHelpScreen(Presentation &presentation, std::function<void()> contactSupport);

/// Where the about screen leads, while it stays.
struct AboutLinks
{
    std::function<void()> showMoreApps;
    std::function<void()> rate;
    std::function<void()> showPrivacyPolicy;
};

/// Presents the about screen as a sheet of its own size.
void presentAboutScreen(Presentation &presentation, const SupportServices &services, AboutLinks links);

} // namespace trackwise
