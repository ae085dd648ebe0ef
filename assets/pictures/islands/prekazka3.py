# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 2: a crag of three blocks with boulders at its foot, on a drowned shelf, 60 x 60.

Nine of a battle's thirteen barriers are this one picture. Deliberate: no stone of it differs from
the others in colour, and the crag is compact and has no holes, since the eye finds one striking
stone or shape again in every copy.

To change: BLOCKS, CLEFTS and RUBBLE, and the numbers of the water in `make`.
"""
import numpy as np

from islands import barrier
from islands.terrain import Ground, bare_rock

# The blocks of the crag: x, y of the middle; the flanks, each with the bearing it faces (degrees,
# 0 to the right, 90 down), how far from the middle it meets the water and its steepness; and the
# top: its height over the middle and what it rises per pixel to the right and down.
BLOCKS = (
    ((-3, -1), ((228, 17, 1.5), (188, 20, 2.), (138, 17, 3.), (62, 11, 3.4), (10, 16, 2.6),
                (320, 20, 1.9), (272, 19, 1.5)), (26, .35, .5)),
    ((12, -10), ((230, 14, 2.), (150, 13, 2.), (90, 12, 3.), (25, 13, 2.6), (340, 12, 2.),
                 (285, 15, 1.6)), (18, .4, .2)),
    ((6, 14), ((170, 14, 2.), (110, 10, 2.6), (70, 12, 2.4), (20, 15, 2.), (320, 14, 1.),
               (250, 14, 1.)), (13, .1, .35)))
# x, y of a point on the cleft, the bearing across it, half its width and its depth.
CLEFTS = ((-9, -3, -18, .7, 3.), (4, -8, 40, .6, 2.5))
# x, y, radius, height of single stones at its foot.
RUBBLE = ((24, 4, 4, 6), (-15, 18, 5, 8), (-9, -20, 3.4, 5))
# The same for those that stay under water.
DROWNED = (
    (-21, -18, 13, 10), (20, -22, 10, 8), (-24, -3, 10, 9), (20, 23, 12, 9), (2, -25, 10, 8),
    (-22, 22, 12, 10), (26, 6, 10, 8), (8, 27, 11, 8))
SEED = 11


def block(g, middle, flanks, top):
    """Heights of one block: the lowest of its flanks and its top."""
    x, y = g.x - middle[0], g.y - middle[1]
    h = top[0] + top[1] * x + top[2] * y
    for bearing, reach, steep in flanks:
        a = np.radians(bearing)
        h = np.minimum(h, (reach - x * np.cos(a) - y * np.sin(a)) * steep)
    return h


def cloven(g, crag):
    """The same heights with the clefts in them."""
    for x, y, bearing, half, depth in CLEFTS:
        a = np.radians(bearing)
        away = (g.x - x) * np.cos(a) + (g.y - y) * np.sin(a) + .9 * g.noise(1.2, 16, 4, 36)
        crag = crag - depth * np.exp(-(away / half) ** 2) * (crag > 0)
    return crag


def heights():
    g = Ground(60, 60, 40, SEED)
    shelf = g.pile(DROWNED, 7, 2.2) + .5 * g.noise(1.2, 12, 2, 35)
    crag = np.maximum.reduce([block(g, *b) for b in BLOCKS]) - 1
    crag = crag + .8 * g.noise(1.3, 16, 3, 31)
    crag = .6 * crag + .25 * g.faceted(crag, 5., 3., 33) + .15 * g.faceted(crag, 2.2, 1.6, 34)
    stones = np.maximum(cloven(g, crag), g.pile(RUBBLE, 6, 1.6)) + .25 * g.noise(1., 4, 1.5, 32)
    g.height = np.maximum(np.minimum(shelf, -.4), stones)
    g.settle()
    return g


def make(work):
    g = heights()
    g.colour = bare_rock(g, barrier.weather(g))
    water = barrier.stony_shallows(g, shelf=9., surge=15., lace=.8, glow=.8)
    return barrier.make(g, [], work, water, edge=(8, 5., 2.5, 6.), spray=.8, fill=.5, dark=.7)
