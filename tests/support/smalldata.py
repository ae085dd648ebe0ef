# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A data directory of small files, with which the game starts in a moment."""

import shutil
import struct
import zlib

# In the order in which the game loads them.
PICTURES = ("logo.png", "menu.png", "tlacitka.png", "pozadie-lode3.png", "brannoc4f.png",
            "presentsscreen1.png", "bar1.png", "bar2.png", "kruh.png", "voda.png", "lod1.png",
            "strela2.png", "cball.png", "prekazka1.png", "prekazka2.png", "prekazka3.png")
FONT = "papyrus.ttf"
TRACKS = ("music1.mp3", "music2.mp3", "music3.mp3")
MARKER = "morvane.dat"
FILES = (*PICTURES, FONT, *TRACKS, MARKER)

SIDE = 100  # pixels; a sea of smaller tiles would take long to lay
GREY = 128


def chunk(kind, content):
    check = zlib.crc32(kind + content)
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", check)


def picture():
    """A grey square, as a PNG file."""
    header = struct.pack(">IIBBBBB", SIDE, SIDE, 8, 0, 0, 0, 0)
    rows = (b"\0" + bytes([GREY]) * SIDE) * SIDE
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def make(directory, samples):
    """Makes all the files; font and music come from a directory of samples."""
    directory.mkdir()
    for name in PICTURES:
        (directory / name).write_bytes(picture())
    shutil.copy(samples / "blocks.ttf", directory / FONT)
    for name in TRACKS:
        shutil.copy(samples / "silence.mp3", directory / name)
    (directory / MARKER).touch()
