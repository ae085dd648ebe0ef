# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A compass arrow: gold half towards the mark, blued steel tail, hub with a garnet.

To change: the outline in `needle`, the metals in `make`.
"""
import numpy as np

from common.canvas import Canvas
from common.light import LAMP, halfway, normals
from common.palette import BRASS, GOLD, STEEL, linear
from common.raster import layer, over, reduce, to_image
from common.relief import metal

SIZE = 64
MIDDLE = SIZE / 2


def needle(c):
    """Outline with a barbed head and a split tail, pointing up; ridge along the middle."""
    m = MIDDLE
    right = [(m, 3), (m + 11, 27), (m + 4.2, 23.5), (m + 3.4, 44), (m + 9, 60), (m, 53)]
    left = [(2 * m - x, y) for x, y in right[::-1]]
    mask = c.polygon(right + left)
    ridge = np.clip(1 - np.abs(c.x - m) / 11, 0, 1) * 5 * c.scale
    return mask, c.blur(np.minimum(c.bevel(mask, 5, .2), ridge), .15)


def make(_work):
    c = Canvas(SIZE, SIZE, 8)
    mask, height = needle(c)
    gold, steel = metal(height, 3, GOLD), metal(height, 4, STEEL)
    colour = np.where((c.y < MIDDLE + 2)[..., None], gold, steel * .8)
    band = (np.abs(c.y - MIDDLE - 2) < 1)[..., None]
    colour = np.where(band, metal(height, 5, BRASS), colour)
    r = c.radius(MIDDLE, MIDDLE + 2)
    collar = metal(np.sqrt(np.clip(36 - r * r, 0, None)) * c.scale, 5, BRASS)
    stack = over(layer(collar, c.soft(6 - r)), layer(colour, mask))
    n = normals(np.sqrt(np.clip(3.6 ** 2 - r * r, 0, None)) * c.scale)
    gem = linear('8c1a18') * (.5 + np.clip(n @ LAMP, 0, 1))[..., None]
    gem = gem + (np.clip(n @ halfway(LAMP), 0, 1) ** 40)[..., None]
    stack = over(layer(gem, c.soft(3.6 - r)), stack)
    dark = c.shadow(stack[..., 3], 1.2, 1.6, 1.2, .55) * np.clip(c.edge() / 2, 0, 1)
    return to_image(reduce(over(stack, layer(linear('night'), dark)), c.scale))
