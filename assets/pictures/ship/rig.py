# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Masts, yards, sails, ropes and flags.

Two rigs share the hull. `CHART` is for the battle, seen from straight above: low masts, sails
leaning forward so that each shows as a crescent, ropes thick enough for the sheet. `TALL` is
for paintings, seen from the side.

To change: the tables CHART and TALL; flags are in `pennant` and `ensign`.
"""
import math
from dataclasses import dataclass, field

import numpy as np

from ship.lines import station


@dataclass
class Sail:
    yard: float         # height of the yard
    head: float         # half width along the yard
    foot: float         # height of the foot
    spread: float       # half width along the foot
    lean: float         # how far the foot stands before the yard
    billow: float       # depth of the belly; none means a bare yard


@dataclass
class Mast:
    x: float
    top: float
    sails: list = field(default_factory=list)


@dataclass
class Rig:
    masts: list
    upright: bool
    yard_radius: float
    mast_radius: float
    rope: float
    bowsprit: tuple     # x and rise of its tip
    jibs: int
    lift: float         # how far the sails' shading is evened out towards the sky
    spritsail: tuple    # x, half width


CHART = Rig(
    [Mast(-23.5, 33, [Sail(17, 19.8, 9.5, 20.2, 5.4, 5.2), Sail(24, 13.6, 18, 14.6, 2.8, 3.6),
                      Sail(29, 8.6, 25, 9.8, 1.4, 2.2)]),
     Mast(4.5, 36, [Sail(18, 20.0, 9, 19.4, 5.6, 5.6), Sail(26, 14.6, 19, 15.6, 3.0, 4.0),
                    Sail(31, 9.4, 27, 10.6, 1.6, 2.4)]),
     Mast(31.0, 30, [Sail(20, 20.2, 13, 19.4, 4.0, 4.8), Sail(26, 11.6, 21, 12.8, 2.2, 3.0)])],
    False, .6, .85, .085, (-49.9, 5), 2, .45, (-42.5, 10.4))

TALL = Rig(
    [Mast(-21.5, 68, [Sail(31, 18.5, 13, 17.8, 1.2, 4.6), Sail(45, 14, 31, 17.5, .9, 4.2),
                      Sail(56, 9.6, 46, 13.2, .7, 3.2), Sail(63.5, 6.5, 57, 9, .5, 2)]),
     Mast(4.5, 77, [Sail(33, 20.5, 13, 19.8, 1.2, 5.0), Sail(50, 15.4, 34, 19.4, .9, 4.6),
                    Sail(63, 10.4, 51, 14.6, .7, 3.4), Sail(71, 7, 64, 9.8, .5, 2.2)]),
     Mast(29.5, 57, [Sail(31, 14.2, 24, 1.2, 0, 0), Sail(43, 11, 32, 13.6, .8, 3.2),
                     Sail(52, 7.4, 44, 10.4, .6, 2.4)])],
    True, .42, .75, .09, (-57., 9), 3, 0., (-42.5, 6.5))


def build(model, lines, rig):
    tip, step = bowsprit(model, lines, rig)
    for number, mast in enumerate(rig.masts):
        stand(model, lines, rig, mast, number)
        for order, sail in enumerate(mast.sails):
            square_sail(model, rig, mast.x - .95 - .12 * order, sail)
        shrouds(model, lines, rig, mast)
        stays(model, lines, rig, number, tip, step)
        if number == 1 or rig.upright:
            pennant(model, rig, mast, number == 1)
    gaff = spanker(model, lines, rig)
    if rig.upright:
        ensign(model, gaff)
    for k in range(rig.jibs):
        jib(model, rig, k, tip, step)


def bowsprit(model, lines, rig):
    y = lines.deck(.97)
    tip = np.array((rig.bowsprit[0], y + rig.bowsprit[1], 0.))
    step = np.array((-30., y + .6, 0.))
    model.cone(step, .95, tip, .42 if rig.upright else .62, 'T_Mast')
    x, half = rig.spritsail
    height = y + rig.bowsprit[1] * .55
    # The spritsail stays furled: set, it makes the bow look like a tail from above.
    model.cylinder((x, height, -half), (x, height, half), .42 if rig.upright else .75, 'T_Yard')
    return tip, step


def stand(model, lines, rig, mast, number):
    """The mast with its woldings, top and cap."""
    x, r = mast.x, rig.mast_radius
    foot = lines.deck(.55) if number < 2 else lines.deck(.25)
    model.cone((x, foot, 0), r * 1.15, (x + .6, mast.top, 0), r * .45, 'T_Mast')
    for k in range(3):
        y = foot + 1 + k * 1.6
        model.cylinder((x, y, 0), (x, y + .35, 0), r * 1.28, 'T_Dark')
    y = mast.sails[0].yard + 1.2
    model.raw('difference{cylinder{<%f,%f,0>,<%f,%f,0>,2.3} box{<%f,0,-5>,<%f,99,5>} '
              'texture{T_Top}}' % (x + .9, y, x + .9, y + .5, x - 4, x - 1))
    model.cylinder((x, y, 0), (x, y + .6, 0), .9, 'T_Mast')


def square_sail(model, rig, x, sail):
    for s in (-1, 1):
        model.cone((x, sail.yard, 0), rig.yard_radius, (x + .3, sail.yard, s * (sail.head + .9)),
                   rig.yard_radius * .5, 'T_Yard')
    if not sail.billow:
        return
    drop = sail.yard - sail.foot
    grid, uv = [], []
    for a in np.linspace(-1, 1, 26):
        belly = 1 - abs(a) ** 2.4
        row = []
        for b in np.linspace(0, 1, 14):
            half = sail.head * (1 - b) + sail.spread * b - .225 * math.sin(math.pi * b)
            roach = .16 * drop * (1 - a * a) * b ** 3
            ahead = sail.billow * belly * math.sin(math.pi * min(1, b ** .8 * .83))
            ahead += sail.lean * b ** 1.1 * (.62 + .38 * belly)
            row.append((x - .25 - ahead, sail.yard - .25 - drop * b + roach, a * half))
        grid.append(row)
        uv.append([((a + 1) / 2, b) for b in np.linspace(0, 1, 14)])
    model.surface(grid, 'T_Sail', uv, rig.lift, extra='double_illuminate')


def chainplate(lines, x, s):
    return np.array((x, lines.rail(station(x)) - .4, s * (lines.side(station(x)) + .25)))


def shrouds(model, lines, rig, mast):
    x, top = mast.x, mast.sails[0].yard + 1
    for s in (-1, 1):
        hound = np.array((x + .7, top, s * .5))
        for k in range(5):
            model.cylinder(hound, chainplate(lines, x + .8 + k * 1.35, s), rig.rope, 'T_Rope')
        wide, rail = lines.side(station(x + 3)), lines.rail(station(x + 3))
        model.box((x + .4, rail - .55, s * wide * .9), (x + 7, rail - .2, s * (wide + .5)),
                  'T_Dark')
        if rig.upright:
            ratlines(model, lines, rig, x, s, hound)
            for k in range(2):
                model.cylinder((x + .7, mast.sails[1].yard + 1, s * .3),
                               chainplate(lines, x + 6.5 + k * .8, s), rig.rope * .8, 'T_Rope')


def ratlines(model, lines, rig, x, s, hound):
    fore, aft = chainplate(lines, x + .8, s), chainplate(lines, x + 6.2, s)
    for k in range(9):
        q = .08 + .1 * k
        model.cylinder(hound * q + fore * (1 - q), hound * q + aft * (1 - q), rig.rope * .7,
                       'T_Rope')


def stays(model, lines, rig, number, tip, step):
    mast = rig.masts[number]
    x, top = mast.x, mast.sails[0].yard + 1.2
    if number:
        ahead = rig.masts[number - 1]
        foot = lines.deck(.55) if number < 2 else lines.deck(.25)
        low = (ahead.x + .7, foot + 1.5, 0)
        high = (ahead.x + .7, ahead.sails[1].yard + 1, 0)
    else:
        low, high = (tip[0] + 9, step[1] - .6 + rig.bowsprit[1] * .55, 0), tip
    model.cylinder((x, top, 0), low, rig.rope * 1.3, 'T_Rope')
    model.cylinder((x, mast.top - 2, 0), high, rig.rope, 'T_Rope')


def pennant(model, rig, mast, main):
    """Long pennant; flat for the view from above, hanging on edge for the view from aside."""
    length, grid = 9.6 if main else 7.2, []
    for a in np.linspace(0, 1, 40):
        row = []
        for b in (-1, 0, 1):
            width = 1.0 * (1 - .8 * a) * b
            wave = 1.2 * math.sin(a * 8 + .4) * a ** .7
            y = mast.top - .2 + .5 * math.sin(a * 7)
            if rig.upright:
                # Larger than life, or they would be mere ticks at the size of a painting.
                y = mast.top + .5 + .9 * math.sin(a * 9.5) * a ** .6
                row.append((mast.x + 1 + length * 2.5 * a, y + 1.55 * width, .5 * wave))
            else:
                row.append((mast.x + 1 + length * a, y - .07 * b, wave + width))
        grid.append(row)
    model.surface(grid, 'T_Pennant', extra='double_illuminate')


def spanker(model, lines, rig):
    """Gaff sail on the mizzen; returns the gaff's end."""
    x, quarter = rig.masts[2].x, lines.deck(.25)
    if rig.upright:
        high, low = 29, quarter + 4
        gaff, boom = np.array((44.5, high + 9, 2.2)), np.array((48.5, low + .8, 2.6))
    else:
        high, low = 17, quarter + 3.2
        gaff, boom = np.array((44.5, high + 3.5, 2.4)), np.array((49.0, low, 3.0))
    model.cone((x + .8, high, 0), .42, gaff, .25, 'T_Yard')
    model.cone((x + .8, low, 0), .45, boom, .28 if rig.upright else .45, 'T_Yard')
    throat, tack = np.array((x + 1., high - .3, 0.)), np.array((x + 1., low + .3, 0.))
    grid = []
    for a in np.linspace(0, 1, 14):
        row = []
        for b in np.linspace(0, 1, 12):
            p = (throat * (1 - a) + gaff * a) * (1 - b) + (tack * (1 - a) + boom * a) * b
            belly = 2.6 * math.sin(math.pi * a) * math.sin(math.pi * (b * .9 + .05))
            row.append(p + np.array((0, 0, belly)))
        grid.append(row)
    model.surface(grid, 'T_SailF', lift=rig.lift, extra='double_illuminate')
    return gaff


