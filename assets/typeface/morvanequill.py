# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Assembles the typeface: writes every glyph, spaces it, kerns it and saves the TrueType file."""
import unicodedata
from pathlib import Path

import fontforge

import spacing
from outline import box, smooth_contour
from pen import Quill
from strokes import read_glyphs

HERE = Path(__file__).resolve().parent
PRODUCT = HERE.parent.parent / 'data' / 'papyrus.ttf'
FAMILY = 'Morvane Quill'
VERSION = '1.000'
COPYRIGHT = 'Copyright 2026 The Morvane makers'
LICENCE = ('This Font Software is licensed under the SIL Open Font License, Version 1.1 '
           '(SPDX: OFL-1.1). The license is available at https://openfontlicense.org')

EM = 29 * spacing.PIXEL
# Font units in a drawing unit. The letters are as large as the game's longest line allows in 800
# pixels, because the game uses one fixed size.
SCALE = 2.47
ASCENT, DESCENT = 37 * spacing.PIXEL, 10 * spacing.PIXEL
X_HEIGHT, CAP_HEIGHT = 480 * SCALE, 720 * SCALE
MOST_ATTEMPTS = 20
# FontForge's bits for 'validated' and for half-unit points, which TrueType implies.
HARMLESS = 0x1 | 0x80000
SPACE_WIDTH = 9 * spacing.PIXEL
# The share of an error in white space that kerning corrects. It is small beside low signs, where
# the white above is intended.
LETTER_KERNING, SIGN_KERNING = 0.74, 0.3
# Capitals beside each other stand further apart than a capital before small letters.
CAPITALS_APART = 0.6 * spacing.PIXEL
# The old kern table's length is a 16-bit number of bytes, 6 a pair.
MOST_KERNS = 10900
ASCENDERS = ('b', 'd', 'h', 'k', 'l', 'thorn')
KERNED_SIGNS = ('period comma colon semicolon exclam question quotesingle quotedbl hyphen slash '
                'parenleft parenright bracketleft bracketright').split()


def mark_extremes(glyph):
    """Points at the extremes, on whole units; rounding may move an extreme, hence twice."""
    glyph.round()
    for _ in range(2):
        glyph.addExtrema('all')
        glyph.round()


def new_font():
    font = fontforge.font()
    font.encoding = 'iso8859-1'
    font.em = EM
    font.layers['Fore'].is_quadratic = True
    font.fontname, font.familyname, font.fullname = 'MorvaneQuill', FAMILY, FAMILY
    font.weight, font.version, font.copyright = 'Regular', VERSION, COPYRIGHT
    names = (('UniqueID', f'{VERSION};{FAMILY}'), ('Version', f'Version {VERSION}'),
             ('License', LICENCE), ('License URL', 'https://openfontlicense.org'),
             ('Designer', 'The Morvane makers'),
             ('Descriptor', 'A quill hand for the screens of Morvane.'))
    for key, value in names:
        font.appendSFNTName('English (US)', key, value)
    return font


def set_metrics(font):
    """Line metrics; FontForge ignores each value whose *_add flag is still set."""
    metrics = {'hhea_ascent': ASCENT, 'hhea_descent': -DESCENT, 'os2_winascent': ASCENT,
               'os2_windescent': DESCENT, 'os2_typoascent': ASCENT, 'os2_typodescent': -DESCENT}
    for key in metrics:
        setattr(font, key + '_add', False)
    for key, value in metrics.items():
        setattr(font, key, value)
    font.os2_use_typo_metrics = True
    font.hhea_linegap = font.os2_typolinegap = 0
    font.os2_xheight, font.os2_capheight = round(X_HEIGHT), round(CAP_HEIGHT)
    font.os2_weight, font.os2_width, font.os2_fstype = 400, 5, 0
    font.os2_vendor = 'MORV'


def code_point(name):
    return -1 if name.startswith('_') else fontforge.unicodeFromName(name)


def base_letter(name, composed):
    """The letter whose spacing an accented letter keeps, else None."""
    parts = composed.get(name, ())
    return parts[0].name if any(part.accent for part in parts) else None


def category(name):
    code = code_point(name)
    return unicodedata.category(chr(code)) if code >= 0 else 'So'


def is_tall(name):
    return category(name) in ('Lu', 'Nd')


def letter_zone(name):
    """The height over which a glyph is spaced, or None for a sign spaced by its box."""
    if is_tall(name):
        return (0.0, CAP_HEIGHT)
    return (0.0, X_HEIGHT) if category(name) == 'Ll' else None


class Scribe:
    """Writes glyphs; a composed glyph is written from the strokes of its parts."""

    def __init__(self, drawn, composed):
        self.drawn, self.composed, self.quill = drawn, composed, Quill()

    def strokes(self, name):
        if name in self.drawn:
            return self.drawn[name]
        parts = self.composed[name]
        return [stroke.moved(part.scale, self.place(part, parts[0].name))
                for part in parts for stroke in self.strokes(part.name)]

    def place(self, part, letter):
        """Where the part goes: as told, or as an accent over the middle of its letter."""
        if not part.accent:
            return part.shift
        base, mark = (box(self.quill.ink(self.strokes(n))) for n in (letter, part.name))
        middle = (base[0] + base[2] - mark[0] - mark[2]) / 2
        return part.shift + middle

    def write(self, glyph):
        """Now and then the roughness makes two edges cross; then it is rolled again."""
        strokes = self.strokes(glyph.glyphname)
        for attempt in range(MOST_ATTEMPTS):
            layer = fontforge.layer()
            layer.is_quadratic = True
            for edge in self.quill.write(strokes, f'{glyph.glyphname} {attempt}'):
                layer += smooth_contour(edge, SCALE)
            glyph.foreground = layer
            mark_extremes(glyph)
            fault = glyph.validate(True) & ~HARMLESS
            if not fault:
                return
        raise ValueError(f'{glyph.glyphname}: no clean outline, fault {fault:#x}')


