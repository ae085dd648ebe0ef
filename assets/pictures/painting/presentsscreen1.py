# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The "presents" picture: a ship before the rising moon, fading into the black around it.

To change: MOON, SHIP, HORIZON and WATER are the layout; `water` and `foam` the sea.
"""
from pathlib import Path

import numpy as np
from scipy.ndimage import gaussian_filter

from common import povray
from common.canvas import Canvas, blend
from common.noise import fbm, smoothstep
from common.palette import linear
from common.raster import layer, over, read_layer, reduce, to_opaque
from common.relief import metal
from painting import dress, vessel
from painting.camera import Pose, View
from painting.foam import image
from painting.sea import Sea

HERE = Path(__file__).resolve().parent
W, H, SCALE = 640, 440, 2
HORIZON = 262
WATER = 271             # where she parts the water: nearer than the horizon
MOON = (338, 150, 90)
SHIP = (172, 77)        # top left corner of the 280 x 200 picture of the ship
SHIP_SIZE = (280, 200)
DISTANCE = 200.         # metres; 3.2 pixels a metre there
VIEW = View((WATER - HORIZON) / 3.2, 3.2 * DISTANCE, 320., HORIZON)
POSE = Pose('First', -24, 2, .5, (0, 0, 0), 30, ())
BLOW = -14              # degrees off her heading, the wind's way


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


def water(picture, ship):
    """Picture with the dark sea in it, in which sky, moon and ship are broken by the waves."""
    sea = Sea(W, H, SCALE, VIEW, swell=.55)

    def sky_at(azimuth, lift):
        x, y = VIEW.at(np.tan(azimuth), VIEW.eye + np.tan(lift) / np.cos(azimuth), 1.)
        row = np.clip(y * SCALE, 0, sea.top - 1).astype(int)
        column = np.clip(x * SCALE, 0, W * SCALE - 1).astype(int)
        return .85 * picture[row, column]

    def things(waves, rays, seen):
        return waves.reflect(rays, seen, ship, DISTANCE, VIEW, SCALE)

    def gleam(azimuth, lift):
        x, y, _ = MOON
        away = np.hypot(azimuth - (x - VIEW.middle) / VIEW.focus,
                        .7 * (lift - (HORIZON - y) / VIEW.focus))
        return (.8 * np.exp(-(away / .10) ** 2))[..., None] * linear('fff0c0')

    picture = picture.copy()
    picture[sea.top:] = sea.water(sky_at, things, gleam, ('0a1428', '10283c'))
    return picture * (1 - shade(ship))[..., None]


def shade(ship):
    """Her dark image in the water."""
    y, x = (np.mgrid[0:H * SCALE, 0:W * SCALE] + .5) / SCALE
    ripple = fbm(H * SCALE, W * SCALE, 41, 1.1, sx=5.)
    cover = image(ship[..., 3:], np.float64(WATER), x, y, ripple, SCALE)[..., 0]
    return .75 * cover * np.clip(1 - (y - WATER) / 110, 0, 1)


def with_ship(picture, work):
    libraries = povray.prepare(work, HERE)
    dress.write(work)
    vessel.write(work / 'first.inc', POSE.name, BLOW, POSE.brace)
    (work / 'poses.inc').write_text('object{ %s %s }\n' % (POSE.name, POSE.matrix()))
    povray.render(HERE / 'night.pov', work / 'ship.png', [SCALE * side for side in SHIP_SIZE],
                  libraries)
    x, y = SHIP[0] * SCALE, SHIP[1] * SCALE
    ship = np.zeros((H * SCALE, W * SCALE, 4))
    ship[y:y + SHIP_SIZE[1] * SCALE, x:x + SHIP_SIZE[0] * SCALE] = read_layer(work / 'ship.png')
    rows = (np.arange(H * SCALE) + .5)[:, None] / SCALE
    swell = fbm(H * SCALE, W * SCALE, 43, 1.1, sx=4.)
    cover = np.clip((WATER - rows - .5 * swell) * SCALE + .5, 0, 1)     # the sea hides her bottom
    ship = moonlit(ship) * cover[..., None]
    picture = np.concatenate([water(picture, ship), np.ones(cover.shape + (1,))], 2)
    picture, ship = reduce(picture, SCALE), reduce(ship, SCALE)
    return over(foam(ship), over(ship, picture))[..., :3]


def moonlit(ship):
    """Her edges where the moon stands behind them: light creeps round cloth and wood."""
    y, x = (np.mgrid[0:H * SCALE, 0:W * SCALE] + .5) / SCALE
    near = np.exp(-np.clip(np.hypot(x - MOON[0], y - MOON[1]) - MOON[2] + 8, 0, None) / 25)
    cover = ship[..., 3]
    rim = cover * np.clip(1 - gaussian_filter(cover, .9 * SCALE), 0, 1) ** 1.5 * near
    # Ropes stay dark, or they would vanish before the moon.
    rim = rim * smoothstep(gaussian_filter(cover, 1.6 * SCALE), .25, .45)
    ship[..., :3] += (1.1 * rim)[..., None] * linear('ffdc9a')
    return ship


def foam(ship):
    """The pale line where she parts the water, strongest under her bow."""
    y, x = np.mgrid[0:H, 0:W].astype(float)
    columns = np.flatnonzero(ship[WATER - 6, :, 3] > .5)
    along = np.clip((x - columns[0]) / np.ptp(columns), -.2, 1.2)
    rough = fbm(H, W, 43, 1.1, sx=2.)
    height = 1.2 + 3.2 * np.exp(-((along - 1.) / .07) ** 2)
    band = np.exp(-((y - WATER - .6 - .5 * rough) / height) ** 2)
    band = band * np.clip(.42 + .5 * along + .35 * rough, 0, 1)
    band = band * smoothstep(along, -.04, .02) * (1 - smoothstep(along, 1.0, 1.08))
    return layer(linear('b9c4cf') * .7, band * .8)


def make(work):
    c = Canvas(W, H, SCALE)
    scene = with_ship(sky(c), work)
    y, x = np.mgrid[0:H, 0:W] + .5
    rim = np.hypot((x - W / 2) / (W / 2), (y - 200) / 200)
    scene = scene * (1 - smoothstep(rim, .52, .98))[..., None]
    letters = Canvas(W, H)
    word = letters.text('presents', 34, W / 2, 372, spacing=3)
    gold = reduce(metal(letters.bevel(word, 3, .25), 3) * word[..., None], letters.scale)
    dark = reduce(letters.shadow(word, 1, 2, 2.5, .8), letters.scale)
    cover = reduce(word, letters.scale)[..., None]
    return to_opaque(scene * (1 - dark[..., None]) * (1 - cover) + gold)
