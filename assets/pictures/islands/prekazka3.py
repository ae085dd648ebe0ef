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
    (((-17, 17, 8), (-9, 12, 24), (-2, 4, 36), (7, -4, 39), (13, -13, 28), (17, -22, 8)), 13, 10),
    (((-2, 4, 33), (-10, 0, 22), (-17, -4, 9)), 10, 9),
    (((7, -4, 36), (1, -11, 24), (-3, -16, 10)), 10, 9),
    (((-4, 8, 28), (0, 16, 16)), 8, 7),
    (((8, -5, 34), (18, 2, 22), (26, 7, 6)), 9, 8),
    (((9, 24, 7), (15, 18, 15), (22, 14, 6)), 7, 6))
# x, y, radius, height of single stones at its foot.
RUBBLE = (
    (-18, -16, 5.5, 7), (-12, -21, 3, 4), (22, -11, 4, 5), (-24, 8, 4, 5), (0, 25, 4, 5),
    (-9, 25, 2.6, 3), (-19, 24, 3, 4), (22, 22, 2.6, 3), (7, -24, 3, 4))
# The same for those that stay under water.
DROWNED = (
    (-21, -18, 13, 10), (20, -22, 10, 8), (-24, -3, 10, 9), (20, 23, 12, 9), (2, -25, 10, 8),
    (-22, 22, 12, 10), (26, 6, 10, 8), (8, 27, 11, 8))
SEED = 11


def heights():
    g = Ground(60, 60, 40, SEED)
    shelf = g.pile(DROWNED, 7, 2.2) + .5 * g.noise(1.2, 12, 2, 35)
    crag = np.maximum.reduce([g.ridge(*spine) for spine in SPINES]) - 1.2
    crag = crag + 1.5 * g.noise(1.3, 16, 4, 31)
    crag = .6 * g.faceted(crag, 5., 2., 33) + .4 * g.faceted(crag, 2.6, .7, 34)
    h = np.maximum(crag, g.pile(RUBBLE, 6, 1.6)) + .25 * g.noise(1., 4, 1.5, 32)
    g.height = np.maximum(np.minimum(shelf, -.4), h)
    g.settle()
    return g


def make(work):
    g = heights()
    g.colour = bare_rock(g)
    water = barrier.stony_shallows(g, shelf=7., surge=9.)
    return barrier.make(g, [], work, water, edge=(11, 7., 2., 5.), spray=.8, fill=.7, dark=.8)
