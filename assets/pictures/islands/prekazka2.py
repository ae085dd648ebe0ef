# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 1: a reef of boulders round a sandbank in breaking surf, 130 x 100.

To change: BOULDERS, the sandbank in `heights`, and the numbers of the lagoon in `make`.
"""
import numpy as np
from scipy.ndimage import gaussian_filter

from common.noise import smoothstep
from islands import barrier
from islands.terrain import CELLS, Ground, bare_rock, lerp, srgb

# x, y, radius, height of the boulders for a reef of 150 x 110, scaled to this one.
BOULDERS = (
    (-42, -18, 25, 30), (-14, 14, 27, 38), (20, -16, 25, 34), (54, 4, 14, 15),
    (-50, 24, 17, 17), (14, 36, 15, 11), (-12, -34, 17, 15), (52, -26, 16, 14),
    (-62, 0, 10, 9), (0, -6, 16, 20), (-30, 38, 11, 7),
    (64, 42, 9, 8), (40, 46, 8, 6), (-64, -40, 9, 6), (64, -8, 8, 6))
SHRINK = 130 / 150


def heights():
    g = Ground(130, 100, 42, 12)
    h = np.maximum(g.height, 5 * (1 - g.outline(.47, .46, 3)) - 2.6)
    for x, y, radius, top in BOULDERS:
        for q in range(2):
            cx = (x + q * g.random.normal() * 5) * .95 * SHRINK
            cy = (y + q * g.random.normal() * 5) * .94 * SHRINK
            stone = g.boulder(cx, cy, radius * (.90 - .3 * q) * SHRINK, top * (1 - .25 * q) * .88,
                              squeeze=.88)
            h = np.maximum(h, stone - 2.4)
    rough = .8 * g.noise(1.3, 20, 5, 21) + .22 * g.noise(1., 4, 1.5, 22) - .2
    h = h + np.where(h > -1.5, rough, 0)
    bank = 4.6 * g.hump(30, 20, 24, 13) - 2.2 + .25 * g.noise(1.5, 30, 6, 23)
    g.sandy = bank > h
    g.height = np.maximum(h, bank)
    g.settle()
    return g


def sand_over(g, colour):
    grain = g.noise(.8, 6, 1, 52)[..., None]
    dry = lerp(srgb('sand_wet'), srgb('sand'), smoothstep(g.height, .2, 1.1)) + .02 * grain
    return lerp(colour, dry, gaussian_filter(g.sandy.astype(float), CELLS * .3))


def make(work):
    g = heights()
    g.colour = sand_over(g, bare_rock(g))
    return barrier.make(g, [], work, corner=27, fade=4.5, ragged=3.2, reach=9, pale=.8,
                        breakers=((4.6, .9, .8, .4), (8., .7, .6, .25)))
