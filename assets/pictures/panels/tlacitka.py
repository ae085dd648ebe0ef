# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The button strip: 13 normal cells of 200 x 43, then the same 13 highlighted.

Normal is gold on dark wood; highlighted is dark ink on lit wood between two arrow heads, so
that the difference is one of brightness and shape, not of hue. Rows without words carry an
emblem; a word is given to a row by adding it to WORDS.
"""
import numpy as np
from PIL import Image

from common.canvas import Canvas, blend
from common.palette import BRASS, GOLD, WOOD_DARK, WOOD_LIT, linear
from common.raster import layer, over, reduce, to_image
from common.relief import mix, moulding, rivet, shade, wood
from panels.emblems import anchor, moon, rose, sun

W, H, CELLS = 200, 43, 13
WORDS = {2: 'New game', 8: 'Help', 9: 'Credits', 11: 'Quit'}
X0, Y0, X1, Y1 = 3, 2, 196, 39
MIDDLE = ((X0 + X1) / 2, (Y0 + Y1) / 2)
EMBLEMS = (lambda c, x, y: rose(c, x, y, 14)[0], lambda c, x, y: anchor(c, x, y, 26),
           lambda c, x, y: sun(c, x, y, 13), lambda c, x, y: moon(c, x, y, 11))


def plate(c, row, lit):
    d = c.rounded(X0, Y0, X1, Y1, 8)
    colours = WOOD_LIT if lit else WOOD_DARK
    surface = wood(c, 100 + row * 7, None, colours)
    surface = surface * (.5 + .5 * np.clip(d / (5 if lit else 8), 0, 1))[..., None]
    if lit:
        glow = np.exp(-((c.x - MIDDLE[0]) / 84) ** 2 - ((c.y - MIDDLE[1]) / 17) ** 2)
        surface = surface + glow[..., None] * linear('ffd98a') * .35
    brass = moulding(c, d, 3.6, 7, GOLD if lit else BRASS) * (1.2 if lit else .85)
    return blend(surface, brass, d < 3.6), d


def carve(c, surface, mask):
    """Gold letters standing on dark wood.

    At this size a letter's stroke is three pixels wide: a deep bevel would fray it. So a dark
    line separates it from the wood, and the bevel is shallow.
    """
    line = np.clip((1.15 - c.outside(mask)) * c.scale * .5, 0, 1)
    drop = c.blur(c.moved(mask, 1, 1.4), .8) * .75
    surface = surface * (1 - np.clip(drop, 0, .8))[..., None]
    surface = blend(surface, linear('160a04'), line * .9)
    down = np.clip((c.y - MIDDLE[1] + 9) / 20, 0, 1)
    gold = mix(GOLD, .82 - .24 * down)
    return blend(surface, shade(gold, c.bevel(mask, 1.6, .35) * .5, .55) * 1.12, mask)


def burn(c, surface, mask):
    """Dark letters sunk into lit wood, with light on their lower right edge."""
    edge = np.clip(c.moved(mask, .8, 1.) - mask, 0, 1)
    surface = surface + edge[..., None] * linear('fff3c0') * .5
    return blend(surface, linear('2c0d06'), mask)


def ornament(c, row):
    """What stands on a plate that has no words yet: an emblem between two tapering rules."""
    x, y = MIDDLE
    emblem = EMBLEMS[row % len(EMBLEMS)](c, x, y)
    for side in (-1, 1):
        rule = c.polygon([(x + side * 20, y - 1.5), (x + side * 56, y - .4),
                          (x + side * 56, y + .4), (x + side * 20, y + 1.5)])
        emblem = np.maximum.reduce([emblem, rule, c.soft(2.2 - c.radius(x + side * 58, y))])
    return emblem


def ends(c, surface, lit):
    """Rivets, or on the highlighted plate arrow heads towards its middle."""
    if not lit:
        for x in (X0 + 10, X1 - 10):
            surface = rivet(c, surface, x, MIDDLE[1], 2.6)
        return surface
    y = MIDDLE[1]
    heads = c.polygon([(X0 + 11, y - 8), (X0 + 23, y), (X0 + 11, y + 8), (X0 + 14.5, y)],
                      [(X1 - 11, y - 8), (X1 - 23, y), (X1 - 11, y + 8), (X1 - 14.5, y)])
    return blend(surface, linear('8c1a18'), heads)


def cell(c, row, lit):
    surface, d = plate(c, row, lit)
    surface = ends(c, surface, lit)
    if row in WORDS:
        mask = c.fatten(c.text(WORDS[row], 19, MIDDLE[0], 28.5, spacing=.8), .2)
    else:
        mask = ornament(c, row)
    surface = burn(c, surface, mask) if lit else carve(c, surface, mask)
    cover = c.soft(d)
    dark = c.shadow(cover, 1.5, 2, 1.2, .55)
    stack = over(layer(surface, cover), layer(linear('night'), dark))
    stack = stack * np.clip(c.edge() / 1.5, 0, 1)[..., None]
    return to_image(reduce(stack, c.scale))


def make(_work):
    c = Canvas(W, H)
    sheet = Image.new('RGBA', (W, H * CELLS * 2))
    for lit in (0, 1):
        for row in range(CELLS):
            sheet.paste(cell(c, row, lit), (0, (lit * CELLS + row) * H))
    return sheet
