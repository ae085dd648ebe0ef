# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Where the painted ships lie and where their parts appear, for scene and brush alike.

To change: FIRST and SECOND place and turn the ships; EYE_Y, EYE_Z and FOCUS are the camera.
"""
from dataclasses import dataclass

import numpy as np

from ship.hull import GUN_PORTS
from ship.lines import position, station
from ship.model import VERSIONS

EYE_Y, EYE_Z, FOCUS = 13, -230, 721
MIDDLE = 400        # of the camera's square frame
LINES = VERSIONS['tall'][1]


@dataclass
class Pose:
    name: str
    pitch: float        # degrees about x, then z, then y, as POV-Ray turns
    roll: float
    yaw: float
    place: tuple

    def source(self):
        return 'object{ %s rotate x*%g rotate z*%g rotate y*%g translate <%g,%g,%g> }' % (
            (self.name, self.pitch, self.roll, self.yaw) + self.place)

    def world(self, points):
        x, y, z = np.asarray(points, float).T
        a, b, c = np.radians((self.pitch, self.roll, self.yaw))
        y, z = y * np.cos(a) - z * np.sin(a), y * np.sin(a) + z * np.cos(a)
        x, y = x * np.cos(b) - y * np.sin(b), x * np.sin(b) + y * np.cos(b)
        x, z = x * np.cos(c) + z * np.sin(c), z * np.cos(c) - x * np.sin(c)
        return np.stack([x, y, z], 1) + self.place

    def project(self, points):
        """Picture positions, (n, 2), of points of the ship."""
        x, y, z = self.world(points).T
        scale = FOCUS / (z - EYE_Z)
        return np.stack([MIDDLE + x * scale, MIDDLE - (y - EYE_Y) * scale], 1)

    def near_side(self):
        """+1 or -1: the side of the ship that faces the eye."""
        port, starboard = self.world([(0, 0, 10), (0, 0, -10)])[:, 2]
        return 1 if port < starboard else -1

    def waterline(self):
        """The near side's waterline from stern to stem."""
        s, points = self.near_side(), []
        for t in np.linspace(0, 1, 60):
            hollow = 1 - .4 * np.clip((t - .72) / .28, 0, 1)
            rake = LINES.rake * np.clip((t - .8) / .2, 0, 1) * .7
            points.append((position(t) + rake, 1.4, s * LINES.side(t) * .94 * hollow))
        return self.project(points)

    def muzzles(self):
        """The firing guns of the near side, from bow to stern; the smoke leaves her bow free."""
        s = self.near_side()
        return self.project([(x, 3.6 * LINES.tall, s * (LINES.side(station(x)) + 2.4))
                             for x in GUN_PORTS[3::2]])


# Far enough aside that the menu's panel, 255 to 545 across, hides neither bow.
FIRST = Pose('FirstShip', -4, 1.2, 214, (-94, -.6, 10))
SECOND = Pose('SecondShip', 5, -.8, -42, (88, -.8, 8))
