# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Foam round the ship, in her own axes, so that it turns with her.

One sheet serves a ship at rest and one that is moving, so the foam touches her all round, leaves
the stem as a soft V and dies soon.

There is one function for each kind of foam.
"""
import math

import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates

from ship.hull import BEAM, BOW, STERN, breadth

CELLS = 4           # cells a sheet pixel
FRAME = 100
STEM = BOW + 2.6    # where she cuts the water


def _noise(seed, sigma):
    f = np.random.RandomState(seed).normal(size=(512, 512))
    f = gaussian_filter(f, sigma, mode='wrap')
    return f / f.std()


COARSE, FINE = _noise(7, 4.5), _noise(8, 2.4)
WATERLINE = np.array([BEAM * breadth(t) * .91 for t in np.linspace(0, 1, 400)])


def axes(heading, aside, drop):
    """Positions of the frame's cells along and across a ship of this heading."""
    y, x = np.mgrid[0:FRAME * CELLS, 0:FRAME * CELLS]
    px, py = (x + .5) / CELLS - FRAME / 2 - aside, FRAME / 2 - (y + .5) / CELLS + drop
    turn = math.radians(10 * heading)
    return (px * math.cos(turn) - py * math.sin(turn),
            px * math.sin(turn) + py * math.cos(turn))


def sample(field, along, across, fx, fy):
    return map_coordinates(field, [across * fy % 512, along * fx % 512], order=1, mode='wrap')


def foam(heading, aside, drop):
    """Coverage of foam, (400, 400)."""
    x, z = axes(heading, aside, drop)
    coarse, fine = sample(COARSE, x, z, 2.6, 4.4), sample(FINE, x, z, 3.2, 5)
    along = np.clip((x - STERN) / (BOW - STERN), 0, 1)
    away = np.abs(z) - np.interp(along, np.linspace(0, 1, 400), WATERLINE)
    parts = (contact(x, away, coarse, fine), feather(x, away, coarse, fine),
             curl(x, away, coarse, fine), lace(x, away, coarse, fine), astern(x, z, coarse, fine))
    return np.clip(np.maximum.reduce(parts), 0, 1)


def contact(x, away, coarse, fine):
    """The rim of foam where the water laps at her planks, at rest as well."""
    band = np.exp(-np.clip(away, 0, None) ** 2 / 1.1 ** 2)
    return .6 * band * (x > STEM - 1.5) * (x < STERN + 1.5) * np.clip(
        .70 + .2 * coarse + .15 * fine, 0, 1)


def crest(lag, thick):
    """Steep towards the open water, trailing off towards the hull."""
    return np.exp(-(lag / np.where(lag > 0, .8 * thick, 1.6 * thick)) ** 2)


def feather(x, away, coarse, fine):
    """The bow wave: thick at the stem, leaving her as a soft arm of a V that dies abeam of her."""
    gone = x - STEM
    run = np.clip(gone, 0, None)
    wave = crest(away - .4 - .19 * run, 1.55 + .05 * run)
    fading = np.clip((gone + 2) / 2, 0, 1) * np.clip(1 - gone / 56, 0, 1) ** .8
    broken = np.clip(run / 30, .3, 1)
    return wave * fading * np.clip(1.08 + broken * (.30 * coarse + .14 * fine), 0, 1)


def curl(x, away, coarse, fine):
    """The white water that the stem throws up to both sides."""
    gone = x - STEM
    thrown = np.exp(-(np.clip(away - .14 * gone, 0, None) / 3) ** 2)
    fading = np.clip((gone + 3.5) / 3, 0, 1) * np.clip(1 - gone / 15, 0, 1) ** .7
    return thrown * fading * np.clip(.95 + .3 * coarse + .18 * fine, 0, 1)


def lace(x, away, coarse, fine):
    """Thin foam between her side and the arm of the bow wave."""
    gone = x - STEM
    run = np.clip(gone, 0, None)
    between = np.clip(1 - away / (.5 + .17 * run), 0, 1) * (away > -2)
    fading = np.clip(gone / 4, 0, 1) * np.clip(1 - gone / 80, 0, 1)
    return .42 * between * fading * np.clip(.7 + .35 * coarse + .1 * fine, 0, 1)


def astern(x, z, coarse, fine):
    """Smooth churned water behind the stern, which narrows and dies."""
    gone = x - STERN
    breadth_ = 9 + .14 * np.clip(gone, 0, None)
    band = np.exp(-(z / breadth_) ** 4) * np.clip(.85 + .34 * coarse + .2 * fine, 0, 1)
    return np.clip(gone + 2, 0, 1) * band * np.clip(1 - gone / 26, 0, 1) ** .7
