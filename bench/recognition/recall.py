#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What part of the clips was named rightly: one line a figure, name, values for each length of clip, unit.

  recall.py CLIPS ANSWERS [--threshold N]

CLIPS is what make_clips.py says of its clips, ANSWERS what recognition_figures printed; goals.csv has what is to
be reached. A score counts above the threshold: for each length the highest score of a clip of no indexed song, then
the highest of these for all lengths, then N. Clips of versions of indexed songs are not asked for here.
"""
import argparse
import csv
import pathlib
from collections import Counter, defaultdict

HERE = pathlib.Path(__file__).parent
LENGTHS = ("3", "5", "10")


def rows_of(path):
    with open(path, encoding="utf-8", newline="") as lines:
        return list(csv.DictReader(lines))


def answers_of(path):
    """For each clip and length the song, the score and the milliseconds."""
    answers = {}
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            clip, seconds, song, score, milliseconds, _ = line.rstrip("\n").split("\t")
            answers[clip, seconds] = (song, float(score), float(milliseconds))
    return answers


def kinds_of(condition):
    """The rows of the table that a clip counts in: faster and slower go together."""
    if condition.startswith(("speed", "tempo")):
        return condition[:5] + "±" + condition[6:], "all"
    return condition, "all"


def in_turn(counts):
    return "/".join(str(counts[length]) for length in LENGTHS)


class Figures:
    def __init__(self, clips, answers, goals):
        self.goals = goals
        self.positives, self.negatives = [], []  # of each the clip, its length, the song and the score
        for clip in clips:
            for length in LENGTHS:
                answer = answers.get((clip["clip"], length))
                if answer and clip["role"] != "version":
                    (self.positives if clip["role"] == "indexed" else self.negatives).append((clip, length, *answer[:2]))

    def thresholds(self):
        """For each length the highest score of a clip that nothing is to be found for."""
        highest = dict.fromkeys(LENGTHS, 0.0)
        for _, length, song, score in self.negatives:
            if song != "NONE":
                highest[length] = max(highest[length], score)
        return highest

    def print_at(self, thresholds, suffix, only_all=False):
        right, wrong, asked = defaultdict(Counter), Counter(), defaultdict(Counter)
        for clip, length, song, score in self.positives:
            is_answered = song != "NONE" and score > thresholds[length]
            wrong[length] += is_answered and song != clip["track"]
            for kind in kinds_of(clip["condition"]):
                asked[kind][length] += 1
                right[kind][length] += is_answered and song == clip["track"]
        for kind in ["all"] if only_all else sorted(asked, key=list(self.goals).index):
            percent = [100 * right[kind][length] / max(1, asked[kind][length]) for length in LENGTHS]
            goal = self.goals.get(kind + suffix)
            note = ""
            if goal:
                is_below = any(reached < float(wanted) for reached, wanted in zip(percent, goal))
                note = f" (goal {'/'.join(goal)}{', below' if is_below else ''})"
            print(f"recall_{kind}{suffix} {'/'.join(f'{value:.1f}' for value in percent)} %{note}")
        false = Counter(length for _, length, song, score in self.negatives
                        if song != "NONE" and score > thresholds[length])
        print(f"wrong{suffix} {in_turn(wrong)} clips")
        print(f"false{suffix} {in_turn(false)} clips")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("clips")
    parser.add_argument("answers")
    parser.add_argument("--threshold", type=float)
    options = parser.parse_args()
    answers = answers_of(options.answers)
    goals = {row["condition"]: [row[length] for length in LENGTHS] for row in rows_of(HERE / "goals.csv")}
    figures = Figures(rows_of(options.clips), answers, goals)
    lowest = figures.thresholds()
    print(f"threshold {'/'.join(f'{lowest[length]:.2f}' for length in LENGTHS)}")
    figures.print_at(lowest, "")
    figures.print_at(dict.fromkeys(LENGTHS, max(lowest.values())), "_at_one_threshold", only_all=True)
    if options.threshold is not None:
        figures.print_at(dict.fromkeys(LENGTHS, options.threshold), f"_at_{options.threshold:g}", only_all=True)
    for length in LENGTHS:
        times = sorted(time for (_, seconds), (_, _, time) in answers.items() if seconds == length)
        if times:
            print(f"query_{length}s {times[len(times) // 2]:.1f} ms (95 % {times[len(times) * 95 // 100]:.1f})")


if __name__ == "__main__":
    main()
