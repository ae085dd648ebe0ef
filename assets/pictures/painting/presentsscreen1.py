# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The "presents" picture: a ship before the rising moon, fading into the black around it.

To change: MOON, SHIP and HORIZON are the layout; `sea`, `mirrored` and `foam` the water.
"""
from pathlib import Path

import numpy as np
from scipy.ndimage import map_coordinates

from common import povray
from common.canvas import Canvas, blend
from common.noise import fbm, smoothstep
from common.palette import linear
from common.raster import layer, over, read_layer, reduce, to_opaque
from common.relief import metal
from ship import model

HERE = Path(__file__).resolve().parent
W, H = 640, 440
HORIZON = 262
MOON = (320, 168, 92)
SHIP = (184, 77)        # top left corner of the 280 x 200 picture of the ship
SHIP_SIZE = (280, 200)


def sky(c):
    """Night blue, lighter round the moon, thin bars of cloud and a few stars."""
    x, y, r = MOON
    away = c.radius(x, y)
    up = np.clip((HORIZON - c.y) / HORIZON, 0, 1)[..., None]
    colour = linear('1b2c4e') * (1 - up) + linear('070d1e') * up
    colour = colour + linear('8fa6b8') * (.55 * np.exp(-away / 70))[..., None]
    stars = fbm(*c.shape, 3, .1) > 4.1
    colour = blend(colour, linear('dfe6ee'), c.blur(stars.astype(float), .35) * 1.6)
    craters = fbm(*c.shape, 11, 1.9)
    limb = .62 + .38 * np.sqrt(np.clip(1 - (away / r) ** 2, 0, 1))
    face = linear('fff1c8') * (limb * (.90 + .09 * craters))[..., None]
    colour = blend(colour, face, c.soft(r - away))
    bars = fbm(*c.shape, 23, 1.7, sx=6.)
    veil = smoothstep(bars, .3, 1.9) * np.exp(-((c.y - 205) / 42) ** 2) * .75
    lit = linear('53617c') + linear('c8b790') * (.5 * np.exp(-away / 60))[..., None]
    return blend(colour, lit, veil)


def sea(c, colour):
    """Dark water with the moon's road, its glitter finer towards the horizon."""
    x, _, _ = MOON
    down = np.clip(c.y - HORIZON, 0, None)
    scale = 6 / (4 + down)
    u, v = (c.x - x) * scale * 3, 900 * scale
    h, w = 1024, 1024
    waves = fbm(h, w, 31, 1.3)[(v * 4).astype(int) % h, (u * 4).astype(int) % w]
    water = linear('0a1730') * (1.1 + .25 * waves)[..., None]
    road = np.exp(-((c.x - x) / (58 + .55 * down)) ** 2)
    glitter = smoothstep(waves, .1, 1.3) * road * np.clip(1.05 - down / 190, 0, 1)
    water = water + (glitter * .8)[..., None] * linear('ffe9b0')
    water = water + (.10 * road)[..., None] * linear('9fb2c0')
    return blend(colour, water, c.soft(c.y - HORIZON))


def with_ship(picture, work):
    libraries = povray.prepare(work, HERE, HERE.parent / 'ship')
    model.write(work / 'ship.inc', 'tall')
    size = tuple(2 * side for side in SHIP_SIZE)
    povray.render(HERE / 'night.pov', work / 'ship.png', size, libraries)
    ship = read_layer(work / 'ship.png', 2)
    x, y = SHIP
    lay = np.zeros((H, W, 4))
    lay[y:y + SHIP_SIZE[1], x:x + SHIP_SIZE[0]] = ship
    rows = np.arange(H)[:, None, None]
    lay = lay * np.clip((HORIZON + 3 - rows) / 4, 0, 1)         # the sea hides her bottom
    return over(lay, over(foam(lay), over(mirrored(lay), opaque(picture))))[..., :3]


def opaque(picture):
    return np.concatenate([picture, np.ones(picture.shape[:2] + (1,))], 2)


def mirrored(ship):
    """Her dark image in the water, drawn out and broken by the waves."""
    y, x = np.mgrid[0:H, 0:W].astype(float)
    down = np.clip(y - HORIZON - 2, 0, None)
    ripple = fbm(H, W, 41, 1.1, sx=5.)
    sway = ripple * (1 + .11 * down) + 1.5 * np.sin(1.4 * down + 2 * ripple)
    source = [HORIZON + 1 - down * 1.5 + 2 * ripple, x + sway]
    image = np.dstack([map_coordinates(ship[..., i], source, order=1) for i in range(4)])
    image[..., :3] = image[..., :3] * .10 + image[..., 3:] * linear('0a1730') * .5
    return image * (np.clip(.62 - down / 75, 0, 1) * (y > HORIZON + 1))[..., None]


def foam(ship):
    """The pale line where she parts the water, strongest under her bow."""
    y, x = np.mgrid[0:H, 0:W].astype(float)
    columns = np.flatnonzero(ship[HORIZON - 6, :, 3] > .5)
    along = np.clip((x - columns[0]) / np.ptp(columns), -.2, 1.2)
    rough = fbm(H, W, 43, 1.1, sx=2.)
    height = 1.2 + 3.2 * np.exp(-((along - 1.) / .07) ** 2)
    band = np.exp(-((y - HORIZON - 2.2 - .5 * rough) / height) ** 2)
    band = band * np.clip(.42 + .5 * along + .35 * rough, 0, 1)
    band = band * smoothstep(along, -.04, .02) * (1 - smoothstep(along, 1.0, 1.08))
    return layer(linear('b9c4cf') * .7, band * .8)


def make(work):
    c = Canvas(W, H, 2)
    scene = with_ship(reduce(sea(c, sky(c)), c.scale), work)
    y, x = np.mgrid[0:H, 0:W] + .5
    rim = np.hypot((x - W / 2) / (W / 2), (y - 200) / 200)
    scene = scene * (1 - smoothstep(rim, .52, .98))[..., None]
    letters = Canvas(W, H)
    word = letters.text('presents', 34, W / 2, 372, spacing=3)
    gold = reduce(metal(letters.bevel(word, 3, .25), 3) * word[..., None], letters.scale)
    dark = reduce(letters.shadow(word, 1, 2, 2.5, .8), letters.scale)
    cover = reduce(word, letters.scale)[..., None]
    return to_opaque(scene * (1 - dark[..., None]) * (1 - cover) + gold)
