# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 2: a single rock awash, 60 x 60."""
import numpy as np

from islands import barrier
from islands.terrain import Ground, bare_rock

# x, y, radius, height of the boulders for a rock of 80 x 80, scaled to this one.
BOULDERS = (
    (-5, -6, 27, 36), (11, 8, 21, 26), (-14, 15, 18, 20), (18, -15, 17, 20),
    (-22, -20, 14, 11), (22, 22, 13, 9), (-25, 26, 10, 6), (27, 0, 10, 9), (0, 28, 11, 8),
    (26, -27, 9, 6))
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
    return barrier.make(g, [], work, corner=12, fade=3, reach=7, pale=.8,
                        breakers=((3.8, .8, .8, .45),))
