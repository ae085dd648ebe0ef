# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The reload dial: 41 frames, down the columns five at a time, keyed with pure magenta.

The loading sector is a dull ember; the loaded cannon shows another shape (a star behind the
ball), another colour and a much brighter face, so that no eye needs to tell hues apart.

To change: the sectors in `loading_face`, the star in `loaded_face`, the radii below.
"""
import numpy as np
from PIL import Image

from common.canvas import Canvas, blend
from common.light import linear_to_srgb
from common.noise import fbm
from common.palette import BRASS, linear
from common.raster import KEY, reduce
from common.relief import metal, sphere

FRAME, COLUMNS, ROWS = 69, 9, 5
LOADED = 40
MIDDLE = FRAME / 2
RIM, FACE, BALL = 34., 28.2, 9.6
INNER, OUTER = 11., 27.


def bezel(c, r):
    profile = np.clip(np.sin(np.clip((RIM - r) / 6, 0, 1) * np.pi), 0, 1) ** .8 * 4.5 * c.scale
    brass = metal(c.blur(profile, .25), 4, BRASS)
    # A dark hard outer edge keeps the key's pink from ever showing as a fringe.
    return brass * (1 - .8 * np.clip(r - RIM + 1.3, 0, 1))[..., None]


def plain_face(c, r):
    face = c.fill(linear('1b120d')) * (1.15 - .35 * np.clip(r / 28, 0, 1))[..., None]
    return face * (1 + .10 * fbm(*c.shape, 6, 1.2))[..., None]


def ticks(r, angle, colour, face):
    fine = np.abs((angle + 4.5) % 9 - 4.5) * np.pi / 180 * r < .35
    coarse = np.abs((angle + 22.5) % 45 - 22.5) * np.pi / 180 * r < .6
    marks = (r < 27.4) & ((fine & (r > 24.6)) | (coarse & (r > 22.6)))
    return blend(face, linear(colour), marks)


def loading_face(c, r, angle, part):
    face = plain_face(c, r)
    sector = angle < 360 * part
    ember = linear('96281a') * (1 - part) + linear('c07a22') * part
    glow = (.55 + .45 * np.exp(-((r - 19) / 6.5) ** 2))[..., None] * ember
    hot = np.clip(1 - np.abs(angle - 360 * part) / 26, 0, 1) if part else np.zeros_like(r)
    glow = glow + hot[..., None] * linear('ffe9a8') * .5
    edge = np.clip(np.minimum(r - INNER, OUTER - r) / .9, 0, 1)
    return ticks(r, angle, 'f4d584', blend(face, glow, edge * sector))


def loaded_face(c, r, angle):
    green = linear('52c47c') * (1.25 - .5 * np.clip(r / FACE, 0, 1))[..., None]
    face = ticks(r, angle, 'f4fff0', green)
    step = 45.
    a = np.abs((angle + step / 2) % step - step / 2) * np.pi / 180 * r
    long = np.abs((angle + 45) % 90 - 45) < 22.5
    tip = np.where(long, 26.5, 21.)
    star = c.soft((tip - r) * .27 - a)
    dark = c.blur(star, .7)
    face = face * (1 - .55 * dark)[..., None]
    white = linear('fffbe0') * (1.0 - .12 * np.clip(r / FACE, 0, 1))[..., None]
    return blend(face, white, star)


def glazed(c, dial):
    """A weak gleam over all of the dial alike: it must never be taken for a part that is filled."""
    gleam = np.exp(-((c.x - 25) / 17) ** 2 - ((c.y - 19) / 12) ** 2)[..., None]
    return dial * (1 + .22 * gleam) + .006 * gleam


def frame(c, k):
    r = c.radius(MIDDLE, MIDDLE)
    angle = np.degrees(np.arctan2(c.x - MIDDLE, MIDDLE - c.y)) % 360
    face = loaded_face(c, r, angle) if k == LOADED else loading_face(c, r, angle, k / LOADED)
    ball, cover = sphere(c, MIDDLE, MIDDLE, BALL, rim=.25)
    face = face * (1 - .65 * np.clip((11.6 - r) / 1.2, 0, 1))[..., None]
    face = blend(face, ball, cover)
    face = face * (.55 + .45 * np.clip((FACE - r) / (5 if k < LOADED else 2.5), 0, 1))[..., None]
    return glazed(c, blend(bezel(c, r), face, c.soft(FACE - r)))


def keyed(c, colour):
    """Reduce without mixing the key into the edge: a pixel is either dial or key."""
    cover = (c.radius(MIDDLE, MIDDLE) < RIM).astype(float)
    share = reduce(cover, c.scale)[..., None]
    mean = reduce(colour * cover[..., None], c.scale) / np.maximum(share, 1e-6)
    pixels = (linear_to_srgb(np.clip(mean, 0, 1)) * 255 + .5).astype('uint8')
    pixels[share[..., 0] <= .5] = KEY
    return Image.fromarray(pixels)


def make(_work):
    c = Canvas(FRAME, FRAME)
    sheet = Image.new('RGB', (FRAME * COLUMNS, FRAME * ROWS), KEY)
    for k in range(LOADED + 1):
        sheet.paste(keyed(c, frame(c, k)), (k // ROWS * FRAME, k % ROWS * FRAME))
    return sheet
