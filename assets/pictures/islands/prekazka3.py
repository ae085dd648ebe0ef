# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 2: a skerry of many stones awash, 60 x 60.

Nine of a battle's thirteen barriers are this one picture. Deliberate: its stones are alike in size
and colour, since the eye finds one striking stone again in every copy.

To change: STONES, and the numbers of the water in `make`.
"""
import numpy as np

from islands import barrier
from islands.terrain import Ground, bare_rock

# x, y, radius, height of the stones, from the middle.
STONES = (
    (13, -16, 11, 16), (-1, -9, 12, 18), (-15, 3, 11, 15), (8, 2, 12, 17), (-5, 13, 12, 16),
    (-19, 17, 9, 12), (21, -4, 9, 11), (8, 17, 9, 11), (23, -22, 5, 7), (-11, -22, 6, 8),
    (-24, -9, 4, 6), (22, 12, 6, 8), (-8, 26, 4, 6), (17, 24, 4, 6))
# The same for those that stay under water, darkening it where no stone stands.
DROWNED = (
    (19, -20, 11, 10), (-21, 17, 13, 10), (-23, -3, 9, 9), (22, 19, 12, 10), (15, -24, 9, 9),
    (-20, -21, 10, 10), (-14, 25, 10, 9), (25, 3, 8, 8), (10, 26, 8, 7), (-2, -24, 9, 7))
SEED = 11


def heights():
    g = Ground(60, 60, 26, SEED)
    drowned = np.minimum(g.pile(DROWNED, 7, 2.2), -.6)
    h = g.pile(STONES, 6, 2.2)
    broken, crack = g.facets(5.5, .16, 33)
    rough = .5 * broken - .8 * crack + .2 * g.noise(1., 4, 1.5, 32)
    g.height = np.maximum(drowned, h + np.where(h > -1.5, rough, 0))
    g.settle()
    return g


def make(work):
    g = heights()
    g.colour = bare_rock(g)
    water = barrier.stony_shallows(g, shelf=12., surge=8.)
    return barrier.make(g, [], work, water, edge=(19, 4.5, 2., 10.))
