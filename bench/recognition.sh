#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# recognition.sh BUILD   what part of noisy clips of music is named, and what indexing and asking cost; one line a
# figure: name, value (for clips of 3/5/10 s), unit. Music and clips are made once for each seed
# (TRACKWISE_BENCH_SEED, default 1), under TRACKWISE_BENCH_DIR (default: /var/tmp/trackwise-bench; 2 GB).
# The music is out of Debian's packages, which needs a network; the clips need ffmpeg, espeak-ng, python3-numpy and
# python3-scipy.
set -eu

build=$1
here=$(dirname "$0")/recognition
figures=$build/bench/recognition/recognition_figures
work=${TRACKWISE_BENCH_DIR:-/var/tmp/trackwise-bench}/recognition
seed=${TRACKWISE_BENCH_SEED:-1}
clips=$work/clips-$seed
mkdir -p "$work"

/usr/bin/python3 "$here/fetch_corpus.py" "$work/music"
if [ ! -d "$clips" ]; then
    rm -rf "$work/making"
    /usr/bin/python3 "$here/make_clips.py" "$work/music" "$work/making" --seed "$seed"
    mv "$work/making" "$clips"
fi
"$figures" "$work/music/indexed" "$clips" "$work/answers-$seed"
/usr/bin/python3 "$here/recall.py" "$clips/clips.csv" "$work/answers-$seed" --threshold 4.5
