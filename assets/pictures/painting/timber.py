# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The painted ship's hull: sides, wale, gun ports, stern with its gallery, and the head.

There is one function for each part; the paint of the sides is in dress.py.
"""
import numpy as np

from painting.shape import (BOW, KEEL, PORT_LINE, PORTS, STERN, along, half, place, rail, sheer,
                            smooth)

T = np.concatenate([np.linspace(0, .72, 90), .72 + .28 * np.sin(np.linspace(0, np.pi / 2, 40))[1:]])
T = np.sort(np.concatenate([T, [.329, .331, .345, .347, .794, .797, .808, .812, .118, .132]]))
BANDS = ((.32, .62), (.40, .55), (.775, .28), (1.0, .34))       # height of the sheer, thickness


def build(ship):
    for s in (-1, 1):
        side(ship, s)
        battery(ship, s)
        quarter_gallery(ship, s)
        head_rails(ship, s)
    decks(ship)
    transom(ship)
    cutwater(ship)
    boats(ship)


def side(ship, s):
    """Planks from below the water to the rail; the paint's height is that of the sheer."""
    # Rows at fixed parts of the sheer, so that bands of paint follow it.
    rows = []
    for v in np.linspace(1.62, KEEL / 6, 64):
        y = np.minimum(v * sheer(T), rail(T)) if v > 0 else v * sheer(T)
        rows.append(place(T, y, s))
    ship.sheet(rows, 'T_Side')
    for v, thick in BANDS:
        y = v * sheer(T)
        ship.path(place(T, y, s, -.10), thick / 2 * .8, 'T_Wale' if v < .5 else 'T_Gilt')
    cap = place(T, rail(T), s)
    ship.path(cap, .25, 'T_Cap')
    ship.path(place(T, .5 * (rail(T) + sheer(T)), s, .0), .06, 'T_Gilt')
    inner = [cap - (0, 0, s * .35), np.where(np.arange(3) == 1, sheer(T)[:, None] - .3,
                                             cap - (0, 0, s * .5))]
    ship.sheet(inner, 'T_Inner')


def decks(ship):
    for t0, t1, up in ((0, .34, 1.9), (.34, .80, -.2), (.80, .99, 1.2)):
        t = np.linspace(t0, t1, 20)
        y = sheer(t) + up
        ship.sheet([np.stack([along(t), y, q * (half(t, y) - .2)], 1) for q in (-1, 0, 1)],
                   'T_Deck')
    for t, up in ((.34, 1.9), (.80, 1.2)):
        ship.block((along(t) - .1, sheer(t) - .5, -half(t, 6.) + .3),
                   (along(t) + .1, sheer(t) + up, half(t, 6.) - .3), 'T_Wale')
        for z in np.linspace(-5, 5, 11):
            ship.rod((along(t), sheer(t) + up, z), (along(t), sheer(t) + up + 1.1, z), .07,
                     'T_Cap')
        ship.rod((along(t), sheer(t) + up + 1.1, -5), (along(t), sheer(t) + up + 1.1, 5), .11,
                 'T_Cap')


def battery(ship, s):
    """Ports with raised lids and guns run out; smaller ports under the quarterdeck's rail."""
    for t in PORTS:
        y = PORT_LINE * sheer(t)
        x, _, z = place(t, y, s)
        ship.block((x - .78, y - .66, z - s * .5), (x + .78, y + .66, z + s * .03), 'T_Dark')
        hinge, edge = np.array((x, y + .72, z + s * .04)), np.array((x, y + 1.15, z + s * .6))
        across = np.array((.78, 0, 0))
        for lift in (0, .08):
            up = np.array((0, lift, 0))
            ship.face([hinge - across + up, hinge + across + up, edge + across + up,
                       edge - across + up], 'T_Inner' if lift == 0 else 'T_Wale')
        ship.rod((x, y, z - s), (x, y - .02, z + s * .9), .30, 'T_Gun', .22)
        ship.rod((x, y - .02, z + s * .75), (x, y - .02, z + s * .95), .30, 'T_Gun')
    for t in np.concatenate([np.linspace(.10, .30, 5), np.linspace(.83, .93, 2)]):
        y = sheer(t) + 1.9
        x, _, z = place(t, y, s)
        ship.block((x - .42, y - .4, z - s * .4), (x + .42, y + .4, z + s * .04), 'T_Dark')


