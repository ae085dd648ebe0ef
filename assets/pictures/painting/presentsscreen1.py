# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The "presents" picture: a ship in front of the rising moon, fading into the black around it.

To change: MOON, SHIP, HORIZON and WATER are the layout; `water` and `foam` the sea.
"""
from pathlib import Path

import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates, shift

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
STERN = 241              # where her stern lantern stands
WATER = 271             # where she parts the water: nearer than the horizon
MOON = (322, 138, 71)    # middle and radius
# The moon's dark areas: middle, half width and half height, as shares of its radius.
MARIA = ((-.42, -.34, .34, .30), (-.62, .10, .26, .40), (.18, -.42, .24, .20),
         (.42, -.12, .24, .20), (.62, .18, .17, .24), (.36, .22, .15, .16), (-.22, .30, .26, .18),
         (.76, -.30, .11, .13), (-.05, -.68, .34, .08))
SHIP = (172, 81)        # top left corner of the 280 x 200 picture of the ship
SHIP_SIZE = (280, 200)
DISTANCE = 200.         # metres; 3.2 pixels a metre there
VIEW = View((WATER - HORIZON) / 3.2, 3.2 * DISTANCE, 320., HORIZON)
POSE = Pose('First', -24, 2, .5, (0, 0, 0), 30, -1)
BLOW = -14              # where the wind blows to, in degrees from her heading


def sky(c, moonless=False):
    """Night blue, lighter round the moon, bars of cloud, a few stars and the moon."""
    x, y, r = MOON
    away = c.radius(x, y)
    up = np.clip((HORIZON - c.y) / HORIZON, 0, 1)[..., None]
    colour = linear('1d2f52') * (1 - up) + linear('080f21') * up
    clear = smoothstep(away, r + 30, r + 90)
    for seed, rare, spread, light in ((3, 3.75, .35, 1.8), (5, 4.35, .62, 6.)):
        stars = smoothstep(fbm(*c.shape, seed, .1), rare, rare + .55) * clear
        colour = blend(colour, linear('dfe6ee'), np.clip(c.blur(stars, spread) * light, 0, 1))
    uneven = 1 + .16 * fbm(*c.shape, 27, 1.9)
    # The haze takes its light from the moon, so that the moon's rim melts into the sky.
    for spread, light in ((14, .50), (44, .34), (120, .22)):
        halo = light * uneven * np.exp(-np.clip(away - r, 0, None) / spread)
        colour = colour + linear('9fa9ab') * .45 * halo[..., None]
    if not moonless:
        colour = blend(colour, moon(c, (c.x - x) / r, (c.y - y) / r), disc(c.x, c.y))
    return clouds(c, colour, away)


def clouds(c, colour, away):
    """A thin strip across the moon and banks low over the sea, lit on their upper edges."""
    bars = fbm(*c.shape, 23, 1.7, sx=6.)
    strip = smoothstep(bars, -.5, 1.5) * np.exp(-((c.y - 172 - .02 * (c.x - 320)) / 9) ** 2) * .62
    low = HORIZON - 16 - c.y + 9 * fbm(*c.shape, 31, 1.8, sx=2.6) + .05 * np.abs(c.x - 320)
    bank = smoothstep(low, 15, -9) * smoothstep(c.y, HORIZON + 2, HORIZON - 9) * .80
    near = np.exp(-away / 95)[..., None]
    lit = linear('2b3a5c') + linear('b9ad92') * (.66 * near)
    colour = blend(colour, lit, strip)
    edge = np.exp(-((low - 4) / 7) ** 2)[..., None]
    dark = linear('17223d') + linear('6f7d98') * (.45 + .9 * near) * edge
    return blend(colour, dark, bank)


def disc(x, y):
    """How much of a point the moon's disc covers; its rim is soft."""
    return smoothstep(MOON[2] - np.hypot(x - MOON[0], y - MOON[1]), -1.6, 2.2)


def moon(c, u, v):
    """The moon's face, u and v from -1 to 1: dark areas, bright rays from a crater, a dim limb."""
    warp = .07 * fbm(*c.shape, 13, 1.9), .07 * fbm(*c.shape, 14, 1.9)
    seas = np.zeros(c.shape)
    for at_u, at_v, wide, high in MARIA:
        away = np.hypot((u + warp[0] - at_u) / wide, (v + warp[1] - at_v) / high)
        seas = np.maximum(seas, 1 - smoothstep(away, .55, 1.35))
    seas = seas * np.clip(.85 + .16 * fbm(*c.shape, 11, 1.6), .4, 1.1)
    du, dv = u + .12, v - .66
    rays = np.clip(np.cos(9 * np.arctan2(dv, du) + 1.2), 0, 1) ** 4 * np.exp(
        -np.hypot(du, dv) / .35) + 1.2 * np.exp(-(np.hypot(du, dv) / .07) ** 2)
    limb = .66 + .34 * np.sqrt(np.clip(1 - u * u - v * v, 0, 1))
    tone = limb * (1 - .33 * seas + .07 * rays + .012 * fbm(*c.shape, 12, 1.2))
    return linear('fff3d2') * (.97 * tone)[..., None] * (1 + seas[..., None] * (-.03, 0, .06))


