// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SystemDescription.h"

#include <QByteArray>
#include <QInputDevice>
#include <QSizeF>
#include <QStringList>

namespace trackwise {

/// What an os-release file says of the system, see os-release(5). Where it does not, the name is "Linux", as
/// that page has it; the version is VERSION_ID, else what rolling systems have in its place
/// (VERSION_CODENAME, BUILD_ID), else "0". Whether it is a tablet is not in the file.
[[nodiscard]] SystemDescription describeSystem(const QByteArray &osRelease);

/// Whether a device with these input devices and a screen of that size, in points, is a tablet: it is
/// touched, has neither mouse nor touchpad, and is wider and higher than a phone is wide. Where the window
/// system keeps a pointer of its own (X11), nothing passes for a tablet.
[[nodiscard]] bool isTouchTablet(const QList<QInputDevice::DeviceType> &inputs, const QSizeF &screen);

/// The system that runs now. @p files: where os-release may be; the first that can be read counts.
[[nodiscard]] SystemDescription describeThisSystem(
    const QStringList &files = {QStringLiteral("/etc/os-release"), QStringLiteral("/usr/lib/os-release")});

} // namespace trackwise
