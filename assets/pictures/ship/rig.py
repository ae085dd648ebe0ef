# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Masts, yards, sails and ropes of the sheet's ship.

Every mast carries sails of unequal size in tiers. The yards are braced round so that no heading
shows the sails edge-on; `brace` says how far.

To change: the table MASTS and JIBS; `brace` for the yards.
"""
import math
from dataclasses import dataclass

import numpy as np

from ship import hull
from ship.hull import TIP, station


@dataclass
class Sail:
    yard: float         # height of the yard
    foot: float         # height of the foot
    head: float         # half width along the yard
    spread: float       # half width along the foot
    billow: float       # depth of the belly
    texture: str


@dataclass
class Mast:
    x: float
    top: float
    sails: tuple


MASTS = (
    Mast(-20.0, 45.8, (
        Sail(24, 13.2, 15.2, 16.4, 4.0, 'T_Course'),
        Sail(37.5, 24.6, 11.6, 14.6, 4.2, 'T_Topsail'),
        Sail(44.4, 37.6, 7.8, 10.8, 2.8, 'T_Gallant'))),
    Mast(4.5, 60.5, (
        Sail(27.5, 14.0, 16.4, 17.6, 4.4, 'T_Course'),
        Sail(45.5, 28.0, 12.6, 15.8, 4.8, 'T_Topsail'),
        Sail(57, 45.8, 8.6, 12.0, 3.2, 'T_Gallant'))),
    Mast(26.5, 38.8, (
        Sail(22, 14.0, 10.8, 11.6, 3.0, 'T_Course'),
        Sail(36, 22.4, 8.0, 10.6, 3.4, 'T_Topsail'))),
)
# Headsails: tack, head, clew.
JIBS = (((-45.6, 8.6, 0), (-22.5, 36, 0), (-29.5, 12.5, 6.5)),
        ((-40.5, 9.4, 0), (-21.5, 26, 0), (-26, 12.5, 6.0)))
TOWARDS_BRACE, AWAY_BRACE = 44, 38     # degrees, at the ends of the two ranges of headings
LIFT = .22
ROPE, YARD = .11, .55
PENNANT = 5


def brace(k):
    """Degrees by which the yards are turned from square at heading k.

    They show one side of the sails on headings away from the viewer, 1 to 17, and the other on
    those towards him, and stay clear of the line of sight. In between, when she heads right or
    left, they swing over: there she tacks. Headings that mirror each other have mirrored yards.
    """
    if 0 < k < 18:
        return AWAY_BRACE * (9 - k) / 8
    return TOWARDS_BRACE * (27 - (k or 36)) / 9


def lee(k):
    """The side to which the headsails fill, 1 or -1: that of the viewer."""
    return 1 if 9 < k <= 27 else -1


def build(model, k):
    turned = brace(k)
    for mast in MASTS:
        stand(model, mast)
        shrouds(model, mast)
        for sail in mast.sails:
            square(model, mast.x - 1.0, sail, turned)
    stays(model)
    for tack, head, clew in JIBS:
        triangle(model, tack, head, (clew[0], clew[1], clew[2] * lee(k)), 2.6 * lee(k))
    pennant(model)


def stand(model, mast):
    x, low = mast.x, mast.sails[0].yard
    foot = hull.deck(station(x)) - .5
    model.cone((x, foot, 0), 1.2, (x, low + 2, 0), .95, 'T_Mast')
    model.cone((x + .2, low - 1, 0), .85, (x + .2, mast.top, 0), .4, 'T_Mast')
    model.cylinder((x + .6, low + 1.2, 0), (x + .6, low + 1.9, 0), 2.2, 'T_Spar')


def shrouds(model, mast):
    low = mast.sails[0].yard
    for s in (-1, 1):
        for k in range(3):
            x = mast.x + 1.2 + 2.2 * k
            t = station(x)
            model.cylinder((mast.x + .5, low + 1, s * .4),
                           (x, hull.rail(t), s * (hull.top(t) + .3)), ROPE, 'T_Rope')


def stays(model):
    fore, main, mizzen = MASTS
    for a, b in (((fore.x, fore.top - 2, 0), TIP),
                 ((main.x, main.sails[0].yard + 1, 0), (fore.x, hull.deck(.8) + 2, 0)),
                 ((main.x, main.top - 3, 0), (fore.x, fore.sails[0].yard + 1, 0)),
                 ((mizzen.x, mizzen.top - 2, 0), (main.x, main.sails[0].yard + 1, 0))):
        model.cylinder(a, b, ROPE, 'T_Rope')


def square(model, x, sail, turned):
    c, s = math.cos(math.radians(turned)), math.sin(math.radians(turned))

    def place(ahead, y, z):
        return (x - ahead * c + z * s, y, z * c + ahead * s)
    for k in (-1, 1):
        model.cone(place(0, sail.yard, 0), YARD, place(-.2, sail.yard, k * (sail.head + .9)),
                   YARD * .75, 'T_Spar')
    drop, grid, uv = sail.yard - sail.foot, [], []
    for a in np.linspace(-1, 1, 26):
        belly, row = 1 - abs(a) ** 2.6, []
        for b in np.linspace(0, 1, 16):
            half = sail.head * (1 - b) + sail.spread * b - .5 * math.sin(math.pi * b)
            roach = .12 * drop * (1 - a * a) * b ** 3
            ahead = sail.billow * belly * math.sin(math.pi * min(1, b ** .85 * .93))
            row.append(place(.5 + ahead, sail.yard - .3 - drop * b + roach, a * half))
        grid.append(row)
        uv.append([((a + 1) / 2, b) for b in np.linspace(0, 1, 16)])
    model.surface(grid, sail.texture, uv, LIFT, extra='double_illuminate')


def triangle(model, tack, top, clew, deep):
    tack, top, clew = (np.array(p, float) for p in (tack, top, clew))
    grid = []
    for a in np.linspace(.001, 1, 16):
        row = []
        for b in np.linspace(0, 1, 10):
            p = top * (1 - a) + (tack * (1 - b) + clew * b) * a
            belly = deep * math.sin(math.pi * b) * math.sin(math.pi * min(1, a * .9 + .05))
            row.append(p + np.array((-.3 * belly, 0, belly)))
        grid.append(row)
    model.surface(grid, 'T_Jib', None, LIFT, extra='double_illuminate')


def pennant(model):
    mast, grid = MASTS[1], []
    for a in np.linspace(0, 1, 20):
        wave, wide = .5 * math.sin(a * 5) * a, 1.25 * (1 - .6 * a)
        grid.append([(mast.x + .5 + PENNANT * a, mast.top - .6 + wide * b, wave + .8 * wide * b)
                     for b in (-1, 0, 1)])
    model.surface(grid, 'T_Pennon', extra='double_illuminate')
