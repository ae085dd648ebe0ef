# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Supersampled drawing surface for the panels: lengths are picture pixels throughout.

SCALE is the number of subpixels (called cells) per pixel along each axis; a larger one takes more
time and makes smoother edges in every panel.
"""
from functools import lru_cache

import numpy as np
from PIL import Image, ImageDraw, ImageFont
from scipy.ndimage import distance_transform_edt, gaussian_filter, shift

from common.paths import TYPEFACE

SCALE = 4


class Canvas:
    """A w x h picture held at `scale` cells a pixel; x and y are the cells' positions."""

    def __init__(self, w, h, scale=SCALE):
        self.w, self.h, self.scale = w, h, scale
        self.shape = (h * scale, w * scale)
        self.y, self.x = (np.mgrid[0:h * scale, 0:w * scale] + .5) / scale

    def fill(self, colour):
        return np.broadcast_to(colour, self.shape + (3,)).copy()

    def radius(self, x, y):
        return np.hypot(self.x - x, self.y - y)

    def edge(self):
        """Distance to the nearest border of the picture."""
        return np.minimum.reduce([self.x, self.y, self.w - self.x, self.h - self.y])

    def rounded(self, x0, y0, x1, y1, r):
        """Distance inside a rounded rectangle, negative outside."""
        qx = np.abs(self.x - (x0 + x1) / 2) - ((x1 - x0) / 2 - r)
        qy = np.abs(self.y - (y0 + y1) / 2) - ((y1 - y0) / 2 - r)
        outside = np.hypot(np.clip(qx, 0, None), np.clip(qy, 0, None))
        return -(outside + np.minimum(np.maximum(qx, qy), 0) - r)

    def soft(self, distance):
        """Coverage of the region of positive distance, antialiased over one cell."""
        return np.clip(distance * self.scale + .5, 0, 1)

    def blur(self, a, sigma):
        return gaussian_filter(a, sigma * self.scale)

    def moved(self, a, dx, dy):
        return shift(a, (dy * self.scale, dx * self.scale), order=1)

    def shadow(self, mask, dx, dy, sigma, strength):
        return self.blur(self.moved(mask, dx, dy), sigma) * strength

    def inside(self, mask):
        return distance_transform_edt(mask > .5) / self.scale

    def outside(self, mask):
        return distance_transform_edt(mask <= .5) / self.scale

    def fatten(self, mask, by):
        """The mask grown by some pixels: relief and small sizes eat into thin strokes."""
        return np.clip((by + .4 - self.outside(mask)) * self.scale + .5, 0, 1)

    def bevel(self, mask, width, soften=.3):
        """Height of a rounded bevel inside a mask, in cells."""
        t = np.clip(self.inside(mask) / width, 0, 1)
        height = np.sqrt(1 - (1 - t) ** 2) * width * self.scale
        return gaussian_filter(height, soften * self.scale)

    def text(self, words, capital, x, y, anchor='ms', spacing=0.):
        """Mask of a line in the game's typeface with its base line at y.

        The size is the height of a capital, so that layouts outlive changes of the typeface;
        `spacing` is added between letters.
        """
        image = Image.new('L', self.shape[::-1], 0)
        draw = ImageDraw.Draw(image)
        font = typeface(capital * self.scale)
        pitch = spacing * self.scale
        pen = x * self.scale
        if anchor[0] == 'm':
            pen -= (font.getlength(words) + pitch * (len(words) - 1)) / 2
        for i, letter in enumerate(words):
            # The width up to and with this letter, less the letter's own: this keeps the kerning.
            start = font.getlength(words[:i + 1]) - font.getlength(letter)
            draw.text((pen + start + i * pitch, y * self.scale), letter, 255, font,
                      'l' + anchor[1])
        return np.asarray(image) / 255.

    def polygon(self, *outlines):
        """Mask of filled outlines, each a list of points."""
        image = Image.new('L', self.shape[::-1], 0)
        draw = ImageDraw.Draw(image)
        for points in outlines:
            draw.polygon([(px * self.scale, py * self.scale) for px, py in points], fill=255)
        return np.asarray(image) / 255.

    def stroke(self, points, width):
        """Mask of a polyline with round ends and joints."""
        image = Image.new('L', self.shape[::-1], 0)
        draw = ImageDraw.Draw(image)
        s, r = self.scale, width * self.scale / 2
        for (ax, ay), (bx, by) in zip(points, points[1:]):
            draw.line([ax * s, ay * s, bx * s, by * s], fill=255, width=max(1, round(2 * r)))
        for px, py in points:
            draw.ellipse([px * s - r, py * s - r, px * s + r, py * s + r], fill=255)
        return np.asarray(image) / 255.


@lru_cache(maxsize=None)
def typeface(capital):
    """The face at the size that gives capitals this height."""
    trial = ImageFont.truetype(str(TYPEFACE), 1000)
    height = -trial.getbbox('H', anchor='ls')[1]
    return ImageFont.truetype(str(TYPEFACE), round(1000 * capital / height))


def blend(base, top, mask):
    """Lay opaque colours over others through a mask of booleans or of coverages."""
    m = np.asarray(mask, float)[..., None]
    return base * (1 - m) + top * m
