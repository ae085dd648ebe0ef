# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The hull of the sheet's ship: sides, decks, stern, head, guns and what stands on deck.

Axes: bow towards -x, y up; one unit is a pixel of the sheet. A height of one unit rises by
tan(Tilt) pixels up the screen. What is thinner than a pixel vanishes, so guns, rails and the wheel
are larger than life.

To change: `breadth` is her plan, HEIGHTS her decks, the tables below what she carries.
"""
import math

import numpy as np

from ship.mesh import smooth

STERN, BOW, BEAM = 44.8, -41.2, 17.0        # BEAM is the half breadth
TUMBLE = .82        # breadth at the rail as a part of the widest
LEAST_STERN, WIDEST, FULL = .72, .42, .71   # plan: stern's breadth, and where she is widest
ROUND, CORNER = .10, .32   # how far the stern is rounded, and by what part of its breadth
WALE = .42          # height of the widest line, as a part of the rail's
BULWARK = 2.0       # height of the rail above the deck
BULWARK_THICK = 1.0
GALLERY, REACH = (36.0, 42.4), .9   # the quarter galleries: ends, and how far they stand out
WAIST, QUARTER, POOP, FORE = 7.4, 8.4, 8.7, 8.6
SHEER = 2.3         # how much higher the rail stands at her ends than amidships
BREAKS = (.085, .345, .775)     # stations at which poop, quarterdeck and waist end
GUNS = (-27., -16.4, -5.8, 4.8, 15.4, 26.)
GUN_DECK = .53      # height of the ports as a part of the rail's
BOAT = (5.6, 2.4)   # the boat on deck: half length and half breadth
TIP = (-49.2, 7.1, 0.)
STATIONS = np.concatenate([
    np.linspace(0, .1, 14)[:-1], np.linspace(.1, FULL, 36),
    FULL + (1 - FULL) * np.sin(np.linspace(0, math.pi / 2, 40))[1:]])


def breadth(t):
    """Half breadth as a part of BEAM at station t, 0 at the stern, 1 at the stem."""
    if t < WIDEST:
        corner = CORNER * (1 - math.sqrt(1 - max(0, 1 - t / ROUND) ** 2))
        return (LEAST_STERN + (1 - LEAST_STERN) * math.sin(math.pi / 2 * t / WIDEST)) * (1 - corner)
    if t < FULL:
        return 1.
    u = (t - FULL) / (1 - FULL)
    return max(0., 1 - u ** 2.5) ** .73


def position(t):
    return STERN + (BOW - STERN) * t


def station(x):
    return (x - STERN) / (BOW - STERN)


def deck(t):
    poop, quarter, waist = BREAKS
    y = WAIST + (QUARTER - WAIST) * (1 - smooth(t, quarter - .004, quarter + .004))
    y += (POOP - QUARTER) * (1 - smooth(t, poop - .004, poop + .004))
    y += (FORE - WAIST) * smooth(t, waist - .004, waist + .004)
    return y + SHEER * (2 * t - 1) ** 2


def rail(t):
    return deck(t) + BULWARK


def side(t):
    return BEAM * breadth(t)


def top(t):
    return side(t) * TUMBLE


def build(model):
    for s in (-1, 1):
        planking(model, s)
        bulwark(model, s)
        guns(model, s)
        gallery(model, s)
        cathead(model, s)
    decks(model)
    stern(model)
    head(model)
    furniture(model)


def planking(model, s):
    grid, uv = [], []
    for t in STATIONS:
        high, wide, x = rail(t), side(t), position(t)
        rake, fine = 2.6 * smooth(t, .86, 1.), .24 * smooth(t, .7, 1.)
        profile = [(0, .90), (.25 * WALE * high, .94), (.5 * WALE * high, .975), (WALE * high, 1.),
                   (.75 * high, .5 * (1 + TUMBLE)), (high, TUMBLE)]
        grid.append([(x + rake * (1 - y / high), y,
                      s * wide * q * (1 - fine * max(0, 1 - k / 4)))
                     for k, (y, q) in enumerate(profile)])
        uv.append([(t, y / high) for y, _ in profile])
    model.surface(grid, 'T_Side', uv)


def bulwark(model, s):
    """The bulwark's inner side, and the rail on top of it."""
    inner, cap = [], []
    for t in STATIONS:
        x, y, r = position(t), rail(t), top(t)
        inner.append([(x, y, s * max(0, r - .7)), (x, deck(t) - .3,
                                                   s * max(0, r - BULWARK_THICK))])
        cap.append([(x, y - .25, s * (r + .4)), (x, y + .25, s * (r + .3)),
                    (x, y + .25, s * max(0, r - .8)), (x, y - .25, s * max(0, r - .95))])
    model.surface(inner, 'T_Inner')
    model.surface(cap, 'T_Cap')