def water(picture, dark, ship):
    """Picture with the sea in it; `dark` is the sky without the moon, for the waves to mirror."""
    sea = Sea(W, H, SCALE, VIEW, swell=.55)

    def sky_at(azimuth, lift):
        x, y = VIEW.at(np.tan(azimuth), VIEW.eye + np.tan(lift) / np.cos(azimuth), 1.)
        row = np.clip(y * SCALE, 0, sea.top - 1).astype(int)
        column = np.clip(x * SCALE, 0, W * SCALE - 1).astype(int)
        return .85 * dark[row, column]

    def things(waves, rays, seen):
        return waves.reflect(rays, seen, ship, DISTANCE, VIEW, SCALE)

    def gleam(azimuth, lift):
        x, y, _ = MOON
        away = np.hypot(azimuth - (x - VIEW.middle) / VIEW.focus,
                        .55 * (lift - (HORIZON - y) / VIEW.focus))
        return (.16 * np.exp(-(away / .26) ** 2))[..., None] * linear('c9c8b4')

    picture = picture.copy()
    seen = sea.water(sky_at, things, gleam, ('0a1428', '12304a'))
    # The eye merges single glints into streaks along the waves.
    picture[sea.top:] = .2 * seen + .8 * gaussian_filter(seen, (.6 * SCALE, 1.8 * SCALE, 0))
    picture = picture + column(MOON[0], 44, .42, 1.15, 400)[..., None] * linear('ffe9b8')
    picture = picture * (1 - image_of(ship))[..., None]
    # The far sea melts into the haze.
    band = np.exp(-((np.arange(H * SCALE) / SCALE - HORIZON) / 4) ** 2)[:, None, None]
    soft = gaussian_filter(picture, (2.2 * SCALE, 1.5 * SCALE, 0))
    picture = picture + (soft - picture) * band
    return picture + column(STERN, 3.5, .05, .55, 17, WATER)[..., None] * linear('ff9a3c')


def column(middle, narrow, widening, strength, fall, top=HORIZON):
    """Light broken by the waves: dense and narrow far away, wider and in pieces nearby.

    `fall` is how many pixels down it has faded; waves and gaps grow towards the viewer.
    """
    y, x = (np.mgrid[0:H * SCALE, 0:W * SCALE] + .5) / SCALE
    down = np.clip(y - HORIZON, 0, None)
    size = down + 7
    at = [290 * np.log(size) % 1024, (64 * (x - middle) / size + 512) % 1024]
    waves = map_coordinates(fbm(1024, 1024, 47, 1.0, lowest=14), at, order=1, mode='grid-wrap')
    wander = 3 * np.sin(down / 9) * np.clip(down / 90, 0, 1)
    side = np.abs(x - middle + wander) / (narrow + widening * down)
    glints = smoothstep(waves - 1.5 * side ** 1.6 + .9 * np.exp(-down / 16), .0, .9)
    glints = gaussian_filter(glints, (.3 * SCALE, .7 * SCALE))
    # Behind the word the water lies quieter.
    calm = 1 - .62 * np.exp(-((y - 364) / 19) ** 2 - ((x - W / 2) / 105) ** 4)
    fade = np.exp(-np.clip(y - top, 0, None) / fall) * smoothstep(y, top, top + 1.5)
    return strength * glints * calm * fade * (.45 + .55 * np.exp(-down / 45))


def image_of(ship):
    """Her dark image in the water."""
    y, x = (np.mgrid[0:H * SCALE, 0:W * SCALE] + .5) / SCALE
    ripple = fbm(H * SCALE, W * SCALE, 41, 1.1, sx=5.)
    cover = image(ship[..., 3:], np.float64(WATER), x, y, ripple, SCALE)[..., 0]
    return .93 * cover * np.clip(1.05 - (y - WATER) / 70, 0, 1)


def with_ship(picture, dark, work):
    libraries = povray.prepare(work, HERE)
    dress.write(work)
    # Few and large panes: at this distance more would run together.
    dress.save(work, 'gallery', dress.windows(3, ((.28, .48), (.56, .74)), '160b06'))
    vessel.write(work / 'first.inc', POSE.name, BLOW, POSE.brace)
    (work / 'poses.inc').write_text('object{ %s %s }\n' % (POSE.name, POSE.matrix()))
    povray.render(HERE / 'night.pov', work / 'ship.png', [SCALE * side for side in SHIP_SIZE],
                  libraries)
    x, y = SHIP[0] * SCALE, SHIP[1] * SCALE
    ship = np.zeros((H * SCALE, W * SCALE, 4))
    ship[y:y + SHIP_SIZE[1] * SCALE, x:x + SHIP_SIZE[0] * SCALE] = read_layer(work / 'ship.png')
    rows = (np.arange(H * SCALE) + .5)[:, None] / SCALE
    swell = fbm(H * SCALE, W * SCALE, 43, 1.6, sx=5.)
    cover = np.clip((WATER - rows - .9 * swell) * SCALE * .7 + .5, 0, 1)    # her bottom is hidden
    ship = moonlit(ship) * cover[..., None]
    picture = np.concatenate([water(picture, dark, ship), np.ones(cover.shape + (1,))], 2)
    picture, ship = reduce(picture, SCALE), reduce(ship, SCALE)
    return over(foam(ship), over(ship, picture))[..., :3]


