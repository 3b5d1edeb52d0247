// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/MusicFormats.h"

#include "device/library/tags/ContainerLayouts.h"

#include <QByteArrayList>

#include <algorithm>
#include <set>

namespace trackwise {

namespace {

using namespace std::string_view_literals;

/// Of a format that is sound from its first byte to its last.
template <Container container>
Result<MusicLayout> plainLayout(MusicFile &, qint64 begin, qint64 end)
{
    return MusicLayout{container, {{begin, end - begin}}};
}

using Signature = std::array<MusicFormat::Mark, 2>;

constexpr Signature starts(std::string_view bytes)
{
    return {{{0, bytes}}};
}

constexpr std::array formats = {
    MusicFormat{"MP3", "mp1 mp2 mp3", "audio/mpeg audio/mp2"},
    MusicFormat{"AAC", "aac latm loas", "audio/aac audio/usac"},
    MusicFormat{"AC-3", "ac3 ec3 eac3", "audio/ac3 audio/eac3"},
    MusicFormat{"FLAC", "flac", "audio/flac", starts("fLaC"), flacLayout},
    MusicFormat{"Ogg", "oga ogg opus spx",
                "audio/ogg audio/x-vorbis+ogg audio/x-opus+ogg audio/x-speex+ogg audio/x-flac+ogg",
                starts("OggS"), oggLayout},
    MusicFormat{"MP4", "alac m4a m4b m4p m4v mp4", "audio/mp4 audio/x-m4b", {{{4, "ftyp"}}}, mp4Layout},
    MusicFormat{"WAV", "wav wave", "audio/x-wav", {{{0, "RIFF"}, {8, "WAVE"}}}, wavLayout},
    MusicFormat{"RF64", "rf64", "", {{{0, "RF64"}, {8, "WAVE"}}}, rf64Layout},
    MusicFormat{"Wave64", "w64", "", {{{0, "riff"}, {24, "wave"}}}, wave64Layout},
    MusicFormat{"AIFF", "aif aiff", "audio/x-aiff", {{{0, "FORM"}, {8, "AIFF"}}}, aiffLayout},
    MusicFormat{"AIFF-C", "aifc", "audio/x-aifc", {{{0, "FORM"}, {8, "AIFC"}}}, aiffLayout},
    MusicFormat{"CAF", "caf", "audio/x-caf", starts("caff"), cafLayout},
    MusicFormat{"Monkey’s Audio", "ape", "audio/x-ape", starts("MAC "), plainLayout<Container::MonkeysAudio>},
    MusicFormat{"WavPack", "wv", "audio/x-wavpack", starts("wvpk"), plainLayout<Container::WavPack>},
    MusicFormat{"Musepack", "mp+ mpc mpp", "audio/x-musepack", starts("MPCK"),
                plainLayout<Container::Musepack>},
    MusicFormat{"Musepack", "", "", starts("MP+"), plainLayout<Container::Musepack>},
    MusicFormat{"True Audio", "tta", "audio/x-tta", starts("TTA1"), plainLayout<Container::TrueAudio>},
    MusicFormat{"True Audio", "", "", starts("TTA2"), plainLayout<Container::TrueAudio>},
    MusicFormat{"Windows Media Audio", "asf wma", "audio/x-ms-wma",
                starts("\x30\x26\xB2\x75\x8E\x66\xCF\x11"), asfLayout},
    MusicFormat{"Matroska", "mka weba", "audio/x-matroska audio/webm", starts("\x1A\x45\xDF\xA3"),
                matroskaLayout},
    MusicFormat{"DSF", "dsf", "audio/x-dsf", starts("DSD "), dsfLayout},
    MusicFormat{"DSDIFF", "dff", "audio/x-dff", starts("FRM8"), dsdiffLayout},
};

std::set<QByteArray, std::less<>> allSuffixes()
{
    std::set<QByteArray, std::less<>> suffixes;
    for (const auto &format : formats) {
        for (const auto &suffix :
             QByteArray(format.suffixes.data(), static_cast<qsizetype>(format.suffixes.size())).split(' '))
            suffixes.insert(suffix);
    }
    suffixes.erase(QByteArray());
    return suffixes;
}

} // namespace

std::span<const MusicFormat> musicFormats()
{
    return formats;
}

bool hasMusicSuffix(QByteArrayView name)
{
    static const auto suffixes = allSuffixes();
    const auto dot = name.lastIndexOf('.');
    return dot >= 0 && suffixes.contains(name.sliced(dot + 1).toByteArray().toLower());
}

} // namespace trackwise
