# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Where a ship at rest hits another one, whatever way that one lies."""

import math

import numpy

from .artwork import PHASES
from .sight import headings_of

BALL_SPEEDS = (6, 7)
REACH = 180  # pixels; farther shots work but take longer than a duel of robots should
# The smallest hit box is 40 pixels in one direction, the ball 20: centres closer than this hit.
HIT_DISTANCE = 30
# Closer than this, centre to centre in both directions, the cannon fires nothing.
LAUNCH_DISTANCE = 60


class FireTable:
    """For each sprite phase, the offsets of the target at which every heading it shows hits."""

    def __init__(self, speed):
        self.hits = numpy.stack([self._sure_hits(speed, phase) for phase in range(PHASES)])
        near = slice(REACH - LAUNCH_DISTANCE - 2, REACH + LAUNCH_DISTANCE + 3)
        self.hits[:, near, near] = False
        self.some = self.hits.any(0)

    @staticmethod
    def _sure_hits(speed, phase):
        size = 2 * REACH + 1
        sure = numpy.ones((size, size), bool)
        for heading in headings_of(phase):
            swept = numpy.zeros((size, size), bool)
            # The game drops the fractions of the ball's steps, which bends its course.
            step_x, step_y = int(speed * math.sin(heading)), int(speed * math.cos(heading))
            for flown in range(1, 2 * REACH // speed):
                x, y = REACH + flown * step_x, REACH + flown * step_y
                top, left = max(0, y - HIT_DISTANCE + 1), max(0, x - HIT_DISTANCE + 1)
                swept[top:max(0, y + HIT_DISTANCE), left:max(0, x + HIT_DISTANCE)] = True
            sure &= swept
        return sure

    def phases(self, shooter, target):
        """The phases in which the shooter surely hits."""
        x, y = target[0] - shooter[0] + REACH, target[1] - shooter[1] + REACH
        if not (0 <= x <= 2 * REACH and 0 <= y <= 2 * REACH):
            return []
        return numpy.nonzero(self.hits[:, y, x])[0].tolist()


class FiringPlaces:
    """Offsets from one ship to the other at which both hit, with room for careless steering."""

    def __init__(self, slack=16):
        self.tables = [FireTable(speed) for speed in BALL_SPEEDS]
        # Seen from the second ship, every offset is turned round.
        both = self.tables[0].some & self.tables[1].some[::-1, ::-1]
        good = both.copy()
        for dx in (-slack, 0, slack):
            for dy in (-slack, 0, slack):
                good &= numpy.roll(both, (dy, dx), (0, 1))
        good[:slack] = good[-slack:] = good[:, :slack] = good[:, -slack:] = False
        ys, xs = numpy.nonzero(good[::6, ::6])
        self.offsets = [(int(6 * x) - REACH, int(6 * y) - REACH) for x, y in zip(xs, ys)]

    def around(self, target, mover):
        """Places for the moving player (0 or 1) from which both ships can hit each other."""
        sign = -1 if mover == 0 else 1
        return [(target[0] + sign * x, target[1] + sign * y) for x, y in self.offsets]