def space(font):
    for glyph in font.glyphs():
        zone = letter_zone(glyph.glyphname)
        if not zone:
            spacing.space_evenly(glyph)
        elif is_tall(glyph.glyphname):
            spacing.space_optically(glyph, zone, spacing.CAPITAL_WHITE, 56)
        else:
            spacing.space_optically(glyph, zone, spacing.WHITE, 32)


def check_height(font):
    """Lines of text stand one line height apart: ink outside it would touch the next line."""
    for glyph in font.glyphs():
        _, bottom, _, top = glyph.boundingBox()
        if bottom < -DESCENT or top > ASCENT:
            raise ValueError(f'{glyph.glyphname}: ink from {bottom} to {top} leaves the line')


def add_space(font):
    for code in (0x20, 0xa0):
        font.createChar(code).width = SPACE_WIDTH


def add_notdef(font):
    """An empty frame: a missing character must be seen, not guessed."""
    glyph = font.createChar(-1, '.notdef')
    draw = glyph.glyphPen()
    for x0, y0, x1, y1 in ((110, 0, 890, 1700), (790, 100, 210, 1600)):
        draw.moveTo((x0, y0))
        for point in ((x0, y1), (x1, y1), (x1, y0)):
            draw.lineTo(point)
        draw.closePath()
    draw = None
    glyph.width = 16 * spacing.PIXEL


def kernable(name):
    return letter_zone(name) is not None or name in KERNED_SIGNS


def side(name):
    """The reference letters for a glyph's spacing, or None for a sign."""
    return {'Lu': 'HO', 'Ll': 'no', 'Nd': 'HO'}.get(category(name))


def unwritten(first, second):
    """True for pairs that hardly occur in text; the small kern table leaves them out."""
    kinds = category(first), category(second)
    signs = [side(name) is None for name in (first, second)]
    return kinds == ('Ll', 'Lu') or all(signs) or 'Nd' in kinds and not any(signs)


def least_gap(first, second):
    meet = category(first) == 'Lu' and second in ASCENDERS
    return spacing.NEAREST_ASCENDER if meet else spacing.NEAREST


def class_kerns(pairs, bases):
    intended, table = {}, {}
    for a in bases:
        for b in bases:
            if unwritten(a, b):
                continue
            rhythm = side(a) or side(b) or 'HO', side(b) or side(a) or 'HO'
            zone = (0.0, X_HEIGHT if 'no' in rhythm else CAP_HEIGHT)
            if rhythm not in intended:
                intended[rhythm] = pairs.intended(*rhythm, zone)
            strength = LETTER_KERNING if side(a) and side(b) else SIGN_KERNING
            apart = CAPITALS_APART if category(a) == category(b) == 'Lu' else 0
            nearest = least_gap(a, b)
            table[a, b] = pairs.kern(a, b, zone, intended[rhythm], strength, apart, nearest)
    return table


def kern(font, composed):
    """Kerns by classes: an accented letter takes the kern of its letter unless it would touch."""
    glyphs = [g for g in font.glyphs() if kernable(g.glyphname)]
    pairs = spacing.Pairs(glyphs, -DESCENT, ASCENT)
    base = {g.glyphname: base_letter(g.glyphname, composed) or g.glyphname for g in glyphs}
    table = class_kerns(pairs, sorted(set(base.values()) & set(base)))
    font.addLookup('kern', 'gpos_pair', (), (('kern', (('latn', ('dflt',)),)),))
    font.addLookupSubtable('kern', 'kern pairs')
    count = 0
    for a in base:
        for b in base:
            value = pairs.clear(a, b, table.get((base[a], base[b]), 0), least_gap(a, b))
            if value:
                font[a].addPosSub('kern pairs', b, value)
                count += 1
    if count > MOST_KERNS:
        raise ValueError(f'{count} kerns do not fit the kern table')
    return count


def keep_unhinted(font):
    """A prep program just long enough that FreeType takes the outlines as hinted already.

    Its auto-hinter would otherwise straighten the quill's edges. The program is: scan conversion
    on at all sizes (511 SCANCTRL, 4 SCANTYPE), then cut-in 1 (SCVTCI), which changes nothing.
    """
    font.setTableData('prep', bytes([0xb8, 0x01, 0xff, 0x85, 0xb0, 0x04, 0x8d, 0xb0, 0x01, 0x1d]))
    font.gasp = ((65535, ('antialias',)),)


def build():
    drawn, composed = read_glyphs(HERE / 'glyphs.txt')
    font = new_font()
    scribe = Scribe(drawn, composed)
    for name in list(drawn) + list(composed):
        if not name.startswith('_'):
            scribe.write(font.createChar(fontforge.unicodeFromName(name), name))
    check_height(font)
    space(font)
    add_space(font)
    add_notdef(font)
    set_metrics(font)
    kerns = kern(font, composed)
    keep_unhinted(font)
    return font, kerns


def main(arguments):
    product = Path(arguments[0]).resolve() if arguments else PRODUCT
    font, kerns = build()
    font.generate(str(product), flags=('opentype', 'old-kern', 'no-FFTM-table'))
    print(f'{product}: {len(list(font.glyphs()))} glyphs, {kerns} kerns')
    return 0
