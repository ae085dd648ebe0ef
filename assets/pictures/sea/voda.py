# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The water of the battle: a seamless tile, periodic by construction.

The world is 1300 pixels square, so a tile of 325 fits it four times without a cut.

To change: SEED, WIND and CHOP, the bands of waves in `swell`, the foam in `colour`.
"""
import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates

from common.noise import waves
from common.palette import linear
from common.raster import reduce, to_opaque

SIZE = 325
CELLS = 3           # cells a pixel
SEED = 21           # chosen by eye from 5 x 5 tiles with ships on top
WIND = np.radians(52)
CHOP = 11           # how far crests are pushed together
STRIKING = 92       # percentile of the crests' brightness; brighter crests are dimmed to it


def swell():
    """Wave heights, three bands, with crests sharpened by moving the water up its slopes."""
    n = SIZE * CELLS
    long = waves(n, SIZE, 1.0, WIND, .10, 30, 70, SEED)
    middle = waves(n, SIZE, 1.6, WIND + .45, .15, 11, 32, SEED + 1000)
    short = waves(n, SIZE, 1.6, WIND - .3, .35, 4.5, 11, SEED + 2000)
    h = 1.6 * np.tanh(long / 1.6) + .50 * middle + .14 * short
    gy, gx = slopes(gaussian_filter(h, CELLS * 1.5, mode='wrap'))
    y, x = np.mgrid[0:n, 0:n].astype(float)
    push = CHOP * CELLS * CELLS
    h = map_coordinates(h, [y - gy * push, x - gx * push], order=3, mode='grid-wrap')
    return gaussian_filter(h, CELLS * .7, mode='wrap')


def slopes(h):
    return (np.roll(h, -1, 0) - np.roll(h, 1, 0)) / 2, (np.roll(h, -1, 1) - np.roll(h, 1, 1)) / 2


def crests(h):
    """Where the surface bends most sharply."""
    bend = 4 * h - sum(np.roll(h, d, a) for d in (-1, 1) for a in (0, 1))
    bend = gaussian_filter(bend, CELLS * .5, mode='wrap')
    return bend / bend.std()


def colour(h):
    gy, gx = slopes(h)
    sunward = .6 * (gx + gy)
    sunward = sunward / sunward.std()
    level = (h - h.mean()) / h.std()
    t = np.clip(.485 + .14 * sunward + .072 * level, 0, 1)[..., None]
    deep, mid, lit = linear('sea_deep'), linear('sea'), linear('sea_light')
    c = np.where(t < .5, deep + (mid - deep) * t * 2, mid + (lit - mid) * (t * 2 - 1))
    glint = np.clip((sunward - 1.6) / 1.6, 0, 1) ** 1.5 * np.clip(level + .6, 0, 1)
    white = np.clip((crests(h) - 2.6) / 2.4, 0, 1) * np.clip(level - .5, 0, 1) * .36
    even = evenness(.30 * glint + white)
    c = c + (linear('glint') - c) * (.30 * glint * even)[..., None]
    return c + (linear('foam') - c) * (white * even)[..., None]


def evenness(light):
    """Less than 1 where crests are brighter than most: a view shows the tile more than once,
    and the eye would find a striking crest again.
    """
    around = gaussian_filter(light, CELLS * 5, mode='wrap')
    return np.minimum(1, np.percentile(around, STRIKING) / np.maximum(around, 1e-6))


def make(_work):
    return to_opaque(reduce(colour(swell()), CELLS))
