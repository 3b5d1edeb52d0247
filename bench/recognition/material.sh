# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh
#
# What recognition is measured with; read by the scripts that measure it, with the build folder in $build. It is made
# once, under TRACKWISE_BENCH_DIR (default: /var/tmp/trackwise-bench; up to 7 GB). The music is out of Debian's packages,
# which needs a network; clips of it need ffmpeg, espeak-ng, python3-numpy and python3-scipy. Other clips come of
# another TRACKWISE_BENCH_SEED (default: 1).
programs=${build:?}/bench/recognition
scripts=$(dirname "$0")/recognition
work=${TRACKWISE_BENCH_DIR:-/var/tmp/trackwise-bench}/recognition
seed=${TRACKWISE_BENCH_SEED:-1}
# The score that is enough for an answer.
# shellcheck disable=SC2034 # for those that read this
certain=$(sed -n 's/.*certainScore = \([0-9.]*\).*/\1/p' "$(dirname "$0")/../src/fingerprint/Matcher.h")
mkdir -p "$work"
"$scripts/fetch_corpus.py" "$work/music"

# clips COUNT NEGATIVES: makes such clips; see make_clips.py. Their folder is then in $clips.
clips() {
    clips=$work/clips-$seed-$1-$2
    [ -d "$clips" ] && return
    rm -rf "$work/making"
    "$scripts/make_clips.py" "$work/music" "$work/making" --seed "$seed" --count "$1" --negatives "$2"
    mv "$work/making" "$clips"
}

# catalog COUNT [compact]: makes a catalog of so many songs. Its file is then in $catalog; what making it cost, in
# $catalog.figures.
catalog() {
    catalog=$work/catalog-$1${2:+-$2}
    [ -f "$catalog.figures" ] && [ -z "$(find "$programs/recognition_catalog" -newer "$catalog.figures")" ] && return
    "$programs/recognition_catalog" "$work/music/indexed" "$catalog" "$@" >"$catalog.making"
    mv "$catalog.making" "$catalog.figures"
}

# prefixed PREFIX: puts it before the name of each figure
prefixed() { sed "/^#/!s/^/$1_/"; }
