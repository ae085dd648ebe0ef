# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The hull: sides, decks, stern, beakhead, guns and what stands on deck.

To change: the tables below for guns and decks, one function for each part of her.
"""
import math

import numpy as np

from ship.lines import BOW, STERN, position, station
from ship.mesh import smooth

STATIONS = np.concatenate([
    np.linspace(0, .58, 50),
    .58 + .42 * np.sin(np.linspace(0, math.pi / 2, 40))[1:]])
BREAKS = ((0., .137), (.137, .37), (.37, .75), (.75, .995))     # poop, quarter, waist, fore
GUN_PORTS = (-24, -17.5, -11, -4.5, 2, 8.5, 15, 21.5, 28, 34.5)
BATTER = 1.95       # the bulwark leans inwards, so that its red shows from straight above
DECK_GUNS = (-27, -22., -16., -1., 5, 11, 19.5, 25.5, 31.5)


def build(model, lines, upright):
    """`upright` adds what shows only from the side, such as port lids."""
    for s in (-1, 1):
        side(model, lines, s)
        bulwark_and_rail(model, lines, s)
    decks(model, lines)
    stern(model, lines)
    beakhead(model, lines)
    if upright:
        knee(model, lines)
    furniture(model, lines)
    for s in (-1, 1):
        broadside(model, lines, s, upright)
        deck_guns(model, lines, s)


def side(model, lines, s):
    grid, uv = [], []
    for t in STATIONS:
        rail, wide, narrow = lines.rail(t), lines.side(t), lines.top(t)
        ratio = narrow / max(wide, 1e-6)
        profile = [(-3, .72), (-1, .86), (1.0, .965), (2.6, 1.0), (4.2, .99),
                   (.5 * (4.2 + rail), .495 + .5 * ratio), (rail, ratio)]
        rake = lines.rake * smooth(t, .8, 1.)
        hollow = .40 * smooth(t, .72, 1.)
        tuck = 0 if t > .02 else -.125
        grid.append([(position(t) + rake * (1 - k / 6) + tuck * (6 - k),
                      y if k > 4 else y * lines.tall,
                      s * wide * q * (1 - hollow * max(0, 1 - k / 4)))
                     for k, (y, q) in enumerate(profile)])
        uv.append([(t, k / 6) for k in range(7)])
    model.surface(grid, 'T_Hull', uv)
    wale = [(position(t) + lines.rake * .5 * smooth(t, .8, 1), 2.5 * lines.tall,
             s * (lines.side(t) * 1.005 + .12)) for t in STATIONS]
    model.sweep(wale, .38, 'T_Dark', 'linear_spline')


def bulwark_and_rail(model, lines, s):
    model.surface([[(position(t), lines.rail(t), s * max(0, lines.top(t) - .55)),
                    (position(t), lines.deck(t) + .35, s * max(0, lines.top(t) - BATTER)),
                    (position(t), lines.deck(t) - .4, s * max(0, lines.top(t) - BATTER))]
                   for t in STATIONS], 'T_Bulwark')
    cap = []
    for t in STATIONS:
        r, y, x = lines.top(t), lines.rail(t), position(t)
        outer = x - .5 * smooth(t, .9, 1)
        cap.append([(outer, y - .1, s * (r + .45)), (outer, y + .25, s * (r + .35)),
                    (x, y + .3, s * max(0, r - .55)), (x, y - .1, s * max(0, r - .95))])
    model.surface(cap, 'T_Rail')


def decks(model, lines):
    walls = ((None, lines.deck(.25) - .3), (None, lines.deck(.55) - .3), (None, None),
             (lines.deck(.55) - .3, None))
    for (t0, t1), ends in zip(BREAKS, walls):
        middle = (t0 + t1) / 2
        grid = []
        for t in np.linspace(t0, t1, 24):
            r = max(0, lines.top(t) - .5)
            sheer = lines.tall * .8 * ((2 * t - 1) ** 2 - (2 * middle - 1) ** 2)
            grid.append([(position(t), lines.deck(middle) + .3 * (1 - q * q) + sheer, q * r)
                         for q in np.linspace(-1, 1, 9)])
        model.surface(grid, 'T_Deck', mapped=False)
        for t, low in zip((t0, t1), ends):
            if low is not None:
                bulkhead(model, position(t), low, lines.deck(middle) + .3, lines.top(t) - .5)


def bulkhead(model, x, low, high, r):
    """Wall at a break of the deck, with a balustrade on top."""
    model.box((x - .15, low, -r), (x + .15, high, r), 'T_Wall')
    model.box((x - .25, high + 1.0, -r), (x + .25, high + 1.35, r), 'T_Rail')
    for z in np.linspace(-r, r, 13):
        model.box((x - .13, high, z - .13), (x + .13, high + 1.05, z + .13), 'T_Rail')


def half_disc(model, y0, y1, length, half, texture):
    """A gallery's floor or wall: half an ellipse standing out from the stern."""
    model.raw('difference{cylinder{<%f,%f,0>,<%f,%f,0>,1 scale <%f,1,%f> translate <%f,0,0>} '
              'box{<-200,-200,-200>,<%f,200,200>} texture{%s}}' % (
                  0, y0, 0, y1, length, half, STERN, STERN - .05, texture))


