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
from common.palette import GOLD, linear
from common.raster import layer, over, read_layer, reduce, to_opaque
from common.relief import mix, shade
from painting import dress, vessel
from painting.camera import Pose, View
from painting.foam import image
from painting.sea import Sea

HERE = Path(__file__).resolve().parent
W, H, SCALE = 640, 440, 2
HORIZON = 262
WATER = 271             # where she parts the water: nearer than the horizon
MOON = (352, 138, 71)    # middle and radius
# Her dark seas: middle, half width and half height, of her radius.
MARIA = ((-.42, -.34, .34, .30), (-.62, .10, .26, .40), (.18, -.42, .24, .20),
         (.42, -.12, .24, .20), (.62, .18, .17, .24), (.36, .22, .15, .16), (-.22, .30, .26, .18),
         (.76, -.30, .11, .13), (-.05, -.68, .34, .08))
SHIP = (172, 77)        # top left corner of the 280 x 200 picture of the ship
SHIP_SIZE = (280, 200)
DISTANCE = 200.         # metres; 3.2 pixels a metre there
VIEW = View((WATER - HORIZON) / 3.2, 3.2 * DISTANCE, 320., HORIZON)
POSE = Pose('First', -24, 2, .5, (0, 0, 0), 30, ())
BLOW = -14              # degrees off her heading, the wind's way


def sky(c):
    """Night blue, lighter round the moon, bars of cloud, a few stars and the moon."""
    x, y, r = MOON
    away = c.radius(x, y)
    up = np.clip((HORIZON - c.y) / HORIZON, 0, 1)[..., None]
    colour = linear('1d2f52') * (1 - up) + linear('080f21') * up
    stars = smoothstep(fbm(*c.shape, 3, .1), 3.75, 4.3) * smoothstep(away, r + 30, r + 90)
    colour = blend(colour, linear('dfe6ee'), c.blur(stars, .35) * 1.8)
    # The haze round the moon takes light from her, so that her rim melts into the sky.
    for spread, light in ((14, .50), (44, .34), (120, .22)):
        halo = light * np.exp(-np.clip(away - r, 0, None) / spread)
        colour = colour + linear('9fa9ab') * .45 * halo[..., None]
    colour = blend(colour, moon(c, (c.x - x) / r, (c.y - y) / r), disc(c.x, c.y))
    bars = fbm(*c.shape, 23, 1.7, sx=6.)
    veil = smoothstep(bars, .2, 1.9) * np.exp(-((c.y - 196) / 44) ** 2) * .62
    lit = linear('2f3f60') + linear('b9ad92') * (.62 * np.exp(-away / 75))[..., None]
    return blend(colour, lit, veil)


def disc(x, y):
    """How much of the moon's disc a place shows; her rim is soft."""
    return smoothstep(MOON[2] - np.hypot(x - MOON[0], y - MOON[1]), -1.6, 2.2)


def moon(c, u, v):
    """Her face, u and v from -1 to 1: dark seas, bright rays from one crater, a dimmer limb."""
    warp = .07 * fbm(*c.shape, 13, 1.9), .07 * fbm(*c.shape, 14, 1.9)
    seas = np.zeros(c.shape)
    for at_u, at_v, wide, high in MARIA:
        away = np.hypot((u + warp[0] - at_u) / wide, (v + warp[1] - at_v) / high)
        seas = np.maximum(seas, 1 - smoothstep(away, .55, 1.35))
    seas = seas * np.clip(.85 + .16 * fbm(*c.shape, 11, 1.6), .4, 1.1)
    du, dv = u + .12, v - .66
    rays = np.clip(np.cos(9 * np.arctan2(dv, du) + 1.2), 0, 1) ** 4 * np.exp(
        -np.hypot(du, dv) / .35) + 1.2 * np.exp(-(np.hypot(du, dv) / .07) ** 2)
    limb = .80 + .20 * np.sqrt(np.clip(1 - u * u - v * v, 0, 1))
    tone = limb * (1 - .29 * seas + .07 * rays + .012 * fbm(*c.shape, 12, 1.2))
    return linear('fff3d2') * (.97 * tone)[..., None] * (1 + seas[..., None] * (-.03, 0, .06))


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
                        .55 * (lift - (HORIZON - y) / VIEW.focus))
        light = 1.0 * np.exp(-(away / .12) ** 2) + .24 * np.exp(-(away / .24) ** 2)
        return light[..., None] * linear('ffe9b8')

    picture = picture.copy()
    seen = sea.water(sky_at, things, gleam, ('0a1428', '12304a'))
    # The eye takes single glints together into strokes along the waves.
    picture[sea.top:] = .2 * seen + .8 * gaussian_filter(seen, (.6 * SCALE, 1.8 * SCALE, 0))
    return picture * (1 - image_of(ship))[..., None]


