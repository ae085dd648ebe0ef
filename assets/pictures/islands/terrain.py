# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Height maps and ground colours of the barriers.

A barrier blocks by its whole rectangle, so land and surf must fill it except for
rounded corners. Coasts start from the rectangle's outline and are then made irregular.

To change: `bare_rock` colours both reef and rock.
"""
import math

import numpy as np
from scipy.interpolate import LinearNDInterpolator
from scipy.ndimage import distance_transform_edt, gaussian_filter

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

    def ridge(self, spine, lit, shaded):
        """Heights of a ridge along `spine`, points (x, y, height): its flanks meet the water about
        `lit` pixels from the crest on the side of the sun and `shaded` on the other.
        """
        best = np.full(self.shape, -9.)
        for (ax, ay, at), (bx, by, bt) in zip(spine, spine[1:]):
            dx, dy = bx - ax, by - ay
            t = ((self.x - ax) * dx + (self.y - ay) * dy) / (dx * dx + dy * dy)
            t = np.clip(t, 0, 1)
            ox, oy = self.x - ax - t * dx, self.y - ay - t * dy
            away = np.hypot(ox, oy)
            sunny = smoothstep(-(ox + oy) / np.maximum(away, .1), -.6, .6)
            top = at + (bt - at) * t
            width = (shaded + (lit - shaded) * sunny) * (.55 + .45 * top / self.top)
            best = np.maximum(best, top * (1 - (away / width) ** .9))
        return best

    def faceted(self, height, size, rough, seed):
        """The same heights as broken rock: plane faces about `size` across, whose corners are
        moved up or down by about `rough`.
        """
        r = np.random.RandomState(seed)
        nx, ny = int(self.w / size) + 4, int(self.h / size) + 4
        rows, columns = np.mgrid[0:ny, 0:nx]
        spots = np.dstack([columns - 2, rows - 2]).reshape(-1, 2) + .9 * r.rand(nx * ny, 2)
        spots = spots * size - (self.w / 2, self.h / 2)
        i = np.clip(((spots[:, 1] + self.h / 2) * CELLS).astype(int), 0, self.shape[0] - 1)
        j = np.clip(((spots[:, 0] + self.w / 2) * CELLS).astype(int), 0, self.shape[1] - 1)
        levels = height[i, j] + r.normal(size=len(spots)) * rough
        return LinearNDInterpolator(spots, levels)(self.x, self.y)

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


def bare_rock(g, exposed):
    """Colours of naked rock: weed at the waterline, wet and dark above it where it is `exposed` to
    the swell, dry and pale on top; layers of its own that dip across it, worn pale edges, and
    lichen on some tops.
    """
    broad, grain = g.noise(1.3, 40, 3, 51), g.noise(.8, 6, 1, 52)
    spots = grain[..., None]
    bedding = np.sin(1.1 * g.height + .38 * g.x - .5 * g.y + 1.2 * broad)
    dry = lerp(srgb('rock'), srgb('rock_lit'), .74 + .14 * broad + .09 * bedding)
    dry = dry + g.tint[..., None] * np.array([.022, .017, .01]) + spots * .013
    lichen = smoothstep(g.noise(1.4, 24, 3, 55) - .3 * g.slope, .4, 1.3)
    dry = lerp(dry, srgb('moss') * .95, .42 * lichen * smoothstep(g.height, 4, 7))
    wet = srgb('rock_wet') * .95 + spots * .02
    tide = g.height + 1.1 * broad + .4 * grain + 1.2 + .9 * (1 - exposed)
    c = lerp(wet, dry, smoothstep(tide, .5, 2.4))
    c = lerp(c, srgb('weed') + .02 * spots, .4 * (1 - smoothstep(tide, .1, 1.1)))
    # Heights above the mean of what lies around: worn edges and clefts.
    out = (g.height - gaussian_filter(g.height, 1.4 * CELLS)) / 2.2
    # The foot of a stone stays as light as its flank, or a dark line would run round it.
    out = out * smoothstep(g.inland, .5, 3)
    return c * (1 + .34 * np.clip(out, -.8, .8))[..., None]
