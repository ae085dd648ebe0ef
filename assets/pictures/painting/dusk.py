# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The light of the painting's evening: haze, horizon, the sun's disc and the tones of the whole.

`x` and `y` are the cells' positions in finished pixels, `scale` the cells a pixel.
To change: SUN is where the sun stands, `grade` makes the tones.
"""
import numpy as np
from scipy.ndimage import gaussian_filter

from common.light import linear_to_srgb
from common.noise import fbm, smoothstep
from common.palette import linear, rgb
from common.raster import reduce
from painting.brush import enlarge, lay
from painting.camera import VIEW
from painting.sky import SUN_AZIMUTH, SUN_HEIGHT

SUN = (438, 348)


def glitter(azimuth, lift):
    """The sun in the waves, by the direction in which a mirrored ray leaves."""
    away = np.hypot(azimuth - SUN_AZIMUTH, .8 * (lift - SUN_HEIGHT))
    light = 6. * np.exp(-(away / .05) ** 2) + 1. * np.exp(-(away / .14) ** 2)
    return light[..., None] * linear('ffcf86')


class Dusk:
    def __init__(self, w, h, scale):
        self.scale = scale
        self.y, self.x = (np.mgrid[0:h * scale, 0:w * scale] + .5) / scale

    def noise(self, seed, slope, **stretch):
        return fbm(*self.x.shape, seed, slope, size=2048, **stretch)

    def haze(self, c):
        """Warm air on the horizon, brightest below the sun."""
        thick = np.where(self.y < VIEW.horizon, 15, 26)
        amount = np.exp(-((self.y - VIEW.horizon) / thick) ** 2)
        near = np.exp(-(np.abs(self.x - SUN[0]) / 150) ** 2)
        c = lay(c, linear('c07a6c') * .8, .22 * amount)
        return lay(c, linear('ffb868'), .34 * amount * near)

    def path(self):
        """Light to add to the water: the sun's path, dense at the horizon, broken nearer by."""
        down = np.clip(self.y - VIEW.horizon, 0, None)
        wide = 15 + .42 * down
        streak = smoothstep(self.noise(97, 1.0, sx=7.) + np.exp(-down / 9), -.5, 1.5)
        light = streak * np.exp(-((self.x - SUN[0]) / wide) ** 2 - down / 75) * (down > 0)
        return (1.15 * light)[..., None] * linear('ffcf84')

    def ripples(self, water, top):
        """The water without the mosaic of far waves, and with finer ones nearby."""
        y = self.y[top:]
        far = np.exp(-np.clip(y - VIEW.horizon, 0, None) / 34)[..., None]
        n = self.scale
        water = water + (gaussian_filter(water, (.5 * n, 2.4 * n, 0)) - water) * (.45 + .45 * far)
        near = smoothstep(y, 440, 560)
        return water * (1 + .06 * near * self.noise(99, .9, sx=5.)[top:])[..., None]

    def warm(self, colour):
        """A ship's colours in this light: golden, and dimmer the farther from the sun."""
        away = np.hypot(self.x - SUN[0], .6 * (self.y - SUN[1]))
        fall = (.97 - .30 * smoothstep(away, 120, 420))[..., None]
        return colour * fall * linear('ffe8d0')

    def horizon(self, c):
        """The line between sky and sea, softened by some pixels and lost below the sun."""
        near = np.exp(-(np.abs(self.x - SUN[0]) / 110) ** 2)
        band = np.exp(-((self.y - VIEW.horizon) / (3.5 + 5 * near)) ** 2)
        return lay(c, gaussian_filter(c, (2.6 * self.scale, 3 * self.scale, 0)), band)

    def sun(self, o):
        """The sun's disc, which melts into the haze downwards, within halos, each wider and redder.

        Screen-blended after the tone curve, which would make the sky round the sun darker and less
        golden.
        """
        r = np.hypot(self.x - SUN[0], (self.y - SUN[1]) * 1.04)
        soft = 1.8 + 2.6 * np.clip((self.y - SUN[1]) / 18 + .4, 0, 1)
        disc = 1 / (1 + np.exp(np.clip((r - 17) / soft, -50, 50)))
        bars = self.noise(95, 1.5, sx=9.)
        # A bar of cloud in front of the sun, and haze over its lower half.
        bar = np.exp(-((self.y - SUN[1] - 4 - 1.5 * bars) / 3.2) ** 2)
        haze = smoothstep(self.y, SUN[1] - 6, SUN[1] + 16)
        veil = (1 - .55 * bar) * (1 - .70 * haze)
        for light, colour in ((disc * veil, 'fffbe6'), (.62 * np.exp(-r / 15), 'ffe49a'),
                              (.40 * np.exp(-r / 48), 'ffc468'),
                              (.20 * np.exp(-r / 150), 'ff9a50')):
            o = 1 - (1 - o) * (1 - light[..., None] * np.array(rgb(colour)))
        return o

    def grade(self, c):
        """Bloom, tone curve, vignette and a little more colour; returns sRGB."""
        # Bloom has no detail, so a small picture does.
        bright = reduce(np.clip(c - .85, 0, 2), self.scale)
        bloom = sum(gaussian_filter(bright, (spread, spread, 0)) * amount
                    for spread, amount in ((6, .22), (22, .20), (70, .26)))
        c = c + np.dstack([enlarge(bloom[..., i], self.scale) for i in range(3)])
        c = c * 1.12
        c = c / (1 + .16 * c) * 1.06
        # A shoulder instead of a limit keeps the colours round the sun apart.
        c = np.where(c > .62, .62 + .38 * (1 - np.exp(-(c - .62) / .38)), c)
        corner = np.hypot((self.x - 400) / 520, (self.y - 330) / 430)
        corner = np.clip(corner - .55, 0, 1) ** 1.4
        o = self.sun(linear_to_srgb(np.clip(c * (1 - .50 * corner)[..., None], 0, 1)))
        grey = o.mean(2, keepdims=True)
        o = np.clip(grey + (o - grey) * 1.10, 0, 1)
        return np.clip((o - .5) * 1.05 + .5, 0, 1)
