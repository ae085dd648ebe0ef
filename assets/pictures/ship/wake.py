# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Foam round a moving ship, in the ship's own axes, so that it turns with her."""
import math

import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates

from ship.lines import BEAM, BOW, STERN

CELLS = 4           # cells a sheet pixel
FRAME = 100


def _noise(seed, sigma):
    f = np.random.RandomState(seed).normal(size=(512, 512))
    f = gaussian_filter(f, sigma, mode='wrap')
    return f / f.std()


COARSE, FINE = _noise(7, 3.0), _noise(8, 1.6)


def half_breadth(x):
    """The hull at the waterline, over an array of positions along the ship."""
    t = np.clip((x - STERN) / (BOW - STERN), 0, 1)
    aft = .80 + .20 * np.sin(np.pi / 2 * np.clip(t / .42, 0, 1))
    fore = np.clip(1 - np.clip((t - .58) / .42, 0, 1) ** 2.3, 0, 1) ** .78
    return BEAM * np.where(t < .42, aft, np.where(t < .58, 1, fore)) * .97


def axes(heading):
    """Positions of the frame's cells along and across a ship of this heading."""
    y, x = np.mgrid[0:FRAME * CELLS, 0:FRAME * CELLS]
    px, py = (x + .5) / CELLS - FRAME / 2, FRAME / 2 - (y + .5) / CELLS
    turn = math.radians(10 * heading)
    return (px * math.cos(turn) - py * math.sin(turn),
            px * math.sin(turn) + py * math.cos(turn))


def sample(field, along, across, fx, fy):
    return map_coordinates(field, [across * fy % 512, along * fx % 512], order=1, mode='wrap')


def foam(heading):
    """Coverage of foam, (400, 400): wash along the sides, bow waves and the wake astern."""
    x, z = axes(heading)
    coarse, fine = sample(COARSE, x, z, 2.2, 4), sample(FINE, x, z, 3, 5)
    away = np.abs(z) - half_breadth(x)
    run = np.clip((x - BOW) / (STERN - BOW), 0, 1)
    width = 2.0 + 3.0 * run ** 1.3
    beside = ((x > BOW) & (x < STERN + 1)).astype(float)
    wash = np.exp(-np.clip(away, 0, None) ** 2 / width ** 2)
    wash = wash * np.clip(.84 + .36 * coarse + .25 * fine, 0, 1) * (.85 + .15 * run) * beside
    return np.clip(np.maximum.reduce([wash, bow_waves(x, away, coarse, fine),
                                      astern(x, z, coarse, fine)]), 0, 1)


def bow_waves(x, away, coarse, fine):
    """Broken crests leaving the stem on both sides, and a fainter pair further aft."""
    total = np.zeros_like(x)
    for start, slope, strength, reach in ((BOW - 2, .30, 1., 60), (BOW + 26, .22, .65, 50)):
        gone = x - start
        line = .6 + slope * gone
        thick = 1.35 + .040 * np.clip(gone, 0, None)
        crest = np.exp(-((away - line + coarse * .7) / thick) ** 2)
        crest = crest * np.clip(gone / 3, 0, 1) * np.clip(1 - gone / reach, 0, 1) ** .6
        broken = np.clip(1.05 + .34 * coarse + .28 * fine - .010 * gone, 0, 1)
        total = np.maximum(total, crest * broken * strength)
    return total


def astern(x, z, coarse, fine):
    """Turbulent water behind the stern, wider the further away."""
    gone = x - STERN
    band = np.exp(-(z / (9.5 + .25 * np.clip(gone, 0, None))) ** 4)
    torn = np.clip(.80 + .38 * coarse + .2 * fine, 0, 1)
    return np.clip(gone, 0, 1) * band * torn * np.clip(1 - gone / 30, 0, 1) ** .6
