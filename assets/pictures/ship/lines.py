# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The ship's lines: her shape as functions of the station t, 0 at the stern, 1 at the bow.

To change: `breadth` is her plan, `deck` her sheer, BEAM and STERN to BOW her size.
"""
import math

from ship.mesh import smooth

STERN, BOW = 45.2, -36.
BEAM = 13.4         # half of it


def breadth(t):
    """Half breadth as a part of BEAM; full amidships, fine at the bow."""
    if t < .42:
        return .80 + .20 * math.sin(math.pi / 2 * t / .42)
    if t < .58:
        return 1.
    u = (t - .58) / .42
    return max(0., 1 - u ** 2.3) ** .78


def position(t):
    return STERN + (BOW - STERN) * t


def station(x):
    return (x - STERN) / (BOW - STERN)


class Lines:
    """The lines of one version of the ship.

    `tall` stretches the heights of the hull; `rake` is how far the stem's foot stands behind
    its head.
    """

    def __init__(self, tall, rake=2.2):
        self.tall, self.rake = tall, rake

    def deck(self, t):
        """Height of the deck: forecastle, waist, quarterdeck and poop, with some sheer."""
        y = 6.0 + 2.6 * (1 - smooth(t, .355, .385)) + 2.4 * (1 - smooth(t, .125, .15))
        y += 2.4 * smooth(t, .735, .765) + .8 * (2 * (t - .5)) ** 2
        return self.tall * y

    def rail(self, t):
        return self.deck(t) + 1.7 * self.tall

    @staticmethod
    def side(t):
        """Half breadth at the widest height."""
        return BEAM * breadth(t)

    @staticmethod
    def top(t):
        """Half breadth at the rail: less than below, so the painted side shows from above."""
        return BEAM * breadth(t) * (.86 - .05 * (1 - smooth(t, 0, .4)))
