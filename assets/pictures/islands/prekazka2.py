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
    (-40, -20, 15, 22), (-24, -33, 11, 15), (-15, -15, 16, 24), (-48, 2, 13, 18),
    (-27, 6, 15, 22), (-8, 8, 14, 21), (-37, 24, 12, 17), (-17, 27, 13, 18), (2, 27, 11, 15),
    (6, -9, 11, 16), (22, -27, 14, 20), (6, -35, 9, 12), (40, -18, 13, 19), (25, -9, 10, 14),
    (54, -7, 9, 13), (44, -36, 8, 11), (-54, -30, 6, 9), (-57, 24, 6, 8), (-30, 42, 7, 9),
    (-4, 43, 6, 8), (20, 41, 7, 9), (44, 40, 6, 8), (59, 17, 6, 8), (-7, -44, 5, 7),
    (61, -29, 4, 6), (35, 4, 6, 8))
# The same for those that stay under water, darkening it where no stone stands.
DROWNED = (
    (-55, -30, 16, 12), (-56, 24, 14, 12), (-20, 41, 16, 12), (54, 34, 14, 12), (58, -26, 14, 12),
    (28, 42, 15, 12), (-12, -42, 16, 12), (-62, 0, 10, 10), (60, 6, 12, 12), (34, -40, 14, 12))
SEED = 12


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
    water = barrier.stony_shallows(g, shelf=13., surge=9.)
    return barrier.make(g, [], work, water, edge=(24, 5.5, 3., 13.))