def ensign(model, gaff):
    x, y, z = gaff + np.array((.2, -.5, 0))
    model.surface([[(x + 10.5 * a, y - 7.6 * b + (1.1 * math.sin(7 * a + .5 * b) - 1.5 * a) * a,
                     z + 1.1 * math.sin(8 * a + .5 + .8 * b) * a)
                    for b in np.linspace(0, 1, 8)]
                   for a in np.linspace(0, 1, 32)], 'T_Ensign', extra='double_illuminate')


def jib(model, rig, k, tip, step):
    if rig.upright:
        tack = np.array((tip[0] + .8 + 6.5 * k, tip[1] - 2.2 * k, 0))
        head = np.array((-23.2, 48 - 9 * k, 0.))
        clew = np.array((-32 + 4.0 * k, step[1] + 4.9, 4.4))
    else:
        tack = np.array((-47.5 + 6.5 * k, step[1] + 3.6 - k, 0))
        head = np.array((-24.5 - 1.2 * k, 25 - 6 * k, 0.))
        clew = np.array((-29.5 + 2.6 * k, step[1] + 2.9, 3.6))
    grid = []
    for a in np.linspace(.001, 1, 16):
        row = []
        for b in np.linspace(0, 1, 10):
            p = head * (1 - a) + (tack * (1 - b) + clew * b) * a
            belly = 2.2 * math.sin(math.pi * b) * math.sin(math.pi * min(1, a * .92 + .04))
            row.append(p + np.array((0, 0, belly)))
        grid.append(row)
    model.surface(grid, 'T_SailF', lift=rig.lift, extra='double_illuminate')
    model.cylinder(tack, head, rig.rope, 'T_Rope')
