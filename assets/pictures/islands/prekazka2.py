# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 1: a reef of crags and rubble with a spit of sand in its lee, 130 x 100.

To change: SPINES, RUBBLE and SAND, and the numbers of the water in `make`.
"""
import numpy as np
from scipy.ndimage import distance_transform_edt, gaussian_filter

from common.noise import smoothstep
from islands import barrier
from islands.terrain import CELLS, Ground, bare_rock, lerp, srgb

# The crests, each a line of points (x and y from the middle, height), then the widths of its lit
# and shaded flanks.
SPINES = (
    (((-49, 22, 7), (-39, 13, 24), (-23, 1, 38), (-9, -9, 42), (2, -20, 26), (9, -29, 7)), 17, 14),
    (((-31, 8, 28), (-42, -3, 18), (-51, -8, 6)), 10, 9),
    (((-13, -5, 34), (-23, -18, 20), (-29, -28, 6)), 11, 10),
    (((-23, 1, 32), (-15, 13, 20), (-11, 24, 6)), 10, 9),
    (((-7, -10, 34), (5, -2, 18), (12, 6, 6)), 10, 9),
    (((26, -28, 8), (34, -21, 30), (43, -10, 25), (49, 1, 8)), 16, 14),
    (((38, -18, 24), (47, -22, 16), (54, -21, 6)), 11, 9),
    (((-49, 27, 12), (-42, 32, 23), (-32, 37, 18), (-24, 41, 7)), 12, 9))
# x, y, radius, height of single stones.
RUBBLE = (
    (-42, -20, 4.5, 6), (-36, -25, 2.6, 3), (-57, 9, 4.5, 6), (-57, 16, 2.6, 3),
    (19, -24, 4.5, 6), (14, -33, 3, 4), (-4, 20, 5, 6), (1, 29, 3, 4), (-28, 24, 4.5, 6),
    (-22, 21, 2.6, 3), (58, 9, 3.5, 4), (56, 15, 2.4, 3), (12, 43, 3.4, 4), (18, 3, 3, 4),
    (-14, 38, 3.4, 4), (-2, -37, 2.8, 3.6))
# The same for those that stay under water.
DROWNED = (
    (-50, -31, 18, 12), (-56, 27, 14, 12), (-20, 43, 16, 12), (54, 36, 16, 12), (57, -34, 14, 11),
    (28, 43, 15, 11), (-10, -40, 16, 12), (-60, 2, 12, 10), (60, 8, 12, 12), (30, -41, 14, 11))
# The spit's line: x, y and half its width.
SAND = ((-2, 20, 2), (9, 27, 6), (24, 29, 9), (37, 25, 6), (45, 18, 2))
SEED = 16


def spit(g):
    """Heights of the sandbank: a spit that the swell has bent round the reef."""
    bank = np.full(g.shape, -9.)
    for (ax, ay, aw), (bx, by, bw) in zip(SAND, SAND[1:]):
        t = np.clip(((g.x - ax) * (bx - ax) + (g.y - ay) * (by - ay))
                    / ((bx - ax) ** 2 + (by - ay) ** 2), 0, 1)
        away = np.hypot(g.x - ax - t * (bx - ax), g.y - ay - t * (by - ay))
        half = aw + (bw - aw) * t
        bank = np.maximum(bank, (.6 + .2 * half) * (1 - away / half))
    return gaussian_filter(np.maximum(bank, -3), 2 * CELLS) + .3 * g.noise(1.5, 40, 9, 23)


def heights():
    g = Ground(130, 100, 44, SEED)
    shelf = g.pile(DROWNED, 7, 2.2) + .5 * g.noise(1.2, 12, 2, 35)
    crag = np.maximum.reduce([g.ridge(*spine) for spine in SPINES]) - 1.4
    crag = crag + 1.8 * g.noise(1.3, 24, 4, 31)
    crag = .6 * g.faceted(crag, 6.5, 2.6, 33) + .4 * g.faceted(crag, 3., .9, 34)
    h = np.maximum(crag, g.pile(RUBBLE, 6, 1.6)) + .25 * g.noise(1., 4, 1.5, 32)
    h = np.maximum(np.minimum(shelf, -.4), h)
    bank = spit(g)
    g.sandy = (bank > h) & (bank > -.15)
    g.height = np.maximum(h, bank)
    g.settle()
    return g


def sand_over(g, colour):
    grain = g.noise(.8, 6, 1, 52)[..., None]
    broad = g.noise(1.4, 24, 4, 58)
    # It is wet along the water and, unevenly, along the stones, out of which the water drains.
    stone = distance_transform_edt((g.height <= 0) | g.sandy) / CELLS
    drained = np.minimum(g.inland, 1.3 * stone + .6 * g.noise(1.2, 14, 4, 59))
    damp = smoothstep(drained + broad + .2 * grain[..., 0], .4, 3.6)
    pale = lerp(srgb('sand'), srgb('rock_lit'), .14 + .1 * broad)
    dry = lerp(srgb('sand_wet') * 1.1, pale, damp) + .03 * grain
    return lerp(colour, dry, gaussian_filter(g.sandy.astype(float), CELLS * .3))


def make(work):
    g = heights()
    g.colour = sand_over(g, bare_rock(g, barrier.weather(g)))
    water = barrier.stony_shallows(g, shelf=8., surge=11., lace=.35)
    return barrier.make(g, [], work, water, edge=(32, 3.8, 4.5, 9.), spray=.8, fill=.45, dark=.8)
