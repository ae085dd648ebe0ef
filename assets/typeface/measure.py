# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Measures a finished typeface file: stems, side bearings, the grey and white of words, faults.

Lengths are pixels at the game's size.
"""
import re
import struct
from statistics import mean, pstdev

import fontforge

import spacing
from outline import polygon

PIXEL = spacing.PIXEL
HARMLESS = 0x1
CHARACTERS = [*range(32, 127), *range(160, 256)]


def crossings(glyph, height):
    """Where the glyph's edges cross a horizontal line, from left to right."""
    out = []
    for contour in glyph.foreground:
        points = polygon(contour, spacing.SCAN)
        for p, q in zip(points, points[1:] + points[:1]):
            if (p.imag > height) != (q.imag > height):
                out.append(p.real + (height - p.imag) * (q.real - p.real) / (q.imag - p.imag))
    return sorted(out)


def stems(font, names, height):
    """Widths of the leftmost stroke, which in these letters is an upright stem."""
    first = (crossings(font[name], height)[:2] for name in names)
    return [(right - left) / PIXEL for left, right in first]


def described(label, values):
    return (f'{label}: mean {mean(values):.2f}, deviation {pstdev(values):.2f}, '
            f'{min(values):.2f} to {max(values):.2f} ({len(values)})')


def bearing_lines(font, label, names):
    glyphs = [font[name] for name in names]
    yield described(f'{label} left bearings', [g.left_side_bearing / PIXEL for g in glyphs])
    yield described(f'{label} right bearings', [g.right_side_bearing / PIXEL for g in glyphs])


def kern_table(path):
    """(left, right) glyph index -> units, from the old kern table: the one SDL_ttf obeys."""
    data = path.read_bytes()
    count = struct.unpack_from('>H', data, 4)[0]
    tables = {data[12 + 16 * i:16 + 16 * i]: struct.unpack_from('>LL', data, 20 + 16 * i)
              for i in range(count)}
    offset = tables[b'kern'][0]
    pairs = struct.unpack_from('>H', data, offset + 10)[0]
    entries = (struct.unpack_from('>HHh', data, offset + 18 + 6 * i) for i in range(pairs))
    return {(left, right): value for left, right, value in entries}


def word_whites(font, kerns, texts, height):
    """Mean white between neighbouring letters of words over the height of small letters."""
    letters = {c for text in texts for c in text if c.isalpha()}
    glyphs = {c: font[ord(c)] for c in letters}
    pairs = spacing.Pairs(glyphs.values(), 0, height)
    whites = {}
    for text in texts:
        for a, b in re.findall(r'(?=([A-Za-z])([a-z]))', text):
            kern = kerns.get((glyphs[a].originalgid, glyphs[b].originalgid), 0)
            white = pairs.white(glyphs[a].glyphname, glyphs[b].glyphname, (0, height))
            whites[a + b] = (white + kern) / PIXEL
    return whites


def ink(glyph, height):
    """Mean length of ink on a line, from the baseline to the height."""
    lines = [y + spacing.OFF_GRID for y in range(0, int(height), spacing.SCAN)]
    edges = (crossings(glyph, y) for y in lines)
    return sum(q - p for e in edges for p, q in zip(e[::2], e[1::2])) / len(lines)


def letter_greys(font, letters, height):
    """Share of ink in each letter's advance, in per cent."""
    return {c: 100 * ink(font[ord(c)], height) / font[ord(c)].width for c in letters}


def word_greys(font, kerns, texts, height):
    """Share of ink in words over the height of small letters, in per cent."""
    greys = {}
    for word in {w for text in texts for w in re.findall('[A-Za-z]{3,}', text)}:
        glyphs = [font[ord(c)] for c in word]
        kerned = sum(kerns.get((a.originalgid, b.originalgid), 0)
                     for a, b in zip(glyphs, glyphs[1:]))
        width = sum(g.width for g in glyphs) + kerned
        greys[word] = 100 * sum(ink(g, height) for g in glyphs) / width
    return greys


def ranked(label, lowest, highest, values):
    """A line of statistics and the names at both ends."""
    yield described(label, list(values.values()))
    order = sorted(values, key=lambda name: (values[name], name))
    for end, some in ((lowest, order[:6]), (highest, order[-6:])):
        yield f'  {end}: ' + ', '.join(f'{name} {values[name]:.1f}' for name in some)


def statistics(path, texts):
    font = fontforge.open(str(path))
    x_height, cap_height = font.os2_xheight, font.os2_capheight
    small = 'abcdefghijklmnopqrstuvwxyz'
    for names, height in (('bhiklmnpr', x_height * .35), ('BDEFHIKLPR', cap_height * .25)):
        yield described('stems of ' + ' '.join(names), stems(font, names, height))
    yield from bearing_lines(font, "small letters'", small)
    yield from bearing_lines(font, "capitals'", small.upper())
    kerns = kern_table(path)
    for label, letters, height in (("small letters'", small, x_height),
                                   ("capitals'", small.upper(), cap_height),
                                   ("digits'", '0123456789', cap_height)):
        yield from ranked(f'{label} grey, %', 'light', 'dark', letter_greys(font, letters, height))
    yield from ranked("grey of the game's words, %", 'light', 'dark',
                      word_greys(font, kerns, texts, x_height))
    yield from ranked("white between letters of the game's words", 'tight', 'loose',
                      word_whites(font, kerns, texts, x_height))
    yield f'kern table: {len(kerns)} pairs'


def faults(path):
    """What is wrong with the file, as sentences; empty when all is well."""
    font = fontforge.open(str(path))
    for code in CHARACTERS:
        if code not in font:
            yield f'U+{code:04X} is missing'
        elif code not in (0x20, 0xa0) and not len(font[code].foreground):
            yield f'U+{code:04X} is empty'
    for glyph in font.glyphs():
        fault = glyph.validate(True) & ~HARMLESS
        if fault:
            yield f'{glyph.glyphname}: fontforge finds fault {fault:#x}'
        _, bottom, _, top = glyph.boundingBox()
        if bottom < font.hhea_descent or top > font.hhea_ascent:
            yield f'{glyph.glyphname} leaves the line'
        if glyph.unicode in CHARACTERS and glyph.width % PIXEL:
            yield f'{glyph.glyphname}: advance of {glyph.width} is not whole pixels'
    for pair, value in kern_table(path).items():
        if value % PIXEL:
            yield f'kern {pair} of {value} is not whole pixels'
