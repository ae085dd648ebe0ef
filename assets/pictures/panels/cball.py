# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The cannonball: dark iron, a light rim and a spark, to be seen on sea, sand and sails.

To change: RADIUS, the rim's and the spark's strength in `make`.
"""
import numpy as np

from common.canvas import Canvas
from common.palette import linear
from common.raster import layer, over, reduce, to_image
from common.relief import sphere

SIZE = 20
X, Y, RADIUS = 9.6, 9.5, 8.0


def make(_work):
    c = Canvas(SIZE, SIZE, 8)
    iron, cover = sphere(c, X, Y, RADIUS, rim=.0)
    r = c.radius(X, Y)
    rim = np.exp(-((r - RADIUS + .8) / .7) ** 2)
    lit = np.clip(.62 - ((c.x - X) + (c.y - Y)) / RADIUS * .42, .12, 1)
    iron = iron + (rim * lit)[..., None] * linear('f2efe2') * 1.15
    spark = np.exp(-(c.radius(X - 2.7, Y - 2.9) / 1.35) ** 2)
    iron = iron + spark[..., None] * linear('fff4e0') * 1.1
    shade = np.exp(-(c.radius(X + 2.2, Y + 2.4) / 6.6) ** 4) * .42
    shade = shade * np.clip(c.edge() / 1.5, 0, 1)
    return to_image(reduce(over(layer(iron, cover), layer(linear('shadow'), shade)), c.scale))
