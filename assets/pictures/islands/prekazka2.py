# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 1: a reef of boulders round a sandbank in breaking surf, 130 x 100.

To change: STONES, the sandbank in `heights`, and the numbers of the water in `make`.
"""
import numpy as np
from scipy.ndimage import gaussian_filter

from common.noise import smoothstep
from islands import barrier
from islands.terrain import CELLS, Ground, bare_rock, lerp, srgb

# x, y, radius, height of the boulders, from the middle.
STONES = (
    (-33, -23, 17, 24), (-12, -28, 12, 17), (-47, 0, 12, 17), (-21, -2, 18, 26), (3, -13, 13, 19),
    (-36, 20, 13, 19), (-8, 15, 15, 22), (-20, 32, 11, 15), (11, 7, 8, 11), (23, -29, 14, 20),
    (42, -20, 14, 19), (23, -9, 9, 13), (55, -3, 9, 13), (8, -39, 8, 11), (4, 34, 9, 13),
    (-59, -20, 6, 8), (-53, 31, 7, 9), (-40, -43, 6, 8), (52, -38, 5, 7), (36, 2, 6, 8),
    (21, 43, 6, 8), (45, 38, 7, 9), (60, 16, 5, 7), (-32, 45, 5, 7), (-7, -45, 5, 7))
# The same for those that stay under water, darkening it where no stone stands.
DROWNED = (
    (-55, -30, 16, 12), (-56, 24, 14, 12), (-20, 41, 16, 12), (54, 34, 14, 12), (58, -26, 14, 12),
    (28, 42, 15, 12), (-12, -42, 16, 12), (-62, 0, 10, 10), (60, 6, 12, 12), (34, -40, 14, 12))
SEED = 16


def heights():
    g = Ground(130, 100, 34, SEED)
    drowned = np.minimum(g.pile(DROWNED, 7, 2.2), -.6)
    h = g.pile(STONES, 6, 2.4)
    broken, crack = g.facets(7, .16, 21)
    rough = .6 * broken - .7 * crack + .2 * g.noise(1., 4, 1.5, 22)
    h = np.maximum(drowned, h + np.where(h > -1.5, rough, 0))
    bank = 4.9 * g.hump(29, 20, 25, 13) - 2.2 + .4 * g.noise(1.5, 30, 6, 23)
    g.sandy = (bank > h) & (bank > -.4)
    g.height = np.maximum(h, bank)
    g.settle()
    return g


def sand_over(g, colour):
    grain = g.noise(.8, 6, 1, 52)[..., None]
    dry = lerp(srgb('sand_wet'), srgb('sand'), smoothstep(g.height, 0, .8)) + .02 * grain
    return lerp(colour, dry, gaussian_filter(g.sandy.astype(float), CELLS * .3))


def make(work):
    g = heights()
    g.colour = sand_over(g, bare_rock(g))
    water = barrier.stony_shallows(g, shelf=11., surge=9.)
    return barrier.make(g, [], work, water, edge=(34, 4.5, 4., 14.))
