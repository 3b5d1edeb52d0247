#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes what a microphone hears of music: clips of 12 s, mono, 16 kHz, under the conditions below.

    make_clips.py MUSIC FOLDER [--count 40] [--negatives 250] [--seed 1]
                  needs ffmpeg, espeak-ng, python3-numpy and python3-scipy; FOLDER must not exist

--count clips a condition are of indexed tracks (see tracks.csv); --negatives clips are of foreign ones, and
some more of speech, noise, hum and silence. The same clips come of the same seed and the same tools; fewer are
the first of more. FOLDER/clips.csv says what each clip is of: clip, condition, track (empty: no music), role (of the
track: indexed, foreign, or a version of an indexed one), offset (of the clip's beginning in the track, in seconds).
"""
import argparse
import csv
import multiprocessing
import pathlib
import subprocess
import tempfile
import zlib
from dataclasses import dataclass

import numpy as np
from scipy import signal
from scipy.io import wavfile

HERE = pathlib.Path(__file__).parent
RATE = 16000
SECONDS = 12
BEFORE = 1  # seconds of music before a clip: what a room still rings with


@dataclass(frozen=True)
class Condition:
    speed: float = 1  # of tempo and pitch
    tempo: float = 1
    room: bool = False
    codec: tuple = ()
    noise: str = ""
    above_noise: float = 0  # dB
    band: tuple = ()  # lower and upper limit in Hz, and the order of the filter


POSITIVES = {
    "clean": Condition(),
    **{f"pink{snr:+}": Condition(noise="pink", above_noise=snr) for snr in (10, 5, 0, -5)},
    **{f"babble{snr:+}": Condition(noise="babble", above_noise=snr) for snr in (10, 5, 0, -5)},
    "reverb": Condition(room=True),
    "phone": Condition(band=(300, 3400, 4)),
    "speaker": Condition(band=(200, 7000, 2)),
    "opus32": Condition(codec=("libopus", "ogg")),
    "mp3_32": Condition(codec=("libmp3lame", "mp3")),
    **{f"speed{change:+}": Condition(speed=1 + change / 100) for change in (-4, -2, -1, 1, 2, 4)},
    **{f"tempo{change:+}": Condition(tempo=1 + change / 100) for change in (-4, 4)},
    "cafe": Condition(room=True, noise="babble", above_noise=0, band=(300, 3400, 2)),
}
FOREIGN = ("clean", "pink+0", "babble+0", "reverb", "cafe")
# Sounds that are no music, and how many of them there are for each clip of foreign music.
OTHERS = {"speech": 0.1, "babble": 0.1, "pink": 0.03, "white": 0.03, "hum": 0.03, "silence": 0.03}

VOICES = (("en-us", 44), ("en-us+f3", 57), ("en-gb+m2", 38), ("en-gb+f1", 60), ("de", 42), ("de+f2", 56), ("fr", 47),
          ("fr+f4", 61), ("es+m4", 40), ("es+f5", 59), ("it", 45), ("nl+f1", 54), ("sv+m1", 39))
SENTENCES = {
    "en": ("Shall we sit outside, or is it too windy?", "She called twice and left no message.",
           "The lift is out of order, take the stairs.", "That makes twenty seven euros and thirty cents.",
           "I forgot to water the plants before we left.", "Nobody told him about the meeting on Friday."),
    "de": ("Der Zug nach Leipzig hat heute eine Stunde Verspätung.", "Möchten Sie noch etwas trinken?",
           "Ich habe das Buch schon zweimal gelesen.", "Morgen soll es endlich wieder schneien."),
    "fr": ("Le marché commence à huit heures du matin.", "Elle a perdu ses clés dans le jardin.",
           "Vous prenez le menu ou seulement une salade?", "Il faut tourner à gauche après le pont."),
    "es": ("La farmacia cierra a las nueve de la noche.", "Mi hermano vive ahora cerca del mar.",
           "¿Me puede traer la cuenta, por favor?", "Perdimos el último tren por dos minutos."),
    "it": ("Il negozio apre soltanto nel pomeriggio.", "Ho dimenticato gli occhiali in macchina.",
           "Vorrei due biglietti per domani sera."),
    "nl": ("De bus rijdt vandaag een andere route.", "Zullen we daarna nog een wandeling maken?"),
    "sv": ("Kaffet är slut men det finns te.", "Vi bor på tredje våningen i det gula huset."),
}


def of_power_one(sound):
    return sound / np.sqrt(np.mean(sound**2) + 1e-20)


RAW = ("-f", "s16le", "-ar", str(RATE), "-ac", "1")


def through_ffmpeg(sound, *conversion, back=RAW):
    """What becomes of the sound, which is kept from clipping; half of its amplitude is left, as room."""
    loudest = max(1e-9, np.abs(sound).max())
    given = (sound / loudest * 16384).astype("<i2").tobytes()
    made = subprocess.run(["ffmpeg", "-v", "error", *RAW, "-i", "-", "-fflags", "+bitexact", "-flags", "+bitexact",
                           *conversion, "-"], input=given, capture_output=True, check=True).stdout
    if back != RAW:
        made = subprocess.run(["ffmpeg", "-v", "error", "-i", "-", *RAW, "-"], input=made, capture_output=True,
                              check=True).stdout
    return np.frombuffer(made, "<i2").astype(float)


def excerpt(path, start, seconds):
    raw = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-ss", f"{start:.3f}", "-i", path, "-t", f"{seconds:.3f}",
                          "-map", "0:a:0", "-ac", "1", "-ar", str(RATE), "-f", "f32le", "-"],
                         capture_output=True, check=False).stdout
    return np.frombuffer(raw, "<f4").astype(float)


def spoken():
    """Half a minute and more of each voice."""
    voices = []
    for number, (voice, pitch) in enumerate(VOICES):
        texts = SENTENCES[voice[:2]]
        order = np.random.default_rng(number).permutation(len(texts) * 5) % len(texts)
        with tempfile.NamedTemporaryFile(suffix=".wav") as file:
            subprocess.run(["espeak-ng", "-v", voice, "-p", str(pitch), "-s", str(150 + 7 * (number % 5)),
                            "-w", file.name, " ".join(texts[i] for i in order)], check=True, capture_output=True)
            voices.append(of_power_one(excerpt(file.name, 0, 120)))
    return voices


class Studio:
    """Makes clips, each of its own randomness: it depends on nothing that was made before."""

    def __init__(self, options, tracks):
        self.options = options
        self.tracks = tracks
        self.voices = spoken()
        self.random = None

    def chance(self, *key):
        return np.random.default_rng([self.options.seed, *(zlib.crc32(str(part).encode()) for part in key)])

    def speech(self, length, voices):
        """Several at once, none louder than twice another."""
        mixed = np.zeros(length)
        for number in self.random.permutation(len(self.voices))[:voices]:
            voice = self.voices[number]
            mixed += np.resize(np.roll(voice, -self.random.integers(len(voice))), length) * self.random.uniform(0.5, 1)
        return of_power_one(mixed)

    def pink(self, length):
        """As much power in each octave, from 20 Hz."""
        frequencies = np.fft.rfftfreq(length, 1 / RATE)
        parts = self.random.standard_normal((2, len(frequencies)))
        spectrum = (parts[0] + 1j * parts[1]) / np.sqrt(np.maximum(frequencies, 20))
        spectrum[frequencies < 20] = 0
        return of_power_one(np.fft.irfft(spectrum, length))

    def in_room(self, sound):
        """In a living room: it rings for 0.4 to 0.8 s, shorter above 2.5 kHz, about as loud as the direct sound."""
        ringing = self.random.uniform(0.4, 0.8)
        times = np.arange(int(1.2 * ringing * RATE)) / RATE
        answer = np.zeros(len(times))
        for kind, rings in (("low", ringing), ("high", 0.55 * ringing)):
            decay = self.random.standard_normal(len(times)) * 10 ** (-3 * times / rings)  # by 60 dB
            answer += signal.sosfilt(signal.butter(2, 2500, kind, fs=RATE, output="sos"), decay)
        answer[: int(0.003 * RATE)] = 0  # a wall is half a metre away
        answer *= 10 ** (self.random.uniform(-3, 3) / 20) / np.sqrt(np.sum(answer**2))
        answer[0] = 1
        return signal.fftconvolve(sound, answer)[: len(sound)]

    def noise(self, kind, length):
        return {
            "pink": lambda: self.pink(length),
            "white": lambda: self.random.standard_normal(length),
            "speech": lambda: self.speech(length, 1),
            "babble": lambda: self.speech(length, 5),
            "hum": lambda: self.hum(length),
        }[kind]()

    def hum(self, length):
        times = np.arange(length) / RATE
        tones = sum(np.sin(2 * np.pi * 50 * n * times + self.random.uniform(0, 6)) / n for n in range(1, 14))
        return tones + 0.05 * self.random.standard_normal(length)

    def degraded(self, sound, condition):
        """The clip that begins BEFORE seconds into the sound."""
        length = SECONDS * RATE
        if condition.speed != 1:
            sound = signal.resample_poly(sound, 100, round(100 * condition.speed))
        if condition.tempo != 1:
            sound = through_ffmpeg(sound, "-af", f"atempo={condition.tempo}", *RAW)
        if condition.room:
            sound = self.in_room(sound)
        if condition.codec:
            codec, container = condition.codec
            sound = through_ffmpeg(sound, "-c:a", codec, "-b:a", "32k", "-f", container, back=container)
        begin = int(BEFORE * RATE / (condition.speed * condition.tempo))
        sound = np.pad(sound, (0, begin + length))[begin:][:length]
        if condition.noise:
            loudness = 10 ** (-condition.above_noise / 20)
            sound = of_power_one(sound) + self.noise(condition.noise, length) * loudness
        if condition.band:
            low, high, order = condition.band
            sound = signal.sosfilt(signal.butter(order, (low, high), "band", fs=RATE, output="sos"), sound)
        return sound

    def recorded(self, sound):
        """As loud as microphones hear it, with their own noise."""
        sound = of_power_one(sound) * 10 ** (self.random.uniform(-32, -14) / 20)
        sound *= 0.98 / max(0.98, np.abs(sound).max())
        return np.clip(sound + 10 ** (-72 / 20) * self.random.standard_normal(len(sound)), -1, 1)

    def passage(self, track):
        """Some seconds of it, from where it can be heard if there is such a place, and where they begin."""
        wanted = BEFORE + SECONDS * 1.05 + 0.5
        best, best_level, best_start = None, -1, 0
        for _ in range(8):
            start = round(self.random.uniform(BEFORE, max(BEFORE + 0.1, float(self.tracks[track]["seconds"]) - wanted)), 2)
            sound = excerpt(self.options.music / self.tracks[track]["role"] / track, start - BEFORE, wanted)
            if len(sound) < 10 * RATE:
                continue
            level = min(np.sqrt(np.mean(sound[second * RATE:][: 3 * RATE] ** 2)) for second in (1, 4, 7))
            if level > best_level:
                best, best_level, best_start = sound, level, start
            if level > 0.01:
                break
        return best, best_start

    def make(self, job):
        """Writes a clip; its line of the table, nothing where the track has no sound."""
        name, number, track = job
        self.random = self.chance(name, number)
        kind = name.removeprefix("no-")
        start = ""
        if track:
            sound, start = self.passage(track)
            if sound is None:
                return None
            sound = self.recorded(self.degraded(sound, POSITIVES[kind]))
        elif kind == "silence":
            sound = np.zeros(SECONDS * RATE)
            if number % 2:
                sound += 10 ** (-75 / 20) * self.random.standard_normal(len(sound))
        else:
            sound = self.recorded(self.noise(kind, SECONDS * RATE))
        clip = f"{name}/{number:04}.wav"
        wavfile.write(self.options.folder / clip, RATE, np.round(sound * 32767).astype("<i2"))
        return clip, name, track, start


def jobs_of(studio, options):
    """Name of the condition, number of the clip in it, and the track: tracks take turns."""
    def of(name, roles, count):
        tracks = sorted(name for name, track in studio.tracks.items() if track["role"] in roles)
        order = studio.chance("tracks", name).permutation(len(tracks))
        return [(name, number, tracks[order[number % len(order)]]) for number in range(count)]

    jobs = []
    for name in POSITIVES:
        jobs += of(name, ("indexed",), options.count)
    for name in FOREIGN:
        jobs += of("no-" + name, ("foreign", "version"), options.negatives // len(FOREIGN))
    for name, share in OTHERS.items():
        jobs += [("no-" + name, number, "") for number in range(max(4, round(share * options.negatives)))]
    return jobs


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("music", type=pathlib.Path)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--count", type=int, default=40)
    parser.add_argument("--negatives", type=int, default=250)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    options.folder.mkdir(parents=True)
    with open(HERE / "tracks.csv", encoding="utf-8", newline="") as table:
        tracks = {row["track"]: row for row in csv.DictReader(table)}
    studio = Studio(options, tracks)
    jobs = jobs_of(studio, options)
    for name in {job[0] for job in jobs}:
        (options.folder / name).mkdir()
    with multiprocessing.Pool() as pool:
        lines = [line for line in pool.imap(studio.make, jobs, chunksize=8) if line]
    with open(options.folder / "clips.csv", "w", encoding="utf-8", newline="") as table:
        out = csv.writer(table)
        out.writerow(("clip", "condition", "track", "role", "offset"))
        out.writerows((clip, name, track, tracks[track]["role"] if track else "", start)
                      for clip, name, track, start in lines)


if __name__ == "__main__":
    main()
