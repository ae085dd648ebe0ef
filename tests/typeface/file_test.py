# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""data/papyrus.ttf is sound, named and licensed, even in colour, and what its sources build."""
import subprocess
import unicodedata
from statistics import mean, pstdev

import pytest
from fontTools.ttLib import TTFont

import gametexts

FONT = gametexts.ROOT / 'data' / 'papyrus.ttf'
BUILD = gametexts.ROOT / 'assets' / 'typeface' / 'build'
# The accents of Latin-1 that do not touch their letter, unlike the cedilla.
FREE_MARKS = {'GRAVE', 'ACUTE', 'CIRCUMFLEX', 'TILDE', 'DIAERESIS'}


@pytest.fixture(scope='module', name='font')
def opened_font():
    return TTFont(FONT)


@pytest.fixture(scope='module', name='measure')
def measuring_module():
    pytest.importorskip('fontforge', reason='python3-fontforge builds and measures the typeface')
    import measure  # pylint: disable=import-outside-toplevel  (needs fontforge)
    return measure


@pytest.fixture(scope='module', name='opened')
def opened_in_fontforge(measure):
    return measure.fontforge.open(str(FONT))


def name(font, number):
    return font['name'].getDebugName(number)


def contours(font, character):
    return font['glyf'][font.getBestCmap()[ord(character)]].numberOfContours


def free_accents():
    for code in range(192, 256):
        character = chr(code)
        parts = unicodedata.normalize('NFD', character)
        if len(parts) == 2 and unicodedata.name(parts[1]).split()[1] in FREE_MARKS:
            yield character, 'ı' if parts[0] == 'i' else parts[0], parts[1]


def even(values, deviation, spread):
    """No value strays from the mean by more than the spread, all together by the deviation."""
    middle = mean(values)
    assert pstdev(values) <= deviation
    assert all(abs(value - middle) <= spread for value in values)


def test_file_carries_its_names_and_licence(font):
    assert name(font, 1) == name(font, 4) == 'Morvane Quill'
    assert name(font, 6) == 'MorvaneQuill'
    assert 'SIL Open Font License, Version 1.1' in name(font, 13)
    assert name(font, 14) == 'https://openfontlicense.org'
    assert font['OS/2'].fsType == 0


def test_missing_characters_show_a_frame(font):
    assert font.getGlyphOrder()[0] == '.notdef'
    assert font['glyf']['.notdef'].numberOfContours == 2


def test_outlines_are_not_hinted(font):
    assert 'fpgm' not in font
    assert not any(getattr(glyph, 'program', None) and glyph.program.getBytecode()
                   for glyph in font['glyf'].glyphs.values())


@pytest.mark.parametrize('character, letter, mark', free_accents())
def test_accents_stand_free_of_their_letter(font, character, letter, mark):
    parts = 2 if unicodedata.name(mark).endswith('DIAERESIS') else 1
    letters = 1 if letter == 'ı' else contours(font, letter)
    assert contours(font, character) == letters + parts


def test_fontforge_finds_no_fault(measure):
    assert not list(measure.faults(FONT))


def test_sources_build_the_same_file(measure, tmp_path):
    assert measure
    again = tmp_path / 'papyrus.ttf'
    subprocess.run([BUILD, again], check=True, capture_output=True)
    assert again.read_bytes() == FONT.read_bytes()


def test_stems_are_equally_thick(measure, opened):
    # In pixels at the game's size.
    small = measure.stems(opened, 'bhiklmnpr', opened.os2_xheight * .35)
    capital = measure.stems(opened, 'BDEFHIKLPR', opened.os2_capheight * .25)
    even(small + capital, deviation=.25, spread=.5)


def test_words_are_equally_grey(measure, opened):
    # Words in small letters only: a capital's share of the low band depends on its shape.
    greys = measure.word_greys(opened, measure.kern_table(FONT), gametexts.texts(),
                               opened.os2_xheight)
    even([grey for word, grey in greys.items() if word.islower()], deviation=2, spread=4.5)


def test_letters_of_words_stand_equally_far_apart(measure, opened):
    whites = measure.word_whites(opened, measure.kern_table(FONT), gametexts.texts(),
                                 opened.os2_xheight)
    even(whites.values(), deviation=.65, spread=2)
