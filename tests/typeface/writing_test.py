# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The game's texts as SDL_ttf renders them at the game's size."""
import ctypes
import os
from pathlib import Path

import numpy
import pytest

import gametexts
from robots.text import Writer

LINE_HEIGHT = 48
# The longest line fills the 800-pixel display well and keeps a margin.
LONGEST = range(640, 781)
CHARACTERS = [chr(code) for code in (*range(32, 127), *range(160, 256))]
PRINTING = [character for character in CHARACTERS if not character.isspace()]
TEXTS = gametexts.texts()


@pytest.fixture(scope='module', name='writer')
def writer_with_the_game_typeface():
    return Writer(gametexts.ROOT)


def of_font(writer, function, *arguments):
    return getattr(writer.library, function)(ctypes.c_void_p(writer.font), *arguments)


def vertical_extent(writer, character):
    lowest, highest = ctypes.c_int(), ctypes.c_int()
    failure = of_font(writer, 'TTF_GlyphMetrics', ctypes.c_uint16(ord(character)), None, None,
                      ctypes.byref(lowest), ctypes.byref(highest), None)
    assert failure == 0
    return lowest.value, highest.value


def width(writer, text):
    return writer.write(text).shape[1]


def test_runs_on_the_library_asked_for(writer):
    assert writer.font
    mapped = Path('/proc/self/maps').read_text().split()
    sdl = [path for path in mapped if '/libSDL-1.2.so' in path]
    assert sdl
    asked = Path(os.environ.get('LD_LIBRARY_PATH', '').split(':')[0]).resolve()
    if (asked / 'libSDL-1.2.so.0').exists():
        assert {Path(path).parent for path in sdl} == {asked}


def test_texts_of_the_game_were_found():
    screens = gametexts.screens()
    assert {'credits', 'helpscreen', 'gameover1', 'gameover2'} <= set(screens)
    assert len(TEXTS) >= 14


@pytest.mark.parametrize('character', sorted(set(''.join(TEXTS))))
def test_every_character_of_a_text_has_a_glyph(writer, character):
    assert of_font(writer, 'TTF_GlyphIsProvided', ctypes.c_uint16(ord(character))) != 0


def test_longest_text_uses_the_width_of_the_display(writer):
    assert max(width(writer, text) for text in TEXTS) in LONGEST


def test_every_line_has_the_same_height(writer):
    assert of_font(writer, 'TTF_FontHeight') == LINE_HEIGHT
    assert {len(writer.write(text)) for text in TEXTS} == {LINE_HEIGHT}


@pytest.mark.parametrize('character', PRINTING)
def test_ink_leaves_air_between_two_lines(writer, character):
    ink = writer.write(character)
    assert ink.any()
    # SDL_ttf cuts off what rises above the line; whatever is drawn leaves the last row empty.
    lowest, highest = vertical_extent(writer, character)
    assert highest <= of_font(writer, 'TTF_FontAscent')
    assert lowest >= of_font(writer, 'TTF_FontDescent')
    assert not ink[-1].any()


@pytest.mark.parametrize('screen', gametexts.screens())
def test_lines_of_a_screen_do_not_touch(writer, screen):
    rows = {line: writer.write(text).any(axis=1)
            for line, text in gametexts.screens()[screen]}
    for line, inked in rows.items():
        if line + 1 in rows:
            below = rows[line + 1]
            gap = LINE_HEIGHT - numpy.flatnonzero(inked)[-1] + numpy.flatnonzero(below)[0] - 1
            assert gap >= 2


@pytest.mark.parametrize('pair', ['AV', 'To', 'Ta', 'Yo', 'Wa', 'LT', 'P,'])
def test_open_pairs_are_kerned(writer, pair):
    kerned = width(writer, pair)
    of_font(writer, 'TTF_SetFontKerning', 0)
    try:
        assert kerned < width(writer, pair)
    finally:
        of_font(writer, 'TTF_SetFontKerning', 1)
