#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes tests/data/tags: a third of a second of sound in every container, each with everything that its tag
dialect can say. Needs ffmpeg and python3-mutagen.

    /usr/bin/python3 tests/data/make_fixtures.py
"""
import base64
import os
import struct
import subprocess
import tempfile
import zlib

from mutagen import aiff, apev2, asf, dsdiff, dsf, flac, id3, monkeysaudio, mp4, musepack, oggflac, oggopus
from mutagen import oggspeex, oggvorbis, trueaudio, wave, wavpack

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "tags")
RECORDING = "11111111-2222-4333-8444-555555555555"
RELEASE = "66666666-7777-4888-9999-aaaaaaaaaaaa"
LYRICS = "First line\nSecond line"


def png(shade):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))
    rows = b"".join(b"\0" + bytes([shade, 80, 160]) * 4 for _ in range(4))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 4, 4, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


FRONT, BACK = png(200), png(20)


def sound(name, *codec):
    """A short tone as the named file of the output folder."""
    path = os.path.join(OUT, name)
    subprocess.run(["ffmpeg", "-hide_banner", "-loglevel", "error", "-nostdin", "-y", "-f", "lavfi",
                    "-i", "sine=frequency=440:duration=0.4:sample_rate=44100", "-map_metadata", "-1",
                    "-fflags", "+bitexact", "-flags:a", "+bitexact", "-threads", "1", *codec, path], check=True)
    return path


def write(name, data):
    path = os.path.join(OUT, name)
    with open(path, "wb") as file:
        file.write(data)
    return path


# ------------------------------------------------------------------------------------------------ ID3
def fill_id3(tags, several=True):
    text = lambda frame, *values: tags.add(getattr(id3, frame)(encoding=3, text=list(values)))
    own = lambda name, value: tags.add(id3.TXXX(encoding=3, desc=name, text=[value]))
    text("TIT2", "Tïtle ✓ 夜")
    text("TPE1", *(["First", "Second"] if several else ["First/Second"]))
    text("TALB", "Album")
    text("TPE2", "Album Artist")
    text("TCOM", "Composer")
    text("TCON", *(["Jazz", "17"] if several else ["Jazz"]))
    text("TDRC", "2021-03-05")
    text("TDOR", "1999")
    text("TRCK", "3/12")
    text("TPOS", "1/2")
    text("TBPM", "127.6")
    text("TCMP", "1")
    text("TIT1", "Not the grouping")
    tags.add(id3.GRP1(encoding=3, text=["Grouping"]))
    text("TSOT", "Title sort")
    text("TSOP", "Artist sort")
    text("TSOA", "Album sort")
    text("TSO2", "Album artist sort")
    text("TSOC", "Composer sort")
    text("TSRC", "USABC1234567")
    text("TKEY", "Am")
    text("TPUB", "Label")
    text("TCOP", "Copyright")
    tags.add(id3.COMM(encoding=0, lang="eng", desc="iTunNORM", text=[" 00000A2B"]))
    tags.add(id3.COMM(encoding=3, lang="eng", desc="", text=["Comment"]))
    tags.add(id3.USLT(encoding=3, lang="eng", desc="", text=LYRICS))
    tags.add(id3.POPM(email="someone@example.org", rating=255, count=9))
    tags.add(id3.POPM(email="Windows Media Player 9 Series", rating=186, count=0))
    tags.add(id3.PCNT(count=7))
    tags.add(id3.UFID(owner="http://musicbrainz.org", data=RECORDING.encode()))
    own("MusicBrainz Album Id", RELEASE)
    own("ITUNESADVISORY", "1")
    own("ITUNESCATALOGID", "1440857781")
    own("CATALOGNUMBER", "CAT-1")
    own("BARCODE", "0123456789012")
    tags.add(id3.APIC(encoding=0, mime="image/jpeg", type=4, desc="back", data=BACK))
    tags.add(id3.APIC(encoding=0, mime="image/jpeg", type=3, desc="front", data=FRONT))


def mp3(name):
    return sound(name, "-ar", "22050", "-ac", "1", "-c:a", "libmp3lame", "-b:a", "32k", "-write_id3v2", "0")


def make_id3():
    tags = id3.ID3()
    fill_id3(tags)
    tags.save(mp3("id3v24.mp3"), padding=lambda info: 64)

    tags = id3.ID3()
    fill_id3(tags, several=False)
    tags.update_to_v23()
    tags.save(mp3("id3v23.mp3"), v2_version=3, v23_sep="/", padding=lambda info: 64)

    # One tag of each kind, each with fields that the better ones lack.
    path = mp3("three-tags.mp3")
    ape = apev2.APEv2()
    ape.update({"Title": "Title of APE", "Album": "Album of APE"})
    ape.save(path)
    v1 = b"TAG" + b"Title of ID3v1".ljust(30, b"\0") + b"Artist of ID3v1".ljust(30, b"\0")
    v1 += b"Album of ID3v1".ljust(30, b"\0") + b"1987" + b"Comment of ID3v1".ljust(28, b"\0") + bytes([0, 9, 17])
    with open(path, "ab") as file:
        file.write(v1)
    tags = id3.ID3()
    tags.add(id3.TIT2(encoding=3, text=["Title of ID3v2"]))
    tags.save(path, v1=1, padding=lambda info: 64)
    with open(path, "r+b") as file:  # mutagen has rewritten the old tag from the new one
        file.seek(-128, os.SEEK_END)
        file.write(v1)

    # Words with times: in a frame of their own, and in LRC form inside the plain frame.
    tags = id3.ID3()
    tags.add(id3.SYLT(encoding=3, lang="eng", format=2, type=1, text=[("First line", 10), ("Second line", 900)]))
    tags.save(mp3("synced-lyrics.mp3"), padding=lambda info: 64)
    tags = id3.ID3()
    tags.add(id3.USLT(encoding=3, lang="eng", desc="", text="[ar:Somebody]\n[00:01.00]First line\n[00:02.50]Second line"))
    tags.save(mp3("lrc-inside.mp3"), padding=lambda info: 64)

    for made in (wave.WAVE(sound("id3.wav", "-ar", "8000", "-c:a", "pcm_u8")),
                 aiff.AIFF(sound("id3.aiff", "-ar", "8000", "-c:a", "pcm_s8")),
                 trueaudio.TrueAudio(sound("id3.tta", "-ar", "8000", "-c:a", "tta")),
                 dsf.DSF(write("id3.dsf", dsf_file())), dsdiff.DSDIFF(write("id3.dff", dsdiff_file()))):
        if made.tags is None:
            made.add_tags()
        fill_id3(made.tags)
        made.save()

    adts = sound("id3.aac", "-ar", "22050", "-ac", "1", "-c:a", "aac", "-b:a", "32k", "-f", "adts")
    tags = id3.ID3()
    fill_id3(tags)
    tags.save(adts, padding=lambda info: 64)


def dsf_file():
    """0.4 s of silence (DSD Stream File Format 1.01): one channel, 2.8224 MHz, cut to one block."""
    samples = 2822400 * 4 // 10 // 100  # 4 ms: a block is all that is kept
    block = bytes([0x69]) * 4096
    fmt = struct.pack("<4sQIIIIIIQII", b"fmt ", 52, 1, 0, 1, 1, 2822400, 1, samples, 4096, 0)
    data = struct.pack("<4sQ", b"data", 12 + len(block)) + block
    return struct.pack("<4sQQQ", b"DSD ", 28, 28 + len(fmt) + len(data), 0) + fmt + data


def dsdiff_file():
    chunk = lambda kind, body: struct.pack(">4sQ", kind, len(body)) + body + b"\0" * (len(body) & 1)
    prop = b"SND " + chunk(b"FS  ", struct.pack(">I", 2822400)) + chunk(b"CHNL", struct.pack(">H4s", 1, b"C   "))
    prop += chunk(b"CMPR", b"DSD \x0enot compressed\0")
    body = b"DSD " + chunk(b"FVER", struct.pack(">I", 0x01050000)) + chunk(b"PROP", prop)
    body += chunk(b"DSD ", bytes([0x69]) * 4096)
    return struct.pack(">4sQ", b"FRM8", len(body)) + body


# ------------------------------------------------------------------------------------------------ keys of free form
def fill_keys(tags, **renamed):
    """Vorbis comments and APE items; the latter write some keys differently."""
    fields = {
        "TITLE": ["Tïtle ✓ 夜"], "ARTIST": ["First", "Second"], "ALBUM": ["Album"], "ALBUMARTIST": ["Album Artist"],
        "COMPOSER": ["Composer"], "GENRE": ["Jazz", "Rock"], "DATE": ["2021-03-05"], "ORIGINALDATE": ["1999"],
        "TRACKNUMBER": ["3/12"], "DISCNUMBER": ["1"], "DISCTOTAL": ["2"], "BPM": ["127.6"], "COMPILATION": ["1"],
        "GROUPING": ["Grouping"], "TITLESORT": ["Title sort"], "ARTISTSORT": ["Artist sort"],
        "ALBUMSORT": ["Album sort"], "ALBUMARTISTSORT": ["Album artist sort"], "COMPOSERSORT": ["Composer sort"],
        "ISRC": ["USABC1234567"], "INITIALKEY": ["Am"], "LABEL": ["Label"], "COPYRIGHT": ["Copyright"],
        "COMMENT": ["Comment"], "LYRICS": [LYRICS], "RATING": ["70"], "FMPS_PLAYCOUNT": ["7.0"],
        "MUSICBRAINZ_TRACKID": [RECORDING], "MUSICBRAINZ_ALBUMID": [RELEASE], "ITUNESADVISORY": ["1"],
        "ITUNESCATALOGID": ["1440857781"], "CATALOGNUMBER": ["CAT-1"], "BARCODE": ["0123456789012"],
    }
    for key, values in fields.items():
        tags[renamed.get(key, key)] = values


def picture(kind, data):
    made = flac.Picture()
    made.type, made.mime, made.width, made.height, made.depth, made.data = kind, "image/jpeg", 4, 4, 24, data
    return made


def make_xiph():
    made = flac.FLAC(sound("xiph.flac", "-ar", "8000", "-c:a", "flac"))
    made.add_tags() if made.tags is None else made.tags.clear()
    fill_keys(made.tags)
    made.add_picture(picture(4, BACK))
    made.add_picture(picture(3, FRONT))
    made.save(padding=lambda info: 64)
    blocks = [base64.b64encode(picture(kind, data).write()).decode() for kind, data in ((4, BACK), (3, FRONT))]
    for cls, name, codec in (
            (oggvorbis.OggVorbis, "xiph.ogg", ("-ar", "22050", "-c:a", "libvorbis", "-q:a", "0")),
            (oggopus.OggOpus, "xiph.opus", ("-ar", "48000", "-c:a", "libopus", "-b:a", "24k")),
            (oggspeex.OggSpeex, "xiph.spx", ("-ar", "8000", "-c:a", "libspeex")),
            (oggflac.OggFLAC, "xiph.oga", ("-ar", "8000", "-c:a", "flac", "-f", "ogg"))):
        made = cls(sound(name, *codec))
        made.tags.clear()
        fill_keys(made.tags)
        made["METADATA_BLOCK_PICTURE"] = blocks
        made.save()

    # Spellings that other programs use for the same things.
    made = flac.FLAC(sound("spellings.flac", "-ar", "8000", "-c:a", "flac"))
    made.add_tags() if made.tags is None else made.tags.clear()
    for key, value in {"album artist": "Album Artist", "Year": "2021", "originalyear": "1999", "content group": "Grouping",
                       "tempo": "128", "description": "Comment", "unsyncedlyrics": LYRICS, "totaltracks": "12",
                       "tracknumber": "03", "totaldiscs": "2", "discnumber": "1", "rating:someone@example.org": "0.7",
                       "playcount:someone@example.org": "7", "publisher": "Label"}.items():
        made.tags[key] = [value]
    made.save(padding=lambda info: 64)


def make_ape():
    cover = lambda data: apev2.APEValue(b"cover.png\0" + data, apev2.BINARY)
    monkey = struct.pack("<4sHHIIHH", b"MAC ", 3990, 0, 52, 24, 0, 0).ljust(52, b"\0")
    monkey += struct.pack("<HHIIIHHI", 2000, 0, 73728, 17640, 1, 16, 1, 44100) + bytes(400)
    for cls, path in (
            (monkeysaudio.MonkeysAudio, write("apev2.ape", monkey)),
            (musepack.Musepack, write("apev2.mpc", musepack_file())),
            (wavpack.WavPack, sound("apev2.wv", "-ar", "8000", "-c:a", "wavpack")),
            (apev2.APEv2File, mp3("apev2.mp3")),
            (apev2.APEv2File, sound("apev2.ac3", "-ar", "32000", "-c:a", "ac3", "-b:a", "32k"))):
        tags = apev2.APEv2()
        fill_keys(tags, ALBUMARTIST="Album Artist", DATE="Year", TRACKNUMBER="Track", DISCNUMBER="Disc")
        tags["Cover Art (Back)"], tags["Cover Art (Front)"] = cover(BACK), cover(FRONT)
        tags.save(path)


def musepack_file():
    """Stream version 8: a header packet of 17,640 samples at 44.1 kHz, one audio packet, the end."""
    number = lambda value: bytes([value >> 14 | 128, value >> 7 & 127 | 128, value & 127])
    header = bytes(4) + bytes([8]) + number(17640) + number(0) + bytes([0, 0x10])
    packet = lambda kind, body: kind + bytes([len(body) + 3]) + body
    return b"MPCK" + packet(b"SH", header) + packet(b"AP", bytes(100)) + packet(b"SE", b"")


# ------------------------------------------------------------------------------------------------ the others
def make_mp4():
    for name, codec in (("atoms.m4a", ("-ar", "22050", "-c:a", "aac", "-b:a", "32k", "-f", "ipod")),
                        ("alac.m4a", ("-ar", "8000", "-c:a", "alac", "-f", "ipod", "-movflags", "+faststart"))):
        made = mp4.MP4(sound(name, *codec))
        if made.tags is None:
            made.add_tags()
        tags = made.tags
        tags.clear()
        for key, value in {
                "\xa9nam": "Tïtle ✓ 夜", "\xa9alb": "Album", "aART": "Album Artist", "\xa9wrt": "Composer",
                "\xa9day": "2021-03-05", "\xa9grp": "Grouping", "\xa9cmt": "Comment", "\xa9lyr": LYRICS,
                "sonm": "Title sort", "soar": "Artist sort", "soal": "Album sort", "soaa": "Album artist sort",
                "soco": "Composer sort", "cprt": "Copyright", "rate": "70"}.items():
            tags[key] = [value]
        tags["\xa9ART"], tags["\xa9gen"] = ["First", "Second"], ["Jazz", "Rock"]
        tags["trkn"], tags["disk"], tags["tmpo"], tags["cpil"] = [(3, 12)], [(1, 2)], [128], True
        tags["rtng"], tags["stik"] = [4], [1]
        # The song's own number needs more than 32 bits in one of them.
        tags["cnID"] = [1440857781 if name == "atoms.m4a" else 2492863669]
        tags["plID"], tags["atID"] = [9440857781], [136975]
        for key, value in {"FMPS_Playcount": "7.0", "MusicBrainz Track Id": RECORDING, "MusicBrainz Album Id": RELEASE,
                           "ISRC": "USABC1234567", "LABEL": "Label", "CATALOGNUMBER": "CAT-1",
                           "BARCODE": "0123456789012", "initialkey": "Am", "originaldate": "1999"}.items():
            tags["----:com.apple.iTunes:" + key] = [mp4.MP4FreeForm(value.encode())]
        tags["covr"] = [mp4.MP4Cover(FRONT, mp4.MP4Cover.FORMAT_JPEG)]
        made.save(padding=lambda info: 64)


def make_asf():
    made = asf.ASF(sound("asf.wma", "-ar", "22050", "-c:a", "wmav2", "-b:a", "32k"))
    tags = made.tags
    tags.clear()
    for key, values in {
            "Title": ["Tïtle ✓ 夜"], "Author": ["First", "Second"], "WM/AlbumTitle": ["Album"],
            "WM/AlbumArtist": ["Album Artist"], "WM/Composer": ["Composer"], "WM/Genre": ["Jazz", "Rock"],
            "WM/Year": ["2021-03-05"], "WM/OriginalReleaseTime": ["1999"], "WM/TrackNumber": ["3/12"],
            "WM/PartOfSet": ["1/2"], "WM/BeatsPerMinute": ["127.6"], "WM/ContentGroupDescription": ["Grouping"],
            "WM/TitleSortOrder": ["Title sort"], "WM/ArtistSortOrder": ["Artist sort"],
            "WM/AlbumSortOrder": ["Album sort"], "WM/AlbumArtistSortOrder": ["Album artist sort"],
            "WM/ComposerSortOrder": ["Composer sort"], "WM/ISRC": ["USABC1234567"], "WM/InitialKey": ["Am"],
            "WM/Publisher": ["Label"], "Copyright": ["Copyright"], "Description": ["Comment"], "WM/Lyrics": [LYRICS],
            "FMPS/Rating": ["0.7"], "FMPS/Playcount": ["7.0"], "WM/ParentalRating": ["Explicit"],
            "MusicBrainz/Track Id": [RECORDING], "MusicBrainz/Album Id": [RELEASE], "ITUNESCATALOGID": ["1440857781"],
            "WM/CatalogNo": ["CAT-1"], "WM/Barcode": ["0123456789012"]}.items():
        tags[key] = values
    tags["WM/IsCompilation"] = [asf.ASFBoolAttribute(True)]
    wm_picture = lambda kind, data: asf.ASFByteArrayAttribute(
        struct.pack("<BI", kind, len(data)) + "image/png\0".encode("utf-16-le") + "\0".encode("utf-16-le") + data)
    tags["WM/Picture"] = [wm_picture(4, BACK), wm_picture(3, FRONT)]
    made.save(padding=lambda info: 64)


def make_riff_info():
    """Tags of a program that wrote the local 8-bit encoding, and nothing else."""
    path = sound("info.wav", "-ar", "8000", "-c:a", "pcm_u8")
    body = b"INFO"
    for key, value in ((b"INAM", "Tïtle €"), (b"IART", "Artist"), (b"IPRD", "Album"), (b"ICMT", "Comment"),
                       (b"IGNR", "Jazz"), (b"ICRD", "2021-03-05"), (b"ITRK", "3")):
        text = value.encode("cp1252") + b"\0"
        body += key + struct.pack("<I", len(text)) + text + b"\0" * (len(text) & 1)
    with open(path, "rb") as file:
        data = file.read()
    data += b"LIST" + struct.pack("<I", len(body)) + body
    write("info.wav", data[:4] + struct.pack("<I", len(data) - 8) + data[8:])


def make_matroska():
    with tempfile.TemporaryDirectory() as folder:
        cover = os.path.join(folder, "cover.png")
        with open(cover, "wb") as file:
            file.write(FRONT)
        tags = {"TITLE": "Tïtle ✓ 夜", "ARTIST": "First", "ALBUM": "Album", "ALBUM_ARTIST": "Album Artist",
                "COMPOSER": "Composer", "GENRE": "Jazz", "DATE": "2021-03-05", "TRACK": "3/12", "DISC": "1/2",
                "BPM": "127.6", "COMMENT": "Comment", "LYRICS": LYRICS, "ISRC": "USABC1234567", "RATING": "70"}
        options = [part for key, value in tags.items() for part in ("-metadata", f"{key}={value}")]
        sound("matroska.mka", "-ar", "48000", "-c:a", "libopus", "-b:a", "24k", *options,
              "-attach", cover, "-metadata:s:t", "mimetype=image/png", "-metadata:s:t", "filename=cover.png")


def make_larger_and_rarer():
    """Containers for what is larger than WAV can hold, and streams of frames; most have a title at least."""
    title = ("-metadata", "title=Tïtle ✓ 夜")
    sound("info.caf", "-ar", "8000", "-c:a", "pcm_s8", *title)
    sound("info-rf64.wav", "-ar", "8000", "-c:a", "pcm_u8", "-rf64", "always", *title)
    sound("plain.w64", "-ar", "8000", "-c:a", "pcm_u8")
    sound("plain.eac3", "-ar", "32000", "-c:a", "eac3", "-b:a", "32k")
    sound("plain.latm", "-ar", "22050", "-ac", "1", "-c:a", "aac", "-b:a", "32k", "-f", "latm")


def main():
    os.makedirs(OUT, exist_ok=True)
    make_id3()
    make_xiph()
    make_ape()
    make_mp4()
    make_asf()
    make_riff_info()
    make_matroska()
    make_larger_and_rarer()


if __name__ == "__main__":
    main()
