# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Reducing, stacking and saving pictures.

Layers are (h, w, 4) arrays of linear, premultiplied colour: the only form in which averaging
and covering leave no coloured fringe.
"""
import numpy as np
from PIL import Image

from common.light import linear_to_srgb, srgb_to_linear

KEY = (255, 0, 255)
# Alpha values that look fully transparent and fully opaque.
NEARLY_CLEAR, NEARLY_SOLID = 4, 251


def layer(colour, alpha):
    """Premultiplied layer of a colour (three numbers or (h, w, 3)) and a coverage map."""
    a = np.asarray(alpha, float)[..., None]
    return np.concatenate([np.broadcast_to(colour, a.shape[:2] + (3,)) * a, a], 2)


def over(top, bottom):
    return top + bottom * (1 - top[..., 3:])


def reduce(a, n):
    """Average n x n blocks."""
    h, w = a.shape[:2]
    out = a.reshape(h // n, n, w // n, n, -1).mean((1, 3))
    return out if a.ndim == 3 else out[..., 0]


def read_layer(path, n=1):
    """A PNG with straight alpha as a layer, reduced n times."""
    a = np.asarray(Image.open(path).convert('RGBA')).astype(float) / 255
    return reduce(np.concatenate([srgb_to_linear(a[..., :3]) * a[..., 3:], a[..., 3:]], 2), n)


def read_light(path):
    """Mean linear brightness of a picture, (h, w)."""
    return srgb_to_linear(np.asarray(Image.open(path).convert('RGB')) / 255.).mean(2)


def to_image(lay):
    """8-bit RGBA picture with straight alpha; what is fully clear is black, so it packs well."""
    alpha = np.clip(lay[..., 3:], 0, 1)
    colour = np.where(alpha > 1e-6, lay[..., :3] / np.maximum(alpha, 1e-6), 0)
    out = np.concatenate([linear_to_srgb(np.clip(colour, 0, 1)), alpha], 2)
    out = (np.clip(out, 0, 1) * 255 + .5).astype('uint8')
    # The game draws clear and solid pixels in runs, the others one by one.
    out[out[..., 3] >= NEARLY_SOLID, 3] = 255
    out[out[..., 3] <= NEARLY_CLEAR] = 0
    return Image.fromarray(out, 'RGBA')


def to_opaque(colour):
    """8-bit RGB picture of linear colours."""
    out = linear_to_srgb(np.clip(colour, 0, 1))
    return Image.fromarray((out * 255 + .5).astype('uint8'), 'RGB')


def to_solid(image):
    """The picture with an alpha channel that is solid everywhere.

    SDL 1.2 then packs it into runs and draws it in half the time. It is worth the larger file for
    what is drawn whole in every frame; a sheet, whose rows must be skipped, gets slower."""
    return image.convert('RGBA')


def save(image, path):
    """Write a PNG without any date, so that building again gives the same bytes."""
    image.save(path, optimize=True)


def key_pixels(image):
    """How many pixels hold the pure magenta that the game keys out of opaque pictures."""
    return int((np.asarray(image.convert('RGB')) == KEY).all(2).sum())
