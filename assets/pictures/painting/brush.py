# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""How colour is laid on: coats over a picture, and brush strokes.

To change: the stroke's size is the radius given to `kuwahara`.
"""
import numpy as np
from scipy.ndimage import uniform_filter


def lay(c, colour, amount):
    return c + (colour - c) * np.asarray(amount)[..., None]


def kuwahara(o, r):
    """Every pixel takes the mean of the calmest of its four quarters: brush strokes."""
    def quarter(a, sy, sx):
        size = (r + 1, r + 1) + (0,) * (a.ndim - 2)
        return np.roll(uniform_filter(a, size), (sy * (r // 2 + 1), sx * (r // 2 + 1)), (0, 1))
    grey, best, calm = o.mean(2), None, None
    for sy in (-1, 1):
        for sx in (-1, 1):
            mean = np.dstack([quarter(o[..., i], sy, sx) for i in range(3)])
            var = quarter(grey * grey, sy, sx) - quarter(grey, sy, sx) ** 2
            if best is None:
                best, calm = mean, var
            take = var < calm
            best, calm = np.where(take[..., None], mean, best), np.where(take, var, calm)
    return best