def moonlit(ship):
    """The ship as a silhouette, except for her lamps and the cloth in front of the moon."""
    y, x = (np.mgrid[0:H * SCALE, 0:W * SCALE] + .5) / SCALE
    cover, colour = ship[..., 3], ship[..., :3]
    lamps = smoothstep(colour[..., 0] - colour[..., 2], .05, .11)
    # Moonlit cloth is warm, too, so only warm pixels at the stern, below the sails, count as lamps.
    lamps = (lamps * (x < 262) * (y > 234))[..., None]
    grey = colour.mean(2, keepdims=True)
    # One layer of canvas lets moonlight through where the moon is behind it.
    face = gaussian_filter(disc(x, y), 1.5 * SCALE)[..., None]
    cloth = smoothstep(grey, .012, .05) * (y < WATER - 28)[..., None]
    dark = colour * .10 + grey * linear('7f97c4') * (.34 + .2 * (y > WATER - 28)[..., None])
    dark = dark + cloth * grey * face * linear('c3cdb4') * 1.1
    ship[..., :3] = dark * (1 - lamps) + lamps * colour * (2.3, 1.7, 1.)
    # A faint rim of moonlight on edges in front of the moon, and sky light on upper edges.
    behind = disc(x, y) * (1 - cover)
    for spread, light in ((.55, .50), (3., .10)):
        ship[..., :3] += (light * cover * gaussian_filter(behind, spread * SCALE))[
            ..., None] * linear('ffe2a8')
    above = np.clip(cover - shift(cover, (1.2 * SCALE, -.8 * SCALE), order=1), 0, 1)
    ship[..., :3] += (.55 * above)[..., None] * linear('66789c')
    glow = sum(light * gaussian_filter(lamps * ship[..., :3], [spread * SCALE] * 2 + [0])
               for spread, light in ((1.5, .5), (6., .9)))
    ship[..., :3] += glow * cover[..., None]
    return ship


def foam(ship):
    """The torn pale water along her side, the wave under her bow and the wake behind her."""
    y, x = np.mgrid[0:H, 0:W].astype(float)
    columns = np.flatnonzero(ship[WATER - 4, :, 3] > .5)
    length = np.ptp(columns)
    stern, bow = x - columns[0], columns[-1] - x         # pixels ahead of the stern; behind the bow
    rough, fine = fbm(H, W, 43, 1.2, sx=2.5), fbm(H, W, 44, .8, sx=1.6)
    rise = 6.5 * np.exp(-((bow - 4) / 6) ** 2) + 2.6 * np.exp(-((bow - 17) / 9) ** 2)
    above = WATER + .4 - y + .5 * rough
    wave = smoothstep(rise * (1 + .25 * rough) + .7 * fine - above, -.6, 1.2)
    wave = wave * smoothstep(above, -2.6, -.4) * smoothstep(bow, -9, -3) * np.exp(
        -np.clip(bow - 6, 0, None) / 26)
    # Two or three broken glints along her side, no line.
    side = np.exp(-((above + 1.) / 1.1) ** 2) * smoothstep(rough + .4 * fine, .7, 1.7) * .42
    side = side * smoothstep(stern, 4, 16) * smoothstep(bow, 6, 22)
    trail = np.clip(-stern, 0, None)
    wake = np.exp(-((above + 1.2 + .03 * trail) / (1.2 + .03 * trail)) ** 2) * (stern < 2)
    wake = wake * np.exp(-trail / (.35 * length)) * smoothstep(rough + .6 * fine, -.6, 1.4) * .7
    cover = np.maximum.reduce([.9 * wave, side, wake])
    # The moon is ahead of the ship: the bow wave is moonlit, the wake is lit only by the sky.
    warm = np.exp(-np.clip(bow, 0, None) / 40)[..., None]
    colour = linear('5d7090') * (1 - warm) + linear('e6dcc0') * .8 * warm
    return layer(colour, gaussian_filter(cover, .35))


def word(scene):
    """The word "presents" in pale gold, its shallow bevel separated from the sea by a dark line."""
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
    c = Canvas(W, H, SCALE)
    scene = with_ship(sky(c), sky(c, True), work)
    # The picture stands on black: a narrow rim of darkness, which cloud and swell make uneven.
    y, x = np.mgrid[0:H, 0:W] + .5
    rim = (np.abs(x / W * 2 - 1) ** 3.2 + np.abs(y / H * 2 - 1) ** 3.2) ** (1 / 3.2)
    rim = rim + .035 * np.clip(fbm(H, W, 61, 1.9, sx=2.6), -.8, 2) * smoothstep(rim, .5, .8)
    scene = scene * (1 - smoothstep(rim, .74, .98))[..., None]
    return to_opaque(word(scene))
