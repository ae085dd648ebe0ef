# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The cannonball: dark iron, to be seen on sea, sand and sails.

A spark on the sunny side and a pale rim in the shade; a rim all round would make it a ball bearing.

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
    shaded = ((c.x - X) + (c.y - Y)) / (np.sqrt(2) * RADIUS)    # 1 furthest from the sun
    iron = iron + (rim * np.clip(shaded, 0, 1) ** 1.5)[..., None] * linear('e9e4d2') * .6
    spark = np.exp(-(c.radius(X - 2.7, Y - 2.9) / 1.35) ** 2)
    iron = iron + spark[..., None] * linear('fff4e0') * 1.1
    shade = np.exp(-(c.radius(X + 2.2, Y + 2.4) / 6.6) ** 4) * .42
    shade = shade * np.clip(c.edge() / 1.5, 0, 1)
    return to_image(reduce(over(layer(iron, cover), layer(linear('shadow'), shade)), c.scale))
