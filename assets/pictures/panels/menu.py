# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The menu's panel: a sea chart on planks, plain where the four buttons lie.

To change: ROSE and ANCHOR, what is drawn on the chart in `drawing`, its edge in `sheet`.
"""
import numpy as np

from common.canvas import Canvas, blend
from common.noise import fbm
from common.palette import linear
from common.raster import layer, over, reduce, to_image
from common.relief import moulding, parchment, rivet, wood
from panels.emblems import anchor, ring, rose

W, H = 300, 440
ROSE = (148, 90)
ANCHOR = (148, 356)


def chart_lines(c, inside):
    """Rhumb lines from the rose and a ruled border, faint as old ink."""
    dx, dy = c.x - ROSE[0], c.y - ROSE[1]
    angle, r = np.degrees(np.arctan2(dx, -dy)) % 22.5, np.hypot(dx, dy)
    off = np.minimum(angle, 22.5 - angle) * np.pi / 180 * r
    rays = np.clip(1 - off / .5, 0, 1) * (r > 40) * .34
    border = sum(np.clip(1 - np.abs(inside - at) / wide, 0, 1) * strength
                 for at, wide, strength in ((13, .7, .6), (17, 1.3, .6), (21, .6, .6)))
    grid = np.maximum(rays * (inside > 21), border)
    return grid


def hand(c, mask, seed):
    """Ink as a pen leaves it: uneven in strength."""
    return mask * np.clip(.80 + .13 * fbm(*c.shape, seed, 1.3), 0, 1)


def drawing(c, inside):
    star, _, dark_half, edges = rose(c, *ROSE, 39)
    ink = np.maximum(chart_lines(c, inside) * (1 - star), dark_half * .85)
    ink = np.maximum(ink, edges * .9)
    bare = 1 - star
    for r, w in ((28, 1.1), (31, .7)):
        ink = np.maximum(ink, ring(c, *ROSE, r, w) * bare * .8)
    ink = np.maximum(ink, c.text('N', 10, ROSE[0], ROSE[1] - 41) * .9)
    ink = np.maximum(ink, anchor(c, *ANCHOR, 74, .8) * .85)
    for row, half in ((0, 74), (1, 60), (2, 40)):
        y = ANCHOR[1] + 20 + row * 9 + 1.8 * np.sin(c.x / 4.4 + row * 2.1)
        gap = np.abs(c.x - ANCHOR[0])
        wave = np.clip(1.2 - np.abs(c.y - y) / .65, 0, 1) * (gap < half) * (gap > 42 - row * 14)
        ink = np.maximum(ink, wave * .65)
    return hand(c, ink, 91)


def sheet(c):
    """Parchment with a torn edge, and the distance inside it."""
    ragged = fbm(*c.shape, 31, 1.55) * 1.5 + fbm(*c.shape, 33, 1.) * .5
    d = c.rounded(24, 26, W - 28, H - 30, 4) + ragged
    paper = parchment(c, 19) * (.42 + .58 * np.clip(d / 16, 0, 1) ** .6)[..., None]
    ink = drawing(c, c.rounded(24, 26, W - 28, H - 30, 4))
    return blend(paper, linear('ink'), ink * .80), d


def make(_work):
    c = Canvas(W, H)
    d = c.rounded(4, 4, W - 8, H - 8, 10)
    surface = wood(c, 80, plank=37) * (.45 + .55 * np.clip(d / 20, 0, 1))[..., None]
    surface = blend(surface, moulding(c, d, 8, 7), d < 8)
    paper, within = sheet(c)
    dark = c.shadow((within > 0).astype(float), 3, 4, 4, .7) * (within < 0)
    surface = blend(surface * (1 - dark)[..., None], paper, within > 0)
    for x in (33, W - 37):
        for y in (35, H - 39):
            surface = rivet(c, surface, x, y, 4.2)
    cover = c.soft(d)
    stack = over(layer(surface, cover), layer(linear('night'), c.shadow(cover, 4, 4, 3, .6)))
    return to_image(reduce(stack * np.clip(c.edge() / 2, 0, 1)[..., None], c.scale))