def stern(model, lines):
    top, wide, rail = lines.top(0) + .2, lines.side(0), lines.rail(0)
    tall = lines.tall
    outline = [(-1, .7 * wide), (2.6 * tall, wide), (4.2 * tall, .99 * wide), (rail, top)]
    points = [(STERN, y, -z) for y, z in outline] + [(STERN, rail + 1.2, 0)]
    model.polygon(points + [(STERN, y, z) for y, z in outline[::-1]], 'T_Stern')
    gallery = lines.deck(.25) - 1.0
    poop = lines.deck(.06)
    for y0, y1, length, part in ((gallery - 2.6, gallery - 2.1, 1.9, .97),
                                 (gallery + .6, gallery + 1.1, 2.2, .95),
                                 (poop + .9, poop + 1.5, 1.7, .9)):
        half_disc(model, y0, y1, length * 1.35, (top + .6) * 1.02 * part / .95, 'T_Gold')
    half_disc(model, gallery - 2.1, gallery + .6, 2.16, top * .98, 'T_Gallery')
    for z in (-6.2, 0, 6.2):
        model.cylinder((STERN + 1.2, rail, z), (STERN + 1.6, rail + 2, z), .22, 'T_Dark')
        model.sphere((STERN + 1.2, rail + 2.5, z), 1.3, 'T_Lantern')
    for s in (-1, 1):
        model.raw('sphere{0,1 scale <3.2,2.6,1.5> translate <%f,%f,%f> texture{T_Gold}}' % (
            STERN - 2.4, gallery - .8, s * lines.side(.02) * .93))


def beakhead(model, lines):
    y = lines.deck(.97)
    model.cone((BOW + 3, y - 2, 0), 2.6, (BOW - 6, y - .4, 0), .6, 'T_Dark')
    for s in (-1, 1):
        rails = [(6, -.2, 7), (3, -.2, 6), (-1, -.6, 3.2), (-4, -.4, 1.5), (-6.4, .4, .2),
                 (-8, 1, 0)]
        model.sweep([(BOW + dx, y + dy, s * z) for dx, dy, z in rails], .38, 'T_Gold')
    model.polygon([(BOW + 2, y - .7, -5), (BOW + 2, y - .7, 5), (BOW - 6, y - .5, 0)], 'T_Deck')


def knee(model, lines):
    """The cutwater: a curved timber from below the waterline up to the figurehead."""
    y = lines.deck(.97)
    front = [(7.5, -3), (4.5, 0), (2., .25 * y), (.2, .45 * y), (-2, .62 * y), (-5, .76 * y),
             (-8.2, .88 * y), (-9.6, y)]
    back = [(-7.4, 1.04 * y), (-3, .92 * y), (3, .85 * y), (9, .3 * y), (10, -3)]
    for z in (-.7, .7):
        model.polygon([(BOW + dx, h, z) for dx, h in front + back], 'T_Dark')
    model.surface([[(BOW + dx, h, -.7), (BOW + dx, h, .7)] for dx, h in front], 'T_Gold')
    model.raw('sphere{0,1 scale <1.1,2.4,1> rotate z*24 translate <%f,%f,0> texture{T_Gold}}' % (
        BOW - 9.2, y + .6))
    model.sphere((BOW - 10.4, y + 3.2, 0), .85, 'T_Gold')


