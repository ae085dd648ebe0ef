# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The game's files, and a data directory of small ones, with which the game starts in a moment."""

import shutil
import struct
import zlib
from collections import namedtuple

# The size is what the game needs, or near the real one if the game takes any size.
Picture = namedtuple("Picture", "size has_alpha")

# In the order in which the game loads them.
PICTURES = {
    "logo.png": Picture((500, 150), True),
    "menu.png": Picture((300, 440), True),
    "tlacitka.png": Picture((200, 1118), True),
    "pozadie-lode3.png": Picture((800, 600), False),
    "brannoc4f.png": Picture((500, 400), False),
    "presentsscreen1.png": Picture((640, 440), False),
    "bar1.png": Picture((400, 100), False),
    "bar2.png": Picture((400, 100), False),
    "kruh.png": Picture((621, 345), False),
    "voda.png": Picture((325, 325), False),
    "lod1.png": Picture((600, 600), True),
    "strela2.png": Picture((64, 64), True),
    "cball.png": Picture((20, 20), True),
    "prekazka1.png": Picture((220, 180), True),
    "prekazka2.png": Picture((130, 100), True),
    "prekazka3.png": Picture((60, 60), True),
}
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