def decks(model):
    poop, quarter, waist = BREAKS
    for t0, t1, texture in ((0., poop, 'T_Planks'), (poop, quarter, 'T_Planks'),
                            (quarter, waist, 'T_Waist'), (waist, .995, 'T_Planks')):
        middle, grid = (t0 + t1) / 2, []
        for t in np.linspace(t0, t1, 20):
            r = max(0, top(t) - .8)
            sheer = SHEER * ((2 * t - 1) ** 2 - (2 * middle - 1) ** 2)
            grid.append([(position(t), deck(middle) + sheer + .3 * (1 - q * q), q * r)
                         for q in np.linspace(-1, 1, 7)])
        model.surface(grid, texture, mapped=False)
    for t in BREAKS:
        break_of_deck(model, t)


def break_of_deck(model, t):
    """The wall at a step of the deck, with its balustrade and two ladders."""
    low, high = sorted((deck(t - .03), deck(t + .03)))
    down = 1 if deck(t - .03) < deck(t + .03) else -1
    x, r = position(t), top(t) - .7
    model.box((x - .2, low - 1, -r), (x + .2, high + .25, r), 'T_Wall')
    model.box((x - .5, high + 1.1, -r), (x + .5, high + 1.6, r), 'T_Gilt')
    for z in np.linspace(-r, r, 9):
        model.box((x - .2, high, z - .3), (x + .2, high + 1.2, z + .3), 'T_Cap')
    for z in (-.62 * r, .62 * r):
        for k in range(3):
            reach = x + down * (.6 + .8 * k)
            model.box((reach - .4, low, z - 1.1), (reach + .4, high - .6 * k, z + 1.1), 'T_Step')


def stern(model):
    high, wide = rail(0), side(0)
    half = [(0, .84 * wide), (1.6, .97 * wide), (WALE * high, wide), (high, wide * TUMBLE)]
    model.polygon([(STERN, y, -z) for y, z in half] + [(STERN, high + .6, 0)]
                  + [(STERN, y, z) for y, z in half[::-1]], 'T_Stern')
    r = wide * TUMBLE
    model.box((STERN - .7, high - .6, -r - .3), (STERN + .3, high + .3, r + .3), 'T_Gilt')
    model.box((STERN, high * .30, -r * .97), (STERN + .8, high * .30 + 1.1, r * .97), 'T_Gilt')
    for k in range(-2, 3):
        z, w = k * 3.8, 1.25
        model.box((STERN, high * .46, z - w), (STERN + .45, high * .80, z + w), 'T_Pane')


def gallery(model, s):
    """The quarter gallery, whose windows look out of her side near the stern.

    It fills the hit boxes of diagonal headings, for which her stern alone would be too narrow.
    """
    fore, aft = GALLERY
    wide, high = side(station(fore)) + REACH, rail(station(fore))
    inside = s * (wide - 5)
    model.box((fore, .30 * high, inside), (aft, .76 * high, s * wide), 'T_Stern')
    model.box((fore - .3, .76 * high, inside), (aft + .3, .84 * high, s * (wide - .2)), 'T_Wood')
    for x in (fore + 2, aft - 2):
        model.box((x - 1.1, .42 * high, inside), (x + 1.1, .66 * high, s * (wide + .2)), 'T_Pane')


def cathead(model, s):
    """The beam for the anchor; on diagonal headings it fills the hit boxes beside the bow."""
    t = station(-31)
    model.cone((-30, rail(t), s * (top(t) - 2)), .8, (-34.2, rail(t) + .2, s * (side(t) + .8)),
               .65, 'T_Spar')


