# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The game's name in gold over a rule with a diamond.

To change: the name, its size and spacing in `make`; the rule below it in `rule`.
"""
import numpy as np

from common.canvas import Canvas
from common.palette import linear
from common.raster import layer, over, reduce, to_image
from common.relief import metal, shade

W, H = 500, 150
RULE = 124


def rule(c):
    u, v = np.abs(c.x - W / 2), np.abs(c.y - RULE)
    bar = (v < 2.6 * np.clip(1 - (u / 205) ** 3, 0, 1)) & (u > 16)
    return (bar | (u / 11 + v / 9 < 1) | (np.hypot(u - 215, v) < 3.6)).astype(float)


def make(_work):
    c = Canvas(W, H)
    name, line = c.fatten(c.text('MORVANE', 76, W / 2, 103, spacing=4), .5), rule(c)
    mask = np.maximum(name, line)
    height = np.where(line > .5, c.bevel(line, 3, .25), c.bevel(name, 7, .7) * .9)
    gold = metal(height, 3, rough=.02)
    away = c.outside(mask)
    rim = np.clip(1 - (away - 2.2) / .8, 0, 1)
    bronze = shade(c.fill(linear('3a1408')), c.blur(np.clip(3.2 - away, 0, 3.2) * 2.4, .5), .9)
    dark = np.maximum(c.shadow(rim, 5, 6, 5, .75), c.blur(rim, 9) * .30)
    dark = np.clip(dark, 0, 1)
    stack = over(layer(bronze, rim), layer(linear('0a0406'), dark))
    stack = over(layer(gold, mask), stack) * np.clip(c.edge() / 4, 0, 1)[..., None]
    return to_image(reduce(stack, c.scale))
