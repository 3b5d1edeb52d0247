#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What becomes of sessions that listen to clips: one line a figure, name, value, unit.

    sessions.py CLIPS LOOKS THRESHOLD [--without LOOKS --music FOLDER]

CLIPS is what make_clips.py says of its clips, LOOKS what recognition_sessions printed, also for clips whose song the
catalog was without: then FOLDER has the music, and answers that share recorded sound with what was heard are counted
apart. A session answers when two looks in a row score above the threshold and agree on the song; as in
fingerprint/Listening.cpp, every second after the fourth asks for 0.2 more.
"""
import argparse
import csv
import math
from collections import defaultdict
from pathlib import Path

from shared_sound import share_sound


def more_asked(seconds):
    return 0.2 * max(0, seconds - 4)


class Sessions:
    def __init__(self, path):
        self.looks = defaultdict(list)
        self.milliseconds = []
        with open(path, encoding="utf-8") as lines:
            for line in lines:
                clip, seconds, song, score, milliseconds = line.rstrip("\n").split("\t")
                at = float(seconds)
                self.looks[clip].append((at, song, float(score) - more_asked(at)))
                self.milliseconds.append(float(milliseconds))

    def answer_to(self, clip, threshold):
        """The song, and after how many seconds; nothing where there is no answer."""
        looks = self.looks[clip]
        for (_, before, lower), (seconds, song, score) in zip(looks, looks[1:]):
            if song == before != "NONE" and min(lower, score) > threshold:
                return song, seconds
        return None

    def highest(self, clip):
        """The threshold that it takes not to answer."""
        looks = self.looks[clip]
        return max((min(a[2], b[2]) for a, b in zip(looks, looks[1:]) if a[1] == b[1] != "NONE"), default=0)


def print_times(name, values, unit):
    values = sorted(values)
    at = [values[min(len(values) - 1, int(len(values) * share))] for share in (0.5, 0.9, 1)]
    print(f"{name} {at[0]:.2f} {unit} (90 % {at[1]:.2f}, worst {at[2]:.2f})")


def print_mistake(clip, answer):
    print(f"# {clip['clip']} of {clip['track'] or 'no music'}: {answer[0]} after {answer[1]} s")


def print_answers(clips, sessions, threshold):
    times, wrong = defaultdict(list), []
    for clip in clips:
        answer = sessions.answer_to(clip["clip"], threshold)
        is_right = answer and answer[0] == clip["track"]
        times[clip["condition"]].append(answer[1] if is_right else math.inf)
        if answer and not is_right:
            wrong.append((clip, answer))
    for condition, values in times.items():
        named = 100 * sum(value < math.inf for value in values) / len(values)
        print(f"answer_{condition} {sorted(values)[len(values) // 2]:.2f} s ({named:.1f} % named)")
    print(f"wrong {len(wrong)} of {sum(map(len, times.values()))} sessions")
    for clip, answer in wrong:
        print_mistake(clip, answer)


def print_false(name, clips, sessions, threshold):
    if not clips:
        return
    highest = max(sessions.highest(clip["clip"]) for clip in clips)
    false = [clip for clip in clips if sessions.answer_to(clip["clip"], threshold)]
    print(f"false_{name} {len(false)} of {len(clips)} sessions (none above {highest:.2f})")
    for clip in false:
        print_mistake(clip, sessions.answer_to(clip["clip"], threshold))


def print_without(clips, sessions, threshold, music):
    """Clips of songs that the catalog was without, but not of their siblings in it."""
    files = {path.name: path for path in music.rglob("*") if path.is_file()}
    siblings = []
    for clip in clips:
        answer = sessions.answer_to(clip["clip"], threshold)
        if answer and share_sound(files[clip["track"]], files[answer[0]]):
            siblings.append(clip)
    print_false("without_its_song", [clip for clip in clips if clip not in siblings], sessions, threshold)
    print_false("siblings", siblings, sessions, threshold)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("clips")
    parser.add_argument("looks")
    parser.add_argument("threshold", type=float)
    parser.add_argument("--without")
    parser.add_argument("--music", type=Path)
    options = parser.parse_args()
    sessions = Sessions(options.looks)
    with open(options.clips, encoding="utf-8", newline="") as table:
        clips = [row for row in csv.DictReader(table) if row["clip"] in sessions.looks]
    print_times("look", sessions.milliseconds, "ms")
    indexed = [clip for clip in clips if clip["role"] == "indexed"]
    print_answers(indexed, sessions, options.threshold)
    kinds = defaultdict(list)
    for clip in clips:
        if clip["role"] != "indexed":
            kind = clip["condition"].removeprefix("no-") + ("_music" if clip["track"] else "")
            kinds["versions" if clip["role"] == "version" else kind].append(clip)
    for kind, files in kinds.items():
        print_false(kind, files, sessions, options.threshold)
    if options.without:
        without = Sessions(options.without)
        print_without([clip for clip in indexed if clip["clip"] in without.looks], without, options.threshold,
                      options.music)


if __name__ == "__main__":
    main()
