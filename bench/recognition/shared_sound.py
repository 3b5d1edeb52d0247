# SPDX-License-Identifier: GPL-3.0-or-later
"""Whether two pieces of music share recorded sound: a loop, a stem, a part that was copied.

They do where their samples are correlated at one shift far more than at others. Both are whitened first (divided by
their smoothed spectra), so that a long tone is no more than one frequency of many.
"""
import subprocess

import numpy as np

RATE = 16000
# Of the correlations around it, what the highest is of strangers: 5 to 8, in a thousand times as many places.
SHARED = 10
LOWEST_HZ, HIGHEST_HZ, SMOOTHED_HZ = 200, 7500, 50
AROUND = 4 * RATE
PIECE = 12 * RATE


def sound_of(path):
    decoded = subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-map", "0:a:0", "-ac", "1", "-ar", str(RATE),
                              "-f", "f32le", "-"], stdout=subprocess.PIPE, check=True)
    return np.frombuffer(decoded.stdout, np.float32)


def whitened(spectrum):
    bins_per_hz = len(spectrum) / (RATE / 2)
    reach = int(SMOOTHED_HZ * bins_per_hz)
    power = np.cumsum(np.pad(np.abs(spectrum) ** 2, reach, mode="edge"))
    smooth = (power[2 * reach:] - power[:-2 * reach]) / (2 * reach)
    white = spectrum / np.sqrt(smooth + 1e-12)
    white[:int(LOWEST_HZ * bins_per_hz)] = 0
    white[int(HIGHEST_HZ * bins_per_hz):] = 0
    return white


def is_in(piece, music):
    """Whether a part of @piece, some seconds long, is somewhere in @music."""
    if len(music) <= len(piece):
        piece, music = music, piece
    size = 1 << (len(piece) + len(music)).bit_length()
    spectra = [whitened(np.fft.rfft(sound, size)) for sound in (piece, music)]
    shifted = np.abs(np.fft.irfft(spectra[0].conj() * spectra[1], size)[:max(1, len(music) - len(piece))])
    power = np.cumsum(np.concatenate([[0], shifted**2]))
    at = np.arange(len(shifted))
    first, last = np.maximum(at - AROUND, 0), np.minimum(at + AROUND, len(shifted))
    usual = np.sqrt((power[last] - power[first]) / (last - first))
    return bool(np.max(shifted / (usual + 1e-12)) > SHARED)


def share_sound(path, other):
    """Whether the music of two files is related; what is longer than five minutes is compared in parts."""
    sound, music = sound_of(path), sound_of(other)
    begins = range(0, max(1, len(sound) - PIECE), max(PIECE, len(sound) // 25))
    return any(is_in(sound[begin:begin + PIECE], music) for begin in begins)
