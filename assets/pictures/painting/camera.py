# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Where the painted ships lie and where their parts appear, for scene and brush alike.

Picture positions are in finished pixels, world positions in metres: x right, y up, z away.
To change: FIRST and SECOND set the position and heading of the ships; VIEW is the camera.
"""
from dataclasses import dataclass

import numpy as np

from painting.shape import PORT_LINE, PORTS, place, sheer

WIND = -36.                 # degrees: the wind blows to the right and towards the eye
# Degrees that the guns are trained forward. Deliberate: no port allows that much, but less would
# make the flames point at the eye, or even away from the enemy.
TRAINED = 65


def turned(axis, degrees):
    c, s = np.cos(np.radians(degrees)), np.sin(np.radians(degrees))
    i, j = [k for k in range(3) if k != axis]
    m = np.eye(3)
    m[i, i], m[i, j], m[j, i], m[j, j] = c, -s, s, c
    return m


@dataclass
class View:
    eye: float          # its height above the sea
    focus: float        # pixels per metre at a distance of one metre
    middle: float       # x of the point straight ahead, in pixels
    horizon: float

    def project(self, world):
        """Picture positions, (n, 2), of world positions."""
        x, y, z = np.asarray(world, float).T
        return np.stack(self.at(x, y, z), 1)

    def at(self, x, y, z):
        return self.middle + self.focus * x / z, self.horizon - self.focus * (y - self.eye) / z


VIEW = View(8., 721., 400., 403.)


@dataclass
class Pose:
    name: str
    heading: float      # degrees from the picture's right, away from the eye
    heel: float         # towards starboard
    trim: float         # bow up
    spot: tuple         # the middle of her waterline
    brace: float        # of the yards, degrees from square
    near: int           # her side that faces the eye: -1 starboard, 1 port
    courses: bool = True        # whether her lowest sails are set, or clewed up to their yards

    def axes(self):
        """Columns are her forward, up and port axes in the world."""
        return turned(1, self.heading) @ turned(0, -self.heel) @ turned(2, self.trim)

    def matrix(self):
        return 'matrix<%s,%g,%g,%g>' % (
            ','.join('%.5f' % v for v in self.axes().T.ravel()), *self.spot)

    def wind(self):
        """Where the wind blows to, in degrees from her heading."""
        return WIND - self.heading

    def world(self, points):
        return np.asarray(points, float) @ self.axes().T + self.spot

    def waterline(self, count=120):
        """World positions of the near side's waterline, from stern to stem."""
        t = np.linspace(.01, 1, count)
        return self.world(place(t, np.zeros(count), self.near))

    def muzzles(self):
        """World positions of the near guns' mouths, from stern to bow, and their aim."""
        points = place(PORTS, PORT_LINE * sheer(PORTS), self.near, 1.)
        ahead = np.radians(TRAINED)
        return self.world(points), self.axes() @ (np.sin(ahead), 0, self.near * np.cos(ahead))


# The menu's panel hides x 255 to 545. The ships face each other across it in one wind: the first
# runs before it, the second is close-hauled, her yards braced sharp. Her courses are clewed up for
# the fight, so that neither ship looks like a copy of the other.
FIRST = Pose('First', -25, 3, .6, (-78.2, .2, 192), 22, -1)
SECOND = Pose('Second', -149, -4, -.4, (75.2, .1, 194), 46, 1, False)
