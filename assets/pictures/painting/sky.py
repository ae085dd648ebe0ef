# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The dusk sky, painted over azimuth -45..45 and elevation 0..45 degrees.

To change: GRADIENT, and the layers of cloud listed in `paint`.
"""
import numpy as np
from scipy.ndimage import map_coordinates

from common.noise import fbm, smoothstep
from common.palette import linear

W, H = 2400, 1200
NOISE = 2048
SUN_AZIMUTH, SUN_HEIGHT = np.radians(3.0), np.radians(4.2)
# Elevation in degrees and colour.
GRADIENT = ((0, 'dusk0'), (3, 'ffb45e'), (7, 'dusk1'), (12, 'dusk2'), (19, 'dusk3'),
            (28, 'dusk4'), (38, '23264f'), (50, 'dusk5'))


class Sky:
    """Directions of the picture's pixels and the colour so far."""

    def __init__(self):
        x = np.broadcast_to(np.linspace(-1, 1, W), (H, W))
        y = np.broadcast_to(np.linspace(1, 0, H)[:, None], (H, W))
        self.azimuth = np.arctan(x)
        self.height = np.arctan(y * np.cos(self.azimuth))
        self.degrees = np.degrees(self.height)
        across = (self.azimuth - SUN_AZIMUTH) * np.cos(self.height)
        self.from_sun = np.degrees(np.hypot(across, self.height - SUN_HEIGHT))
        self.aside = np.degrees(np.abs(self.azimuth - SUN_AZIMUTH))
        self.colour = np.zeros((H, W, 3))

    def cover(self, colour, amount):
        self.colour += (colour - self.colour) * amount[..., None]

    def clear(self):
        """Gradient, cooler away from the sun, and the sun's glow; the disc is painted last."""
        at = [e for e, _ in GRADIENT]
        stops = np.array([linear(c) for _, c in GRADIENT])
        for i in range(3):
            self.colour[..., i] = np.interp(self.degrees, at, stops[:, i])
        cool = np.clip(self.aside / 55, 0, 1) * np.exp(-self.degrees / 14) * .55
        self.cover(linear('5b4a78'), cool)
        d = self.from_sun
        glow = .62 * np.exp(-(d / 8.) ** 1.2) + .42 * np.exp(-d / 18.)
        self.colour += linear('ffcf80') * glow[..., None]
        self.colour += linear('ffe2a0') * (.8 * np.exp(-d / 2.4))[..., None]

    def clouds(self, seed, scale, cover, soft, light, dark, edge, amount, slope):
        """A layer at one height in perspective, lit from the sun's side."""
        n = fbm(NOISE, NOISE, seed, slope, size=NOISE)
        far = 1 / np.tan(np.maximum(self.height, np.radians(.7)) + np.radians(2.2))
        u, v = np.tan(self.azimuth) * far * scale, far * scale

        def sample(dv, du):
            return map_coordinates(n, [(v + dv) % NOISE, (u + du) % NOISE], order=1, mode='wrap')
        density = sample(0, 0)
        towards = np.sign(SUN_AZIMUTH - self.azimuth) * scale * .02
        lit = np.clip(.5 - (sample(scale * .05 * far, towards) - density) * 1.1, 0, 1)
        lit = lit * np.exp(-self.aside / 60)
        a = smoothstep(density, cover, cover + soft) * np.clip((self.degrees - 1) / 4, 0, 1)
        c = linear(dark) + (linear(light) - linear(dark)) * lit[..., None]
        rim = np.exp(-self.from_sun / 13) * (.35 + 3.6 * (1 - a) * a * amount)
        c = c + linear(edge) * rim[..., None]
        warm = .35 * np.exp(-self.degrees / 16)[..., None]
        self.cover(c * (1 - warm) + linear('e8835a') * warm, a * amount)

    def streaks(self):
        """Thin bars of cloud low over the horizon."""
        n = fbm(NOISE, NOISE, 17, 1.6, size=NOISE)
        q = map_coordinates(n, [self.degrees * 22 % NOISE, np.degrees(self.azimuth) * 6 % NOISE],
                            order=1, mode='wrap')
        a = np.clip((q - .4) / 1.2, 0, 1) * np.exp(-((self.degrees - 5) / 3.4) ** 2) * .75
        c = linear('7a4668') + (linear('ff9a55') - linear('7a4668')) * np.exp(
            -self.aside / 14)[..., None]
        self.cover(c, a * np.clip((self.from_sun - .4) / 2.2, .22, 1))


def paint():
    sky = Sky()
    sky.clear()
    sky.clouds(3, 150, .05, 1.1, 'd9765f', '352a58', 'ffc070', .85, 1.70)
    sky.clouds(29, 56, .35, .9, 'f4a06a', '251f45', 'ffd490', .92, 1.60)
    sky.streaks()
    return sky.colour / (1 + .12 * sky.colour)


def lookup(colours):
    """The colour in a direction, from what `paint` made; away from the picture it darkens."""
    def look(azimuth, height):
        across = np.tan(np.clip(azimuth, -.785, .785))
        up = np.tan(np.clip(height, 0, .76)) / np.cos(np.clip(azimuth, -.785, .785))
        at = [(1 - np.clip(up, 0, 1)) * (H - 1), (across + 1) / 2 * (W - 1)]
        seen = np.stack([map_coordinates(colours[..., i], at, order=1, mode='nearest')
                         for i in range(3)], -1)
        return seen * (1 - .55 * np.clip((height - .5) / .8, 0, 1))[..., None]
    return look
