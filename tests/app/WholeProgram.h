// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/AppDelegate.h"
#include "device/Device.h"
#include "lookup/CatalogLookup.h"
#include "preferences/Preferences.h"

#include <QFile>
#include <QTemporaryDir>

namespace trackwise {

/// The program as it is put together when it starts, with what it keeps in @p folder.
struct WholeProgram
{
    WholeProgram(const QByteArray &music, const QTemporaryDir &folder, const CatalogConfiguration &web = {})
        : device(openDevice(music, folder))
        , preferences(folder.filePath(QStringLiteral("defaults.ini")))
        , catalog(device->http(), web)
        , app({device->library().mediaLibrary(),
               device->library().browser(),
               device->library().scan(),
               device->fingerprinting(),
               device->player(),
               device->systemPlayer(),
               device->appearance(),
               device->addresses(),
               catalog,
               device->recognition(),
               folder.path(),
               folder.filePath(QStringLiteral("windows.ini")),
               {}},
              preferences)
    {}

    WindowScene &openWindow()
    {
        app.newWindow();
        return *app.scenes().back();
    }

    std::unique_ptr<Device> device;
    Preferences preferences;
    CatalogLookup catalog;
    AppDelegate app;
    LinuxLibrary &library = device->library();

private:
    static std::unique_ptr<Device> openDevice(const QByteArray &music, const QTemporaryDir &folder)
    {
        auto device = Device::open(
            {QStringLiteral("org.example.tester"), folder.filePath(QStringLiteral("device.ini")),
             LibraryConfiguration{{music}, QFile::encodeName(folder.filePath(QStringLiteral("library.db")))},
             [] {}, [] {}});
        if (!device)
            qFatal("%s", qPrintable(device.failure().detail));
        return *std::move(device);
    }
};

} // namespace trackwise
