#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Make a music folder to measure with: COUNT short tagged files in six formats, the same ones each time.

    make_tree.py COUNT FOLDER        needs python3-mutagen and ffmpeg; FOLDER must not exist
"""
import io
import multiprocessing
import os
import random
import subprocess
import sys

from mutagen import flac, id3, mp4, oggopus, oggvorbis, wave

# suffix: encoder arguments, share of the albums in percent
FORMATS = {
    "mp3": ("-c:a libmp3lame -q:a 4", 40),
    "flac": ("-c:a flac", 27),
    "m4a": ("-c:a aac -b:a 96k -movflags +faststart", 16),
    "ogg": ("-c:a libvorbis -q:a 3", 8),
    "opus": ("-c:a libopus -b:a 64k", 6),
    "wav": ("-ar 8000 -ac 1 -c:a pcm_s16le", 3),
}
WORDS = ("love night heart blue fire moon rain light song river summer road world star north silent golden "
         "winter morning dance ghost paper stone ocean träume café naïve ночь любовь 夜 東京 さくら 사랑").split()
TRACKS = 12


def template(suffix):
    """One second of sound."""
    path = f"/tmp/trackwise-template-{os.getpid()}.{suffix}"
    arguments = FORMATS[suffix][0].split()
    subprocess.run(["ffmpeg", "-loglevel", "error", "-y", "-f", "lavfi", "-i", "sine=440:duration=1", *arguments, path],
                   check=True)
    with open(path, "rb") as sound:
        content = sound.read()
    os.unlink(path)
    return content


def vorbis_comments(tags, fields):
    for name, value in fields.items():
        tags[name] = str(value)


def id3_frames(tags, fields, cover):
    frames = {"title": id3.TIT2, "artist": id3.TPE1, "album": id3.TALB, "albumartist": id3.TPE2, "composer": id3.TCOM,
              "genre": id3.TCON, "date": id3.TDRC, "tracknumber": id3.TRCK, "isrc": id3.TSRC}
    for name, value in fields.items():
        if name in frames:
            tags.add(frames[name](encoding=3, text=[str(value)]))
    if "lyrics" in fields:
        tags.add(id3.USLT(encoding=3, lang="eng", desc="", text=fields["lyrics"]))
    if cover:
        tags.add(id3.APIC(encoding=0, mime="image/jpeg", type=3, desc="", data=cover))


def tagged(suffix, sound, fields, cover):
    memory = io.BytesIO(sound)
    if suffix == "mp3":
        tags = id3.ID3()
        id3_frames(tags, fields, cover)
        tags.save(memory)
    elif suffix == "wav":
        song = wave.WAVE(memory)
        song.add_tags()
        id3_frames(song.tags, fields, None)
        memory.seek(0)
        song.save(memory)
    elif suffix == "m4a":
        song = mp4.MP4(memory)
        names = {"title": "\xa9nam", "artist": "\xa9ART", "album": "\xa9alb", "albumartist": "aART",
                 "composer": "\xa9wrt", "genre": "\xa9gen", "date": "\xa9day", "lyrics": "\xa9lyr"}
        for name, atom in names.items():
            if name in fields:
                song[atom] = [str(fields[name])]
        song["trkn"] = [(fields["tracknumber"], TRACKS)]
        if cover:
            song["covr"] = [mp4.MP4Cover(cover)]
        memory.seek(0)
        song.save(memory)
    else:
        song = {"flac": flac.FLAC, "ogg": oggvorbis.OggVorbis, "opus": oggopus.OggOpus}[suffix](memory)
        vorbis_comments(song, fields)
        if cover and suffix == "flac":
            picture = flac.Picture()
            picture.type, picture.mime, picture.data = 3, "image/jpeg", cover
            song.add_picture(picture)
        memory.seek(0)
        song.save(memory)
    return memory.getvalue()


def phrase(rng, longest):
    return " ".join(rng.choice(WORDS).title() for _ in range(rng.randint(1, longest)))


def write_album(job):
    number, songs, folder, sounds = job
    rng = random.Random(number)
    suffix = rng.choices(list(FORMATS), [share for _, share in FORMATS.values()])[0]
    artist, album = phrase(random.Random(number // 3), 3), phrase(rng, 4)
    # Bytes that only begin like a picture: nobody decodes them here.
    cover = b"\xff\xd8\xff\xe0\0\x10JFIF" + rng.randbytes(rng.randint(5_000, 120_000)) if rng.random() < 0.4 else None
    place = os.path.join(folder, artist, f"{album} [{number}]")
    os.makedirs(place)
    for track in range(1, songs + 1):
        fields = {"title": phrase(rng, 5), "artist": artist, "album": album, "albumartist": artist,
                  "genre": rng.choice(["Rock", "Jazz", "Pop", "Folk"]), "date": str(rng.randint(1960, 2025)),
                  "tracknumber": track, "isrc": f"US{number:05d}{track:03d}"}
        if rng.random() < 0.3:
            fields["composer"] = phrase(rng, 2)
        if rng.random() < 0.1:
            fields["lyrics"] = "\n".join(phrase(rng, 6) for _ in range(30))
        with open(os.path.join(place, f"{track:02d} {fields['title']}.{suffix}"), "wb") as song:
            song.write(tagged(suffix, sounds[suffix], fields, cover))


def main():
    count, folder = int(sys.argv[1]), sys.argv[2]
    os.makedirs(folder)
    sounds = {suffix: template(suffix) for suffix in FORMATS}
    jobs = [(number, min(TRACKS, count - number * TRACKS), folder, sounds) for number in range(-(-count // TRACKS))]
    with multiprocessing.Pool() as pool:
        for _ in pool.imap_unordered(write_album, jobs, 16):
            pass


if __name__ == "__main__":
    main()