def transom(ship):
    """The stern: a raking flat with two rows of windows, carved trim and three lanterns."""
    y = np.linspace(.8, float(rail(0.)) + 1.2, 24)
    widths = half(0., np.minimum(y, 10.8)) * np.clip(1.05 - .5 * smooth(y, 10.5, 13.), 0, 1)
    grid = [[(STERN - .16 * min(h, 12) - .35 * (1 - q * q) * smooth(h, 2, 5), h, q * w)
             for q in np.linspace(-1, 1, 15)] for h, w in zip(y[::-1], widths[::-1])]
    ship.sheet(grid, 'T_Transom')
    for h, thick in ((4.1, .2), (6.6, .26), (9.1, .24), (float(rail(0.)) + 1.1, .3)):
        w = float(np.interp(h, y, widths))
        ship.path([(STERN - .16 * h - .5 * (1 - q * q) - .1, h, q * w * 1.02)
                   for q in np.linspace(-1, 1, 15)], thick, 'T_Gilt')
    for z in (-3., 0, 3.):
        top = float(rail(0.)) + 1.3
        ship.rod((STERN - 2.2, top, z), (STERN - 2.8, top + 1.3, z), .09, 'T_Dark')
        ship.ball((STERN - 2.9, top + 1.8, z), (.42, .62, .42), 'T_Lantern')
        ship.ball((STERN - 2.9, top + 2.45, z), (.2, .22, .2), 'T_Gilt')


def quarter_gallery(ship, s):
    """The glazed turret on the quarter: a bulge of the side, tapering above and below."""
    turn = np.linspace(0, np.pi, 13)
    rows = []
    for y in np.linspace(11.2, 3.6, 30):
        swell = smooth(y, 3.4, 5.6) * (1 - .85 * smooth(y, 9.4, 11.2))
        x = STERN - .16 * y + 2.6 - 2.9 * np.cos(turn) * (.45 + .55 * swell)
        z = s * (half(.04, y) - .35 + 1.75 * swell * np.sin(turn) ** .8)
        rows.append(np.stack([x, np.full_like(x, y), z], 1))
    ship.sheet(rows, 'T_Gallery')
    for y, r in ((5.2, .95), (7.3, 1.03), (9.5, 1.03)):
        x = STERN - .16 * y + 2.6 - 2.9 * r * np.cos(turn)
        z = s * (half(.04, y) - .35 + 1.8 * r * np.sin(turn) ** .8)
        ship.path(np.stack([x, np.full_like(x, y), z], 1), .15, 'T_Gilt')


def cutwater(ship):
    """The knee of the head, which carries the figurehead under the bowsprit."""
    top = float(sheer(1.))
    front = [(-3.4, -2), (-1.9, 0), (-.5, 2.4), (.5, 4.2), (2.2, 5.6), (4.4, 6.5), (6.4, 7.4),
             (7.0, 8.4)]
    back = [(5.4, 8.3), (3., 7.7), (0, 7.6), (-3, 6), (-5, 2), (-5, -2)]
    for z in (-.28, .28):
        ship.face([(BOW + x, y, z) for x, y in front + back], 'T_Wale')
    for (ax, ay), (bx, by) in zip(front, front[1:]):
        ship.rod((BOW + ax, ay, 0), (BOW + bx, by, 0), .30, 'T_Wale')
    for centre, radii in (((7.1, 9.2), (.55, 1.0, .5)), ((7.5, 10.4), (.42, .5, .4)),
                          ((6.2, 8.6), (1., .5, .55)), ((7.9, 9.6), (.6, .25, .3))):
        ship.ball((BOW + centre[0], centre[1], 0), radii, 'T_Gilt')
    ship.ball((BOW + .2, top + .2, 0), (1.2, .9, .9), 'T_Wale')


def head_rails(ship, s):
    for low, high, thick in (((-2.4, 8.1, 2.9), (6.2, 8.7, .25), .2),
                             ((-2.2, 6.3, 2.5), (5.2, 7.4, .3), .17)):
        q = np.linspace(0, 1, 9)[:, None]
        bend = -1.1 * np.sin(np.pi * q)
        points = np.array(low) * (1 - q) + np.array(high) * q + bend * (0, 1, .55)
        ship.path(points * (1, 1, s) + (BOW, 0, 0), thick, 'T_Gilt')
    for x in (0, 1.6, 3.2):
        ship.rod((BOW + x, 5.9 + .3 * x, s * .4), (BOW + x, 7.2 + .1 * x, s * (2. - .42 * x)),
                 .1, 'T_Wale')
    # The cathead, from which the anchor hangs.
    x, y, z = place(.93, float(rail(.93)) - .5, s)
    ship.rod((x - .5, y, z - s), (x + 1.3, y + .5, z + s * 1.7), .24, 'T_Wale')
    ship.rod((x - .6, y - .6, z + s * .4), (x - 3.6, y - 1.6, z + s * .45), .16, 'T_Gun')


def boats(ship):
    for z in (-1.7, 1.7):
        ship.ball((4.6, float(sheer(.6)) + 1.7, z), (4.2, 1.1, 1.2), 'T_Boat')
    for x in (-6.5, 9):
        ship.block((x - .7, float(sheer(.5)), -1.5), (x + .7, float(sheer(.5)) + 1.3, 1.5),
                   'T_Cap')
