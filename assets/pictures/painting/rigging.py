# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The painted ship's masts and ropes.

To change: ROPE is the thickness of the standing rigging; thinner ropes dissolve at 1:1.
"""
import numpy as np

from painting.sails import YARDS, mast_at
from painting.shape import place, rail, sheer, station

ROPE = .075
SPRIT = np.array([[19.5, 9.2, 0], [34.8, 15.0, 0], [43.6, 20.4, 0]])


def build(ship, wind):
    for name, (_, truck, yards) in YARDS.items():
        masts(ship, name, truck, yards)
        shrouds(ship, name, yards)
        braces(ship, name, yards, wind)
    ship.rod(SPRIT[0], SPRIT[1], .50, 'T_Mast', .36)
    ship.rod(SPRIT[1] * .35 + SPRIT[0] * .65 + (0, .6, 0), SPRIT[2], .26, 'T_Yard', .12)
    ship.rod(SPRIT[1] + (0, .2, 0), SPRIT[1] - (.4, 4.2, 0), .11, 'T_Yard')
    stays(ship)


def masts(ship, name, truck, yards):
    first = yards[0][0] + 2.2
    second = yards[1][0] + 2.4
    ship.rod(mast_at(name, 5), mast_at(name, first + 1.5), .50, 'T_Mast', .42)
    ship.rod(mast_at(name, first - 1.5) + (.5, 0, 0), mast_at(name, second + 1) + (.4, 0, 0), .32,
             'T_Yard', .26)
    ship.rod(mast_at(name, second - 1.) + (.6, 0, 0), mast_at(name, truck + 3.2) + (.5, 0, 0), .22,
             'T_Yard', .10)
    ship.ball(mast_at(name, truck + 3.3) + (.5, 0, 0), (.22, .16, .22), 'T_Gilt')
    x = mast_at(name, first)[0]
    ship.block((x - 1.6, first - .1, -1.9), (x + 1.5, first + .22, 1.9), 'T_Wale')
    x = mast_at(name, second)[0]
    ship.block((x - .6, second, -.9), (x + .9, second + .12, .9), 'T_Wale')


def shrouds(ship, name, yards):
    """Lower shrouds with ratlines, topmast shrouds above the top, and backstays."""
    x = YARDS[name][0]
    first, second, third = yards[0][0] + 2., yards[1][0] + 2., yards[-1][0] + 1.5
    for s in (-1, 1):
        high = mast_at(name, first) + (0, 0, s * .3)
        feet = []
        for k in range(6):
            t = station(x + .4 - 1.35 * k)
            feet.append(place(t, float(sheer(t)) + .5, s, .75))
            ship.rod(high, feet[-1], ROPE, 'T_Rope')
            ship.rod(feet[-1], place(t, .62 * float(sheer(t)), s, .05), ROPE, 'T_Dark')
        for q in np.linspace(.06, .92, 24):
            ship.rod(high * q + feet[0] * (1 - q), high * q + feet[-1] * (1 - q), ROPE * .5,
                     'T_Rope')
        t0, t1 = station(x + 1.2), station(x - 7.2)
        ship.path([place(t, float(sheer(t)) + .42, s, .45) for t in np.linspace(t1, t0, 8)], .22,
                  'T_Wale')
        top = mast_at(name, second) + (.4, 0, 0)
        ends = [mast_at(name, first + .2) + (.7 - .7 * k, 0, s * 1.8) for k in range(4)]
        for end in ends:
            ship.rod(top, end, ROPE * .8, 'T_Rope')
        for q in np.linspace(.06, .9, 15):
            ship.rod(top * q + ends[0] * (1 - q), top * q + ends[-1] * (1 - q), ROPE * .4, 'T_Rope')
        for k, height in enumerate((second, third)):
            t = station(x - 7.6 - 1. * k)
            if t > .01:
                ship.rod(mast_at(name, height), place(t, float(sheer(t)) + .6, s, .5), ROPE * .8,
                         'T_Rope')


def stays(ship):
    def stay(name, height, foot, thick=1.):
        ship.rod(mast_at(name, height), foot, ROPE * thick, 'T_Rope')
    ends = [SPRIT[1] * q + SPRIT[0] * (1 - q) for q in (.45, .9)]
    stay('fore', 21.5, ends[0], 1.5)
    stay('fore', 34, ends[1], 1.1)
    stay('fore', 42, SPRIT[2] * .55 + SPRIT[1] * .45)
    stay('fore', 47, SPRIT[2])
    stay('main', 23, (13.2, 9, 0), 1.5)
    stay('main', 36.6, mast_at('fore', 22.5), 1.1)
    stay('main', 45.5, mast_at('fore', 34.6))
    stay('main', 51, mast_at('fore', 42))
    stay('mizzen', 21, (-2.6, 10, 0), 1.3)
    stay('mizzen', 30, mast_at('main', 23))
    stay('mizzen', 36.6, mast_at('main', 30))
    # Under the bowsprit: bobstay, dolphin striker and its martingale.
    ship.rod(SPRIT[1], (22.6, 2.2, 0), ROPE * 1.4, 'T_Rope')
    ship.rod(SPRIT[2], SPRIT[1] - (.4, 4.2, 0), ROPE, 'T_Rope')
    ship.rod(SPRIT[1] - (.4, 4.2, 0), (22., 6.5, 1.2), ROPE, 'T_Rope')
    for s in (-1, 1):
        ship.rod(SPRIT[1], place(.97, float(rail(.97)) - 1, s), ROPE, 'T_Rope')


def braces(ship, name, yards, wind):
    """Lifts from every yardarm to its mast, and braces led aft."""
    aft = {'fore': ('main', 0.), 'main': ('mizzen', 0.), 'mizzen': ('main', 0.)}[name][0]
    for k, (height, length) in enumerate(yards):
        across, ahead = wind.axes(3.5 * k)
        for end in (-1, 1):
            tip = mast_at(name, height) + .55 * ahead + across * length * end
            ship.rod(tip, mast_at(name, height + 2.4 + .1 * length), ROPE * .5, 'T_Rope')
            target = mast_at(aft, min(height * .93, YARDS[aft][1] - 3))
            ship.rod(tip, target, ROPE * .45, 'T_Rope')
