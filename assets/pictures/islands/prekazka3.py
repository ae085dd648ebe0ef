# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 2: a single rock awash, 60 x 60.

To change: BOULDERS, and the numbers of the lagoon in `make`.
"""
import numpy as np

from islands import barrier
from islands.terrain import Ground, bare_rock

# x, y, radius, height of the boulders for a rock of 80 x 80, scaled to this one.
BOULDERS = (
    (-6, -5, 26, 38), (12, 9, 20, 27), (-15, 16, 17, 21), (17, -14, 17, 19),
    (-24, -17, 12, 10), (21, 25, 10, 8), (-29, 22, 7, 5), (29, 1, 9, 9), (1, 30, 9, 8),
    (25, -24, 8, 6), (-2, -31, 8, 6), (-32, 2, 7, 5))
SHRINK = 60 / 80


def heights():
    g = Ground(60, 60, 38, 4)
    h = np.maximum(g.height, 5 * (1 - g.outline(.47, .47, 3)) - 1.6)
    for x, y, radius, top in BOULDERS:
        stone = g.boulder(x * .95 * SHRINK, y * .95 * SHRINK, radius * .93 * SHRINK, top * .85)
        h = np.maximum(h, stone - 1.8)
    rough = .7 * g.noise(1.3, 18, 5, 31) + .22 * g.noise(1., 4, 1.5, 32) - .2
    g.height = h + np.where(h > -1.5, rough, 0)
    g.settle()
    return g


def make(work):
    g = heights()
    g.colour = bare_rock(g)
    return barrier.make(g, [], work, corner=15, fade=3.2, ragged=1.2, reach=8, pale=.8,
                        breakers=((3.8, .8, .8, .45),))
