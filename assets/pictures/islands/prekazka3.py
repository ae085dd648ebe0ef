# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 2: a crag with its rubble on a drowned shelf, 60 x 60.

Nine of a battle's thirteen barriers are this one picture. Deliberate: no stone of it differs from
the others in colour, since the eye finds one striking stone again in every copy.

To change: SPINES and RUBBLE, and the numbers of the water in `make`.
"""
import numpy as np

from islands import barrier
from islands.terrain import Ground, bare_rock

# The crests, each a line of x, y, height from the middle, with the width of its lit and shaded
# flank.
SPINES = (
    (((-14, 14, 7), (-8, 6, 20), (1, -3, 29), (8, -12, 22), (12, -19, 7)), 14, 12),
    (((-3, 1, 20), (-12, -2, 13), (-19, -3, 6)), 8, 8),
    (((3, -3, 24), (11, 4, 15), (17, 10, 6)), 9, 8))
# x, y, radius, height of single stones at its foot.
RUBBLE = (
    (-18, 7, 5, 6), (1, 17, 6, 7), (-7, 20, 4.5, 6), (19, -3, 4.5, 6), (9, 19, 4, 5),
    (-4, -18, 5, 6), (22, 20, 4, 5), (-17, -19, 3.5, 4), (23, 6, 3, 4), (-25, -3, 2.6, 4),
    (3, -25, 3, 4), (-15, 24, 3, 4), (-12, -14, 4, 5), (22, -18, 3, 4), (-24, 16, 3, 4),
    (4, 26, 2.4, 4), (-8, -24, 2.4, 4))
# The same for those that stay under water.
DROWNED = (
    (18, -19, 13, 10), (-20, 17, 13, 10), (-23, -3, 10, 9), (21, 18, 13, 10), (14, -23, 10, 9),
    (-19, -19, 12, 10), (-12, 24, 11, 9), (24, 3, 10, 8), (8, 25, 10, 7), (-2, -23, 10, 7))
SEED = 11


def heights():
    g = Ground(60, 60, 30, SEED)
    shelf = g.pile(DROWNED, 7, 2.2) + .5 * g.noise(1.2, 12, 2, 35)
    crag = np.maximum.reduce([g.ridge(*spine) for spine in SPINES]) - 1.2
    crag = crag + 1.5 * g.noise(1.3, 16, 4, 31)
    crag = .75 * g.faceted(crag, 6., 1.9, 33) + .25 * g.faceted(crag, 2.6, .6, 34)
    h = np.maximum(crag, g.pile(RUBBLE, 6, 1.6)) + .25 * g.noise(1., 4, 1.5, 32)
    g.height = np.maximum(np.minimum(shelf, -.4), h)
    g.settle()
    return g


def make(work):
    g = heights()
    g.colour = bare_rock(g)
    water = barrier.stony_shallows(g, shelf=20., surge=8.)
    return barrier.make(g, [], work, water, edge=(17, 4., 1.5, 8.), spray=.8)
