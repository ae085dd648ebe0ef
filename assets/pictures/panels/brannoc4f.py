# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The makers' emblem: a struck medal of Brannoc workshop.

To change: the words in `medal` and `make`, the tools in `mallet` and `adze`.
"""
import numpy as np
from PIL import Image

from common.canvas import Canvas, blend
from common.noise import fbm, smoothstep
from common.raster import reduce, to_opaque
from common.relief import metal
from panels.emblems import ring, rose

W, H = 500, 400
X, Y = W / 2, 168
RADIUS = 152
LETTERS = 121       # inner radius of the legend
CAPITAL = 17


def legend(c, words, size, radius, span, bottom=False):
    """Words around the medal, upright at the top or, if `bottom`, along the lower edge."""
    mask = np.zeros(c.shape)
    base = Y + radius + size if bottom else Y - radius
    for i, letter in enumerate(words):
        turn = span * (i / (len(words) - 1) - .5)
        one = Image.fromarray((c.text(letter, size, X, base) * 255).astype('uint8'))
        angle = turn if bottom else -turn
        centre = (X * c.scale, Y * c.scale)
        turned = one.rotate(angle, Image.BICUBIC, center=centre)
        mask = np.maximum(mask, np.asarray(turned) / 255.)
    return mask


def mallet(c):
    """Shipwright's mallet lying from lower left to upper right."""
    def at(u, v):
        return X + (u - v) * .7071, Y - (u + v) * .7071
    handle = c.stroke([at(-74, 0), at(40, 0)], 9)
    head = c.polygon([at(30, -30), at(66, -30), at(66, 30), at(30, 30)])
    return np.maximum(handle, head)


def adze(c):
    """Adze crossing the mallet, its blade to the upper left."""
    def at(u, v):
        return X - (u - v) * .7071, Y - (u + v) * .7071
    handle = c.stroke([at(-74, 0), at(48, 0)], 9)
    blade = c.polygon([at(40, -8), at(58, -10), at(60, 16), at(52, 44), at(46, 44), at(46, 14),
                       at(40, 10)])
    return np.maximum(handle, blade)


def medal(c):
    """Height of the whole medal in cells."""
    r = c.radius(X, Y)
    s = c.scale
    star, ridge, _, _ = rose(c, X, Y, 108)
    height = 2.5 * s * smoothstep(r, 106, 112) + np.where(star > 0, ridge * .28, 0)
    for radius, width in ((RADIUS - 5, 10), (112, 4), (117, 1.6)):
        height = np.maximum(height, c.bevel(ring(c, X, Y, radius, width), width / 2) * 1.5 + 1)
    for mask in (mallet(c), adze(c)):
        sunk = c.blur(mask, 1.6)
        height = height * (1 - sunk) + (c.bevel(mask, 5) + 3 * s) * mask
    words = np.maximum(legend(c, 'BRANNOC', CAPITAL, LETTERS, 112),
                       legend(c, 'WORKSHOP', CAPITAL, LETTERS, 122, True))
    height = height + c.bevel(words, 2.6, .2) * 1.4
    for side in (-1, 1):
        height = height + np.sqrt(np.clip(16 - c.radius(X + side * 132, Y) ** 2, 0, None)) * s
    return height + fbm(*c.shape, 17, 1.5) * .25


def make(_work):
    c = Canvas(W, H)
    height = medal(c)
    gold = metal(c.blur(height, .2), 3)
    # Raised parts are worn bright, the field keeps a dark patina.
    worn = smoothstep(height - c.blur(height, 7), -.6 * c.scale, 1.2 * c.scale)
    gold = gold * (.30 + .70 * worn)[..., None]
    low = np.clip((c.blur(height, 3) - height) / c.scale / 2.2, 0, 1)
    gold = gold * (1 - .75 * low)[..., None]
    surface = blend(c.fill([0, 0, 0]), gold, c.soft(RADIUS - c.radius(X, Y)))
    words = c.text('Brannoc workshop', 24, X, 376, spacing=1.2)
    surface = blend(surface, metal(c.bevel(words, 2.4, .25), 5), words)
    return to_opaque(reduce(surface, c.scale))
