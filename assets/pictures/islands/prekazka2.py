# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 1: a reef of crags and rubble with a spit of sand in its lee, 130 x 100.

To change: SPINES, RUBBLE and SAND, and the numbers of the water in `make`.
"""
import numpy as np
from scipy.ndimage import gaussian_filter

from common.noise import smoothstep
from islands import barrier
from islands.terrain import CELLS, Ground, bare_rock, lerp, srgb

# The crests, each a line of x, y, height from the middle, with the width of its lit and shaded
# flank.
SPINES = (
    (((-53, 16, 6), (-40, 10, 20), (-24, -4, 32), (-10, -14, 26), (2, -25, 16), (12, -33, 6)),
     18, 17),
    (((-26, -4, 24), (-38, -16, 15), (-47, -20, 6)), 10, 9),
    (((-22, -2, 24), (-12, 8, 16), (-7, 18, 6)), 11, 11),
    (((25, -27, 6), (35, -20, 17), (45, -13, 13), (54, -2, 5)), 12, 11),
    (((-40, 38, 6), (-28, 33, 12), (-15, 37, 5)), 9, 9))
# x, y, radius, height of single stones.
RUBBLE = (
    (10, -8, 6, 8), (4, 2, 4.5, 6), (19, -17, 5, 6), (-54, -6, 6, 7), (-50, 32, 4, 5),
    (-6, 30, 5, 6), (4, 39, 4.5, 6), (-24, 24, 5, 6), (26, -4, 4.5, 5), (58, 12, 4, 5),
    (-58, -22, 4, 5), (-20, -34, 5, 6), (-4, -39, 4, 5), (14, -38, 4.5, 5), (50, 40, 3.5, 4),
    (48, -36, 4, 5), (-60, 6, 3, 4), (36, -2, 3, 4), (-46, 44, 3, 4), (16, 43, 3, 4),
    (-30, -42, 3.5, 4), (60, -18, 3, 4), (-2, -6, 4, 6), (50, 6, 3, 4), (-14, 45, 2.6, 4),
    (30, -42, 2.6, 4), (-62, 22, 2.6, 4), (0, 21, 3, 4), (12, 10, 3, 4))
# The same for those that stay under water.
DROWNED = (
    (-55, -30, 16, 12), (-56, 24, 14, 12), (-20, 41, 16, 12), (54, 34, 14, 12), (58, -26, 14, 12),
    (28, 42, 15, 12), (-12, -42, 16, 12), (-62, 0, 10, 10), (60, 6, 12, 12), (34, -40, 14, 12))
# The spit's line: x, y and half its width.
SAND = ((-2, 18, 2), (9, 25, 7), (24, 28, 10), (38, 23, 8), (48, 12, 4), (50, 4, 2))
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
    g = Ground(130, 100, 34, SEED)
    shelf = g.pile(DROWNED, 7, 2.2) + .5 * g.noise(1.2, 12, 2, 35)
    crag = np.maximum.reduce([g.ridge(*spine) for spine in SPINES]) - 1.4
    crag = crag + 1.8 * g.noise(1.3, 24, 4, 31)
    crag = .75 * g.faceted(crag, 7.5, 2.4, 33) + .25 * g.faceted(crag, 3., .7, 34)
    h = np.maximum(crag, g.pile(RUBBLE, 6, 1.6)) + .25 * g.noise(1., 4, 1.5, 32)
    h = np.maximum(np.minimum(shelf, -.4), h)
    bank = spit(g)
    g.sandy = (bank > h) & (bank > -.15)
    g.height = np.maximum(h, bank)
    g.settle()
    return g


def sand_over(g, colour):
    grain = g.noise(.8, 6, 1, 52)[..., None]
    damp = smoothstep(g.height + .1 * grain[..., 0], -.1, 1.3)
    dry = lerp(srgb('sand_wet'), srgb('sand'), damp) + .02 * grain
    return lerp(colour, dry, gaussian_filter(g.sandy.astype(float), CELLS * .3))


def make(work):
    g = heights()
    g.colour = sand_over(g, bare_rock(g))
    water = barrier.stony_shallows(g, shelf=20., surge=9.)
    return barrier.make(g, [], work, water, edge=(30, 4., 2., 11.), spray=.8)