def head(model):
    """Beakhead, figurehead and bowsprit."""
    y = deck(.97)
    model.cone((BOW + 5, y - 2, 0), 2.4, (BOW - 4.5, y * .68, 0), .9, 'T_Tar')
    model.polygon([(BOW + 4, y - .4, -5.0), (BOW + 4, y - .4, 5.0), (BOW - 4.5, y - 1.0, 0)],
                  'T_Wood')
    for s in (-1, 1):
        model.sweep([(BOW + dx, y + dy, s * z) for dx, dy, z in
                     ((8, .2, 8.0), (4, .2, 5.4), (0, 0, 3.0), (-2.6, -.3, 1.3), (-5, -.5, .3),
                      (-6, -.2, 0))], .5, 'T_Gilt')
    model.cone((-29, y + .9, 0), 1.15, (-41, y - .1, 0), .9, 'T_Mast')
    model.cone((-41, y - .1, 0), .9, TIP, .55, 'T_Spar')


def guns(model, s):
    """Every port has its gun behind it on deck: one row, seen from inside and from outside."""
    for x in GUNS:
        t = station(x)
        wide, high = side(t), rail(t)
        port = GUN_DECK * high
        model.box((x - 1.7, port - 1.5, s * wide * .9), (x + 1.7, port + 1.5, s * (wide + .1)),
                  'T_Port')
        model.cylinder((x, port, s * wide * .9), (x, port, s * (wide + 1.3)), .6, 'T_Muzzle')
        y, r = deck(t) + .3, top(t) - BULWARK_THICK
        model.box((x - 1.35, y, s * (r - 3.6)), (x + 1.35, y + .9, s * (r - .4)), 'T_Carriage')
        model.cone((x, y + 1.4, s * (r - 4.6)), 1.0, (x, y + 1.4, s * (r + .6)), .75, 'T_Gun')


def furniture(model):
    waist, quarter = deck(.55) + .3, deck(.24) + .3
    poop, fore = deck(.06) + .3, deck(.87) + .3
    boat(model, -8.6, waist)
    for x, lx, lz in ((-16.2, 1.8, 2.8), (12.2, 2.6, 3.0)):
        model.box((x - lx - .7, waist - .2, -lz - .7), (x + lx + .7, waist + .6, lz + .7), 'T_Cap')
        model.box((x - lx, waist, -lz), (x + lx, waist + .8, lz), 'T_Hatch')
    wheel(model, 33.0, quarter)
    model.box((29.6, quarter, -1.1), (31.0, quarter + 1.6, 1.1), 'T_Wood')
    model.box((18.6, quarter, -2.4), (21.6, quarter + .9, 2.4), 'T_Cap')
    model.box((19.2, quarter, -1.9), (21.0, quarter + 1.1, 1.9), 'T_Hatch')
    model.box((40.0, poop, -2.6), (43.2, poop + 1.0, 2.6), 'T_Wood')
    model.box((40.5, poop + .5, -2.1), (42.7, poop + 1.2, 2.1), 'T_Pane')
    model.cylinder((-29.5, fore, 0), (-29.5, fore + 1.6, 0), 1.7, 'T_Wood')
    model.cylinder((-29.5, fore + 1.6, 0), (-29.5, fore + 2.1, 0), 2.2, 'T_Cap')


def boat(model, x, y):
    """The ship's boat on its chocks: a pale rim round a dark inside with two thwarts."""
    long, wide = BOAT
    for shrink, up, texture in ((0, 1.4, 'T_Boat'), (.7, 1.9, 'T_Hatch')):
        model.raw('sphere{0,1 scale<%.2f,1.3,%.2f> translate<%.2f,%.2f,0> texture{%s}}' % (
            long - 1.6 * shrink, wide - shrink, x, y + up, texture))
    for thwart in (x - .4 * long, x + .3 * long):
        model.box((thwart - .45, y + 2.9, -.8 * wide), (thwart + .45, y + 3.3, .8 * wide),
                  'T_Boat')


def wheel(model, x, y):
    """The steering wheel, on its drum."""
    middle = y + 2.8
    model.raw('torus{2.5,.40 rotate 90*z translate <%f,%f,0> texture{T_Helm}}' % (x, middle))
    for k in range(2):
        a = math.pi * (k / 2 + .25)
        dy, dz = 3.4 * math.sin(a), 3.4 * math.cos(a)
        model.cylinder((x, middle - dy, -dz), (x, middle + dy, dz), .26, 'T_Helm')
    model.box((x + .2, y, -1.0), (x + 1.4, y + 1.2, .9), 'T_Spar')
