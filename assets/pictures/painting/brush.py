# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""How colour is laid on: coats over a picture, enlarged coarse layers, and brush strokes.

To change: the stroke's size is the radius given to `kuwahara`.
"""
import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates, uniform_filter


def lay(c, colour, amount):
    return c + (colour - c) * np.asarray(amount)[..., None]


def enlarge(a, n):
    """Linear interpolation to n cells a pixel."""
    h, w = a.shape
    y = np.clip((np.arange(h * n) + .5) / n - .5, 0, h - 1)
    x = np.clip((np.arange(w * n) + .5) / n - .5, 0, w - 1)
    i, j = np.minimum(y.astype(int), h - 2), np.minimum(x.astype(int), w - 2)
    fy, fx = (y - i)[:, None], (x - j)[None]
    top = a[i][:, j] * (1 - fx) + a[i][:, j + 1] * fx
    low = a[i + 1][:, j] * (1 - fx) + a[i + 1][:, j + 1] * fx
    return top * (1 - fy) + low * fy


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


def strokes(o, reach, soft):
    """Smear the colours along their own lines, never across: edges come out smooth, not jagged."""
    grey = gaussian_filter(o.mean(2), 1.)
    gy, gx = np.gradient(grey)
    xx, yy, xy = (gaussian_filter(a, soft) for a in (gx * gx, gy * gy, gx * gy))
    turn = .5 * np.arctan2(2 * xy, xx - yy) + np.pi / 2
    certain = np.hypot(xx - yy, 2 * xy) / (xx + yy + 1e-5)
    dx, dy = np.cos(turn) * certain, np.sin(turn) * certain
    y, x = np.mgrid[0:o.shape[0], 0:o.shape[1]].astype(float)
    total, weight = o.copy(), 1.
    for step in range(1, reach + 1):
        share = np.exp(-(step / (.6 * reach)) ** 2)
        for way in (-step, step):
            at = [y + way * dy, x + way * dx]
            total += share * np.dstack([map_coordinates(o[..., i], at, order=1, mode='nearest')
                                        for i in range(3)])
            weight += share
    return total / weight
