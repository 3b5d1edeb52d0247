// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/PrivateSound.h"
#include "fingerprint/Pieces.h"
#include "support/Files.h"

#include <span>

namespace trackwise {

/// A microphone, the server's default one, that hears what is played into the loudspeaker "room".
inline void putUpMicrophone(const PrivateSound &sound)
{
    sound.control("load-module module-null-sink sink_name=room norewinds=1");
    sound.control("load-module module-remap-source master=room.monitor source_name=mic");
    sound.control("set-default-source mic");
}

/// Plays @p sound there, from now on.
struct HeardMusic
{
    explicit HeardMusic(std::span<const float> sound)
    {
        const auto bytes = std::as_bytes(sound);
        const QString file = folder.filePath(QStringLiteral("sound"));
        writeFile(file, {reinterpret_cast<const char *>(bytes.data()), qsizetype(bytes.size())});
        player.setStandardInputFile(file);
        player.start(QStringLiteral("pacat"),
                     {QStringLiteral("--playback"), QStringLiteral("--device=room"),
                      QStringLiteral("--format=float32le"), QStringLiteral("--rate=16000"),
                      QStringLiteral("--channels=1")});
    }
    ~HeardMusic()
    {
        player.kill();
        player.waitForFinished();
    }
    QTemporaryDir folder;
    QProcess player;
};

} // namespace trackwise
