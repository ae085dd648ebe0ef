# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The sea of the painting: rays meet a field of waves and mirror sky, sun and ships.

To change: `field` shapes the waves; the colours of the water are in BODY.
"""
import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates

from common.noise import fbm, smoothstep
from common.palette import linear
from painting.camera import VIEW
from painting.sky import SUN_AZIMUTH

CELLS, TILE = 2048, 190.        # of the field of waves; metres after which it repeats
STEPS, REACH = 56, 2600.
HEIGHT = .27                    # standard deviation, metres
LEVELS = 6
BODY = ('201f36', '2f6a66')      # of deep water, and of crests that the light shines through


def field():
    """Heights of the waves in metres: steep crests across the wind, ripples everywhere."""
    k1 = np.fft.fftfreq(CELLS) * CELLS
    kx, kz = np.meshgrid(k1, k1)
    k = np.hypot(kx, kz)
    k[0, 0] = 1
    length = TILE / k
    along = np.abs(np.cos(np.arctan2(kz, kx) + np.radians(52)))
    amplitude = np.where(length > .45, length ** 2.6, 0) * np.exp(-(length / 15.) ** 4)
    amplitude = amplitude * (.22 + .78 * along ** 2)
    amplitude = amplitude + np.where((length > 20) & (length < 46), 60., 0) * along ** 4
    amplitude[0, 0] = 0
    r = np.random.RandomState(44)
    h = np.fft.ifft2(amplitude * (r.normal(size=k.shape) + 1j * r.normal(size=k.shape))).real
    h = h / h.std()
    # Drawing the water towards the crests sharpens them and flattens the troughs.
    gz, gx = np.gradient(gaussian_filter(h, 4, mode='wrap'))
    z, x = np.mgrid[0:CELLS, 0:CELLS].astype(float)
    h = map_coordinates(h, [z - gz * 75, x - gx * 75], order=1, mode='grid-wrap')
    h = gaussian_filter(h, .9, mode='wrap')
    return HEIGHT * (h - h.mean()) / h.std()


class Sea:
    """The water below the horizon of a w x h picture at `scale` cells a pixel."""

    def __init__(self, w, h, scale, view=VIEW, swell=1.):
        self.heights = swell * field()
        self.top = int(np.ceil((view.horizon + .4) * scale))
        y, x = (np.mgrid[self.top:h * scale, 0:w * scale] + .5) / scale
        self.dx, self.dy = (x - view.middle) / view.focus, (view.horizon - y) / view.focus
        self.eye, self.cell = view.eye, 1 / (view.focus * scale)
        self.march()
        self.slopes()

    def height(self, x, z):
        return self.sample(self.heights, x, z)

    @staticmethod
    def sample(a, x, z):
        cell = CELLS / TILE
        return map_coordinates(a, [z * cell, x * cell], order=1, mode='grid-wrap')

    def march(self):
        """Where the ray of every cell first meets the water."""
        limit = 4.2 * HEIGHT
        near = np.minimum((self.eye - limit) / -self.dy, REACH)
        far = np.minimum((self.eye + limit) / -self.dy, REACH * 1.3)
        self.z = far.copy()
        open_ = np.ones(self.dx.shape, bool)
        before = np.full(self.dx.shape, limit)
        step = (far - near) / STEPS
        for k in range(STEPS + 1):
            z = near + k * step
            above = self.eye + self.dy * z - self.height(self.dx * z, z)
            hit = open_ & (above < 0)
            share = before / np.maximum(before - above, 1e-6)
            self.z = np.where(hit, z - step * (1 - share), self.z)
            open_ &= ~hit
            before = above
        self.x = self.dx * self.z

    def slopes(self):
        """Normals, from copies of the field that are smoother where a pixel covers more."""
        cell = TILE / CELLS
        width = self.z * self.cell
        level = np.clip(np.log2(np.maximum(width / cell, 1)), 0, LEVELS - 1.001)
        self.sx, self.sz = np.zeros(self.z.shape), np.zeros(self.z.shape)
        self.h = np.zeros(self.z.shape)
        for k in range(LEVELS):
            share = np.clip(1 - np.abs(level - k), 0, 1)
            at = share > 0
            if not at.any():
                continue
            h = gaussian_filter(self.heights, .5 * 2 ** k, mode='wrap')
            gz, gx = np.gradient(h, cell)
            x, z, share = self.x[at], self.z[at], share[at]
            self.sx[at] += share * self.sample(gx, x, z)
            self.sz[at] += share * self.sample(gz, x, z)
            self.h[at] += share * self.sample(h, x, z)

    def mirror(self):
        """Direction of the mirrored ray and the share of light that the surface throws back."""
        size = np.sqrt(1 + self.dx ** 2 + self.dy ** 2)
        v = np.stack([self.dx, self.dy, np.ones_like(self.dx)], -1) / size[..., None]
        n = np.stack([-self.sx, np.ones_like(self.sx), -self.sz], -1)
        n = n / np.linalg.norm(n, axis=2, keepdims=True)
        facing = np.clip(-(v * n).sum(2), .0, 1)
        r = v + 2 * facing[..., None] * n
        r[..., 1] = np.abs(r[..., 1]) + .004
        return r, .02 + .98 * (1 - facing) ** 5

    def water(self, sky, things, gleam, body=BODY):
        """Colour of the sea, which reflects a sky and the things that stand on the water.

        `sky` and `gleam` are functions of a direction, azimuth and height; `things` draws what
        the reflected rays hit over the sky.
        """
        r, share = self.mirror()
        azimuth = np.arctan2(r[..., 0], r[..., 2])
        lift = np.arctan2(r[..., 1], np.hypot(r[..., 0], r[..., 2]))
        seen = things(self, r, sky(azimuth, lift) + gleam(azimuth, lift))
        sunward = np.exp(-((azimuth - SUN_AZIMUTH) / .5) ** 2)
        thin = .16 * np.clip(self.h / HEIGHT + .4, 0, 3) ** 1.5 * (.4 + .6 * sunward)
        deep, shining = (linear(c) for c in body)
        return (deep + shining * thin[..., None]) * (1 - share)[..., None] + seen * share[..., None]

    def reflect(self, rays, seen, layer, distance, view, scale):
        """Draw an upright layer at a distance over what the rays see."""
        away = np.maximum(distance - self.z, 0)
        run = away / np.maximum(rays[..., 2], .05)
        x, y = view.at(self.x + run * rays[..., 0], self.h + run * rays[..., 1], distance)
        row = np.clip(y * scale, 0, layer.shape[0] - 1).astype(int)
        column = np.clip(x * scale, 0, layer.shape[1] - 1).astype(int)
        thing = layer[row, column] * (away > 0)[..., None]
        return thing[..., :3] * .9 + seen * (1 - thing[..., 3:])

    def whitecaps(self, o):
        """Foam on the steepest crests, lit by the low sun from behind."""
        crest = self.h / HEIGHT
        torn = self.sample(FOAM, self.x * 3.1, self.z * 3.1)
        steep = np.hypot(self.sx, self.sz)
        cover = smoothstep(crest + 1.0 * (steep - .2) + .45 * torn, 3.1, 4.2)
        cover = cover * np.clip(1.2 - self.z / 420, .0, 1)
        sunward = np.exp(-((self.dx - np.tan(SUN_AZIMUTH)) / .45) ** 2)[..., None]
        lit = linear('8d7a96') * .8 * (1 - sunward) + linear('ffd9a8') * .8 * sunward
        return o + (lit - o) * (.75 * cover)[..., None]


FOAM = fbm(CELLS, CELLS, 77, 1.3, size=CELLS)
