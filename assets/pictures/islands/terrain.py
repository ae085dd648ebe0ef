# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Height maps and ground colours of the barriers.

A barrier blocks by its whole rectangle, so land and surf must fill it to rounded corners:
coasts are laid out from the rectangle's own outline and only then disturbed.

To change: `bare_rock` colours both reef and rock.
"""
import math

import numpy as np
from scipy.ndimage import distance_transform_edt, gaussian_filter
from scipy.spatial import cKDTree

from common.noise import band, smoothstep
from common.palette import rgb

CELLS = 4           # cells a pixel
SEA_FLOOR = -4.     # lowest height kept, in pixels


class Ground:
    """The cells of a w x h barrier: positions from its middle, heights, distances to shore."""

    def __init__(self, w, h, top, seed):
        self.w, self.h, self.top = w, h, top
        self.shape = (h * CELLS, w * CELLS)
        self.random = np.random.RandomState(seed)
        y, x = np.mgrid[0:self.shape[0], 0:self.shape[1]]
        self.x, self.y = (x + .5) / CELLS - w / 2, (y + .5) / CELLS - h / 2
        self.height = np.full(self.shape, -3.)
        self.colour, self.tint = None, np.zeros(self.shape)
        self.sandy = np.zeros(self.shape, bool)

    def noise(self, slope, longest, shortest, seed):
        return band(self.shape, CELLS, slope, longest, shortest, seed)

    def outline(self, part_x, part_y, power):
        """1 on a superellipse filling these parts of the rectangle, less inside."""
        e = np.abs(self.x / (self.w * part_x)) ** power
        return (e + np.abs(self.y / (self.h * part_y)) ** power) ** (1 / power)

    def hump(self, x, y, rx, ry):
        return np.exp(-((self.x - x) / rx) ** 2 - ((self.y - y) / ry) ** 2)

    def settle(self):
        """Fix the heights and measure what depends on them."""
        self.height = gaussian_filter(self.height, .9)
        self.tint = gaussian_filter(self.tint, .8)
        gy, gx = np.gradient(gaussian_filter(self.height, 2.))
        self.slope = np.hypot(gx, gy) * CELLS
        self.inland = distance_transform_edt(self.height > 0) / CELLS
        self.offshore = distance_transform_edt(self.height <= 0) / CELLS

    def at(self, x, y):
        """(height, distance from shore, slope) at a position in pixels."""
        i = int(np.clip((y + self.h / 2) * CELLS, 0, self.shape[0] - 1))
        j = int(np.clip((x + self.w / 2) * CELLS, 0, self.shape[1] - 1))
        return self.height[i, j], self.inland[i, j], self.slope[i, j]

    def facets(self, size, tilt, seed):
        """Broken rock: cells of about this size, each a plane of its own tilt and level."""
        r = np.random.RandomState(seed)
        nx, ny = int(self.w / size) + 3, int(self.h / size) + 3
        rows, columns = np.mgrid[0:ny, 0:nx]
        spots = np.dstack([columns - 1, rows - 1]).reshape(-1, 2) + r.rand(nx * ny, 2)
        spots = spots * size - (self.w / 2, self.h / 2)
        places = np.dstack([self.x, self.y]).reshape(-1, 2)
        near, cell = (a.reshape(self.shape + (2,)) for a in cKDTree(spots).query(places, 2))
        slopes, levels = r.normal(size=(len(spots), 2)) * tilt, r.normal(size=len(spots))
        own = cell[..., 0]
        away = np.dstack([self.x, self.y]) - spots[own]
        crack = np.exp(-((near[..., 1] - near[..., 0]) / .5) ** 2)
        return (slopes[own] * away).sum(2) + levels[own] * size * .16, crack

    def pile(self, stones, faces, sunk):
        """Heights of stones (x, y, radius, height) lying on and beside each other; each has a
        tint of its own."""
        h = np.full(self.shape, -9.)
        for x, y, radius, top in stones:
            stone = self.boulder(x, y, radius, top, faces) - sunk
            self.tint = np.where(stone > h, self.random.normal(), self.tint)
            h = np.maximum(h, stone)
        return h

    def boulder(self, cx, cy, radius, top, faces=7, squeeze=1.):
        """Heights of one boulder: the lowest of tilted planes round it and over it."""
        r = self.random
        h = np.full(self.shape, 1e9)
        dx, dy = self.x - cx, self.y - cy
        turn = r.rand() * 6.28
        for k in range(faces):
            a = turn + k * 2 * math.pi / faces + r.normal() * .22
            reach, steep = radius * (.8 + .4 * r.rand()), .7 + 1.5 * r.rand()
            h = np.minimum(h, (1 - (dx * math.cos(a) * squeeze + dy * math.sin(a)) / reach)
                           * steep)
        for _ in range(3):
            a, rise = r.rand() * 6.28, .62 + .3 * r.rand()
            tilt = (dx * math.cos(a) + dy * math.sin(a)) / radius * (.25 + .3 * r.rand())
            h = np.minimum(h, rise + tilt)
        return h * top


def srgb(name):
    return np.array(rgb(name))


def lerp(a, b, t):
    return a + (b - a) * np.asarray(t)[..., None]


def bare_rock(g):
    """Colours of naked rock: weed at the waterline, wet and dark above it, dry and pale on top;
    worn pale along its edges, dark in its clefts, lichen on some tops.
    """
    broad, grain = g.noise(1.3, 40, 3, 51), g.noise(.8, 6, 1, 52)
    spots = grain[..., None]
    dry = lerp(srgb('rock'), srgb('rock_lit'), .35 + .16 * broad)
    dry = dry + g.tint[..., None] * np.array([.03, .022, .01]) + spots * .02
    lichen = smoothstep(g.noise(1.4, 24, 3, 55) - .4 * g.slope, .5, 1.3)
    dry = lerp(dry, srgb('moss') * .95, .38 * lichen * smoothstep(g.height, 4, 7))
    wet = srgb('rock_dark') + .4 * g.tint[..., None] * .05 + spots * .02
    c = lerp(wet, dry, smoothstep(g.height + .7 * broad + .25 * grain, 1.2, 4.2))
    weed = .8 * (1 - smoothstep(g.height + .5 * broad, .2, 1.4))
    c = lerp(c, srgb('weed') + .02 * spots, weed)
    # Heights above the mean of what lies around: worn edges and clefts.
    out = (g.height - gaussian_filter(g.height, 1.6 * CELLS)) / 2.2
    return c * (1 + .42 * np.clip(out, -1.15, .8))[..., None]