def grating(model, x, z, lx, lz, y):
    model.box((x - lx - .4, y - .2, z - lz - .4), (x + lx + .4, y + .7, z + lz + .4), 'T_Rail')
    model.box((x - lx, y - .1, z - lz), (x + lx, y + .75, z + lz), 'T_Grate')


def ships_boat(model, x, y, z, length, half):
    model.raw('difference{sphere{0,1 scale <%f,1.7,%f>} sphere{0,1 scale <%f,1.45,%f> '
              'translate .35*y} box{<-9,.55,-9>,<9,9,9>} texture{T_Boat} '
              'translate <%f,%f,%f>}' % (length, half, length * .92, half * .8, x, y, z))
    for k in (-.5, 0, .45):
        model.box((x + k * length - .25, y + .25, z - half * .8),
                  (x + k * length + .25, y + .45, z + half * .8), 'T_Rail')


def furniture(model, lines):
    waist, quarter = lines.deck(.55), lines.deck(.25)
    poop, fore = lines.deck(.06), lines.deck(.88)
    for x, lx, lz in ((-12, 2.4, 2.6), (-5.5, 1.6, 2.2), (11.5, 1.5, 2.2)):
        grating(model, x, 0, lx, lz, waist + .3)
    for z in (-5.2, 5.2):
        ships_boat(model, -4.5, waist + 1.8, z, 5.2, 1.7)
    q = quarter + .3
    model.cylinder((21, q, 0), (21, q + 1.6, 0), 1.25, 'T_Rail')
    model.cylinder((21, q + 1.6, 0), (21, q + 1.9, 0), 1.6, 'T_Mast')
    model.box((35.0, q, -1.9), (35.9, q + 1.2, 1.9), 'T_Glass')
    model.raw('torus{1.35,.22 rotate 90*z translate <25.2,%f,0> texture{T_Mast}}' % (q + 1.6))
    p = poop + .3
    model.box((38.2, p, -2.2), (41.8, p + 1.2, 2.2), 'T_Rail')
    model.box((38.6, p + .2, -1.8), (41.4, p + 1.4, 1.8), 'T_Glass')
    model.box((-17.2, fore, -1.2), (-16.2, fore + 1.8, 1.2), 'T_Rail')
    model.sphere((-16.7, fore + 2.1, 0), .55, 'T_Gold')
    for s in (-1, 1):
        for k in range(5):
            x = position(.37) - k * .6
            model.box((x - .4, waist + .2, s * 5.8 - 1.1), (x + .2, quarter - .5 * k,
                                                           s * 5.8 + 1.1), 'T_Rail')


def broadside(model, lines, s, upright):
    y = 3.6 * lines.tall
    for x in GUN_PORTS + ((-29.8,) if upright else ()):
        wide = lines.side(station(x))
        model.box((x - .95, y - .9, s * (wide * .97 - .25)),
                  (x + .95, y + .9, s * (wide * .99 + .2)), 'T_Port')
        if upright:
            model.box((x - .95, y + .95, s * wide * .99),
                      (x + .95, y + 1.15, s * (wide * .99 + 1.6)), 'T_PortLid')
        # Guns are thicker than life: slender ones vanish at the size of the sheet.
        model.cone((x, y, s * wide * .7), .8, (x, y, s * (wide + 2.2)), .6, 'T_Gun')
        model.cylinder((x, y, s * (wide + 1.8)), (x, y, s * (wide + 2.3)), .78, 'T_Gun')


def deck_guns(model, lines, s):
    for x in DECK_GUNS:
        r = lines.top(station(x))
        y = lines.deck(.55) + .35 if -14 < x < 17.9 else lines.deck(station(x)) + .4
        model.box((x - 1, y, s * (r - 4.2)), (x + 1, y + .8, s * (r - 1.2)), 'T_Carr')
        model.cone((x, y + 1.25, s * (r - 4.6)), .85, (x, y + 1.25, s * (r + 1)), .55, 'T_Gun')