def image_of(ship):
    """Her dark image in the water."""
    y, x = (np.mgrid[0:H * SCALE, 0:W * SCALE] + .5) / SCALE
    ripple = fbm(H * SCALE, W * SCALE, 41, 1.1, sx=5.)
    cover = image(ship[..., 3:], np.float64(WATER), x, y, ripple, SCALE)[..., 0]
    return .93 * cover * np.clip(1.12 - (y - WATER) / 125, 0, 1)


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
    swell = fbm(H * SCALE, W * SCALE, 43, 1.3, sx=4.)
    cover = np.clip((WATER - rows - .8 * swell) * SCALE + .5, 0, 1)     # the sea hides her bottom
    ship = moonlit(ship) * cover[..., None]
    picture = np.concatenate([water(picture, ship), np.ones(cover.shape + (1,))], 2)
    picture, ship = reduce(picture, SCALE), reduce(ship, SCALE)
    return over(foam(ship), over(ship, picture))[..., :3]


def moonlit(ship):
    """The ship as a silhouette: blue and dark, but for her lamps and what the moon outshines."""
    y, x = (np.mgrid[0:H * SCALE, 0:W * SCALE] + .5) / SCALE
    cover, colour = ship[..., 3], ship[..., :3]
    lamps = smoothstep(colour[..., 0] - colour[..., 2], .04, .10)[..., None]
    dark = colour * .16 + colour.mean(2, keepdims=True) * linear('7f97c4') * .60
    ship[..., :3] = dark * (1 - lamps) + lamps * colour * (3.6, 2.6, 1.5)
    # Light creeps round what stands before the moon, and only there.
    behind = disc(x, y) * (1 - cover)
    for spread, light in ((.55, .34), (3., .10)):
        ship[..., :3] += (light * cover * gaussian_filter(behind, spread * SCALE))[
            ..., None] * linear('ffe2a8')
    glow = sum(light * gaussian_filter(lamps * ship[..., :3], [spread * SCALE] * 2 + [0])
               for spread, light in ((1.5, .5), (6., .9)))
    ship[..., :3] += glow * cover[..., None]
    return ship


def foam(ship):
    """The torn pale water along her side, the wave under her bow and the wake behind her."""
    y, x = np.mgrid[0:H, 0:W].astype(float)
    columns = np.flatnonzero(ship[WATER - 4, :, 3] > .5)
    length = np.ptp(columns)
    stern, bow = x - columns[0], columns[-1] - x         # pixels before one, abaft the other
    rough, fine = fbm(H, W, 43, 1.2, sx=2.5), fbm(H, W, 44, .8, sx=1.6)
    rise = 8.5 * np.exp(-((bow - 4) / 6) ** 2) + 3.5 * np.exp(-((bow - 17) / 9) ** 2)
    above = WATER + .4 - y + .5 * rough
    wave = smoothstep(rise * (1 + .25 * rough) + .7 * fine - above, -.6, 1.2)
    wave = wave * smoothstep(above, -2.6, -.4) * smoothstep(bow, -9, -3) * np.exp(
        -np.clip(bow - 6, 0, None) / 26)
    side = np.exp(-((above + .3) / 1.) ** 2) * smoothstep(rough + .5 * fine, -.3, 1.3) * .55
    side = side * smoothstep(stern, -4, 6) * smoothstep(bow, -2, 2)
    trail = np.clip(-stern, 0, None)
    wake = np.exp(-((above + 1.2 + .03 * trail) / (1.2 + .03 * trail)) ** 2) * (stern < 2)
    wake = wake * np.exp(-trail / (.35 * length)) * smoothstep(rough + .6 * fine, -.6, 1.4) * .7
    cover = np.maximum.reduce([.9 * wave, side, wake])
    # The moon is ahead of her: the bow wave takes her light, the wake only the sky's.
    warm = np.exp(-np.clip(bow, 0, None) / 40)[..., None]
    colour = linear('5d7090') * (1 - warm) + linear('e6dcc0') * .8 * warm
    return layer(colour, gaussian_filter(cover, .35))


def word(scene):
    """The word "presents" in pale gold, its shallow bevel parted from the sea by one dark line."""
    c = Canvas(W, H)
    mask = c.fatten(c.text('presents', 30, W / 2, 372, spacing=4), .15)
    line = np.clip((1.2 - c.outside(mask)) * c.scale * .5, 0, 1)
    dark = reduce(np.maximum(c.shadow(mask, .6, 1.4, 3.5, .75), .9 * line), c.scale)[..., None]
    gold = shade(mix(GOLD, .80 - .22 * np.clip((c.y - 348) / 28, 0, 1)), c.bevel(mask, 1.8, .35)
                 * .5, .55) * .66
    letters = reduce(gold * mask[..., None], c.scale)
    cover = reduce(mask, c.scale)[..., None]
    return scene * (1 - dark) * (1 - cover) + letters


def make(work):
    scene = with_ship(sky(Canvas(W, H, SCALE)), work)
    # A rounded frame of darkness, narrow and uneven: the picture stands on black.
    y, x = np.mgrid[0:H, 0:W] + .5
    rim = (np.abs(x / W * 2 - 1) ** 3.2 + np.abs(y / H * 2 - 1) ** 3.2) ** (1 / 3.2)
    rim = rim + .025 * fbm(H, W, 61, 1.8, sx=2.)
    scene = scene * (1 - smoothstep(rim, .55, .985))[..., None]
    return to_opaque(word(scene))
