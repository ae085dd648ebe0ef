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
    Mast(-22.0, 45.4, (
        Sail(22.5, 13.4, 12.4, 13.6, 3.4, 'T_Course'),
        Sail(33.2, 23.6, 9.2, 11.2, 3.6, 'T_Topsail'),
        Sail(40.0, 34.7, 5.6, 7.8, 2.4, 'T_Gallant'))),
    Mast(4.0, 61.0, (
        Sail(26.0, 14.2, 13.0, 14.2, 4.0, 'T_Course'),
        Sail(42.5, 27.6, 10.2, 12.2, 4.4, 'T_Topsail'),
        Sail(55.0, 44.1, 6.2, 8.6, 3.0, 'T_Gallant'))),
    Mast(26.5, 39.2, (
        Sail(25.0, 14.0, 9.2, 11.0, 3.0, 'T_Topsail'),
        Sail(36.0, 26.5, 6.0, 8.2, 2.6, 'T_Gallant'))),
)
# Headsails: tack, head, clew.
JIBS = (((-47.4, 7.8, 0), (-33.4, 27, 0), (-40.4, 10.6, 5.0)),
        ((-40.6, 10.2, 0), (-26.5, 27, 0), (-29.4, 12.8, 6.6)))
BRACE, ASKEW = 66, 20      # degrees by which the yards are turned when she heads aside, up or down
LIFT, RAISED = .22, .3   # how far the shading of canvas looks up, and how much more from behind
FLAT = .55          # by what part the bellies are flatter on headings away from the viewer
HUNG = .9           # how far the sails hang below their yards, so that these stay visible
ROPE, YARD = .13, .70
PENNANT, FLY = 8.5, 1.7    # length, and half the width at the mast
FORESHORTENED = 1.43       # height that looks as long as one unit on the water


def brace(k):
    """Degrees by which the yards are turned from square at heading k.

    They show one side of the sails on headings away from the viewer, 1 to 17, and the other on
    those towards him, and stay clear of the line of sight. In between, when she heads right or
    left, they swing over: there she tacks. Heading up or down, they stand askew; square, her
    sails would cover one another in a heap.
    """
    part, side = ((9 - k) / 8, -1) if 0 < k < 18 else ((27 - (k or 36)) / 9, 1)
    return BRACE * part + side * ASKEW * (1 - part * part)


def fullness(k):
    """The depth of the bellies at heading k, as a part of the table's.

    Seen from behind, a belly reaches up the screen and would make the sail look short and crumpled.
    """
    return 1 - FLAT * max(0, math.sin(math.radians(10 * k)))


def upward(k):
    """How far the shading of the square sails looks up at heading k.

    Seen from behind, they would otherwise turn from the light and be as dull as the deck.
    """
    return LIFT + RAISED * max(0, math.sin(math.radians(10 * k)))


def lee(k):
    """The side to which the headsails fill, 1 or -1: that of the viewer."""
    return 1 if 9 < k <= 27 else -1


def build(model, k):
    turned, full, lift = brace(k), fullness(k), upward(k)
    for mast in MASTS:
        stand(model, mast)
        shrouds(model, mast)
        for sail in mast.sails:
            square(model, mast.x - 1.0, sail, turned, full, lift)
    stays(model)
    for tack, head, clew in JIBS:
        triangle(model, tack, head, (clew[0], clew[1], clew[2] * lee(k)), 2.6 * lee(k))
    pennant(model, k)


def stand(model, mast):
    x, low = mast.x, mast.sails[0].yard
    foot = hull.deck(station(x)) - .5
    model.cone((x, foot, 0), 1.1, (x, low + 2, 0), .8, 'T_Mast')
    model.cone((x + .2, low - 1, 0), .65, (x + .2, mast.top, 0), .45, 'T_Mast')
    model.cylinder((x + .6, low + 1.2, 0), (x + .6, low + 1.9, 0), 1.8, 'T_Spar')


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


def square(model, x, sail, turned, full, lift):
    c, s = math.cos(math.radians(turned)), math.sin(math.radians(turned))

    def place(ahead, y, z):
        return (x - ahead * c + z * s, y, z * c + ahead * s)
    for k in (-1, 1):
        model.cone(place(0, sail.yard, 0), YARD, place(-.2, sail.yard, k * (sail.head + .7)),
                   YARD * .75, 'T_Spar')
    drop, grid, uv = sail.yard - HUNG - sail.foot, [], []
    for a in np.linspace(-1, 1, 26):
        belly, row = 1 - abs(a) ** 2.6, []
        for b in np.linspace(0, 1, 16):
            half = sail.head * (1 - b) + sail.spread * b - .5 * math.sin(math.pi * b)
            roach = .13 * drop * (1 - a * a) * b ** 3
            ahead = full * sail.billow * belly * math.sin(math.pi * min(1, b ** .85 * .93))
            row.append(place(.5 + ahead, sail.yard - HUNG - drop * b + roach, a * half))
        grid.append(row)
        uv.append([((a + 1) / 2, b) for b in np.linspace(0, 1, 16)])
    model.surface(grid, sail.texture, uv, lift, extra='double_illuminate')


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


def pennant(model, k):
    """Streams aft. Its width lies across the line of sight, so that it is never seen edge-on."""
    mast, grid, turn = MASTS[1], [], math.radians(10 * k)
    c, s = math.cos(turn), math.sin(turn)
    for a in np.linspace(0, 1, 20):
        x, wave, wide = mast.x + .5 + PENNANT * a, .9 * math.sin(5 * a) * a, FLY * (1 - .75 * a)
        grid.append([(x + q * s * c, mast.top - 1.2 + FORESHORTENED * q * c, q * s * s)
                     for q in (wave - wide, wave, wave + wide)])
    model.surface(grid, 'T_Pennon', extra='double_illuminate')
