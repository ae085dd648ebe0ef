# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Foam round a moving ship, in the ship's own axes, so that it turns with her.

To change: CRESTS, and one function for each kind of foam.
"""
import math

import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates

from ship.lines import BEAM, BOW, STERN

CELLS = 4           # cells a sheet pixel
FRAME = 100
# Of each pair of crests: where it leaves her, how far it runs out a pixel of way, how white it
# is, and over which length it dies.
CRESTS = ((BOW - 3, .36, .95, 70), (BOW + 22, .27, .65, 58), (BOW + 46, .20, .45, 44))


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
    parts = (wash(x, away, coarse, fine), bow_waves(x, away, coarse, fine),
             moustache(x, away, coarse, fine), astern(x, z, coarse, fine))
    return np.clip(np.maximum.reduce(parts), 0, 1)


def wash(x, away, coarse, fine):
    """Water torn along the sides, wider towards the stern, in streaks that follow her way."""
    run = np.clip((x - BOW) / (STERN - BOW), 0, 1)
    width = 1.8 + 3.4 * run ** 1.3
    band = np.exp(-np.clip(away, 0, None) ** 2 / width ** 2)
    torn = np.clip(.80 + .40 * coarse + .25 * fine, 0, 1)
    return band * torn * (.85 + .15 * run) * ((x > BOW) & (x < STERN + 1))


def bow_waves(x, away, coarse, fine):
    """Broken crests leaving the stem on both sides, and fainter pairs further aft."""
    total = np.zeros_like(x)
    for start, slope, strength, reach in CRESTS:
        gone = x - start
        line = .8 + slope * gone
        thick = 1.5 + .045 * np.clip(gone, 0, None)
        lag = away - line + coarse * .8
        # Steep towards the open water, trailing off towards the hull: so a crest runs outwards.
        crest = np.exp(-(lag / np.where(lag > 0, .75 * thick, 1.5 * thick)) ** 2)
        crest = crest * np.clip(gone / 2, 0, 1) * np.clip(1 - gone / reach, 0, 1) ** .5
        broken = np.clip(1.12 + .34 * coarse + .30 * fine - .009 * gone, 0, 1)
        total = np.maximum(total, crest * broken * strength)
    return total


def moustache(x, away, coarse, fine):
    """The white water that the stem throws aside."""
    gone = x - BOW + 3
    spread = 1.2 + .42 * np.clip(gone, 0, None)
    cover = np.exp(-(np.clip(away, 0, None) / spread) ** 2) * np.clip(gone / 2, 0, 1)
    return cover * np.exp(-np.clip(gone, 0, None) / 11) * np.clip(
        1.1 + .25 * coarse + .25 * fine, 0, 1)


def astern(x, z, coarse, fine):
    """Turbulent water behind the stern: churned in the middle, a streak along each edge."""
    gone = x - STERN
    breadth = 9.5 + .28 * np.clip(gone, 0, None)
    band = np.exp(-(z / breadth) ** 4) * np.clip(.82 + .40 * coarse + .25 * fine, 0, 1)
    edge = np.exp(-((np.abs(z) - breadth + .8 * coarse) / 1.4) ** 2) * np.clip(1 + .3 * fine, 0, 1)
    return np.clip(gone, 0, 1) * np.maximum(band, .9 * edge) * np.clip(1 - gone / 36, 0, 1) ** .5
