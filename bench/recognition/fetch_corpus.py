#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fetches the music that recognition is measured with: tracks of games, out of Debian's packages.

    fetch_corpus.py FOLDER        needs apt-get, dpkg-deb and a network

tracks.csv names the tracks, each after the package it is in, and says what they are for: those to index, foreign
ones, which nothing is to be found for, and versions of indexed ones; each goes into FOLDER/ROLE. Packages are
downloaded, never installed, and left alone if their tracks are there. Fails with a list of what is missing in the end.
"""
import csv
import hashlib
import pathlib
import subprocess
import sys
import tempfile
import zipfile

HERE = pathlib.Path(__file__).parent
ARCHIVES = {".pk3", ".zip", ".dat", ".ocg", ".wz"}


def unpacked(package, folder):
    """Whether the files of the package are now in the folder."""
    fetched = subprocess.run(["apt-get", "-q", "download", package], cwd=folder, capture_output=True, text=True)
    files = list(folder.glob("*.deb"))
    if fetched.returncode != 0 or not files:
        print(f"{package}: {fetched.stderr.strip() or 'was not downloaded'}", file=sys.stderr)
        return False
    subprocess.run(["dpkg-deb", "-x", files[0], folder], check=True)
    return True


def contents_of(folder):
    """What the files of the folder hold, and the files in archives among them."""
    for path in sorted(folder.rglob("*")):
        if path.is_symlink() or not path.is_file():
            continue
        if path.suffix.lower() in ARCHIVES and zipfile.is_zipfile(path):
            with zipfile.ZipFile(path) as archive:
                for name in archive.namelist():
                    yield archive.read(name)
        elif path.suffix != ".deb":
            yield path.read_bytes()


def main():
    music = pathlib.Path(sys.argv[1])
    with open(HERE / "tracks.csv", encoding="utf-8", newline="") as table:
        wanted = {row["sha1"]: music / row["role"] / row["track"] for row in csv.DictReader(table)}
    for folder in {path.parent for path in wanted.values()}:
        folder.mkdir(parents=True, exist_ok=True)

    def missing():
        return sorted(path.name for path in wanted.values() if not path.exists())

    for package in sorted({track.split("__")[0] for track in missing()}):
        with tempfile.TemporaryDirectory(dir=music.parent) as scratch:
            if not unpacked(package, pathlib.Path(scratch)):
                continue
            for content in contents_of(pathlib.Path(scratch)):
                path = wanted.get(hashlib.sha1(content).hexdigest())
                if path:
                    whole = pathlib.Path(scratch) / "track"
                    whole.write_bytes(content)
                    whole.rename(path)
    if missing():
        print("missing, as there is no network, or other music in today's packages:", *missing(), sep="\n  ",
              file=sys.stderr)
        sys.exit(1)


if __name__ == "__main__":
    main()
