# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The menu's painting: two ships exchanging broadsides at dusk.

POV-Ray renders ships and sea under a painted sky; haze, foam, smoke, muzzle flashes, bloom,
a gentle paint filter and canvas grain follow here. Positions are pixels of the picture.

To change: `sun`, `rays` and `road` are its light, `gun_smoke`, `drift` and `bank` list the puffs of
smoke, `grade` the tones; the foam is in foam.py.
"""
from pathlib import Path

import numpy as np
from PIL import Image
from scipy.ndimage import gaussian_filter

from common import povray
from common.light import linear_to_srgb, srgb_to_linear
from common.noise import fbm, smoothstep
from common.palette import linear, rgb
from common.raster import reduce, to_solid
from painting import sky
from painting.brush import kuwahara, lay
from painting.camera import EYE_Y, EYE_Z, FIRST, FOCUS, SECOND
from painting.foam import waterline
from painting.smoke import march
from ship import model

HERE = Path(__file__).resolve().parent
W, H = 800, 600
SUN = (438, 348)
HORIZON = 403
Y, X = np.mgrid[0:H, 0:W].astype(float)


def render(work):
    libraries = povray.prepare(work, HERE, HERE.parent / 'ship')
    model.write(work / 'ship.inc', 'tall')
    (work / 'poses.inc').write_text(FIRST.source() + '\n' + SECOND.source() + '\n')
    sky.paint().save(work / 'sky.png')
    Image.fromarray((sky.waves() * 65535).astype('uint16')).save(work / 'sea.png')
    # The camera's frame is square; the picture is its upper part.
    for product, alone in (('duel.png', 0), ('ships.png', 1)):
        povray.render(HERE / 'duel.pov', work / product, (2 * W, 2 * W), libraries, bool(alone),
                      rows=2 * H, EyeY=EYE_Y, EyeZ=EYE_Z, Focus=FOCUS, Mask=alone)
    picture = np.asarray(Image.open(work / 'duel.png').convert('RGB'))[:2 * H] / 255.
    ships = np.asarray(Image.open(work / 'ships.png').convert('RGBA'))[:2 * H, :, 3] / 255.
    return reduce(srgb_to_linear(picture), 2), reduce(ships, 2)


def air(c, ships):
    """Haze on the horizon before the sun, its rays, and its road on the water."""
    haze = np.exp(-((Y - HORIZON + 1) / 16) ** 2) * .34
    c = lay(c, linear('ffb868'), haze * np.exp(-(np.abs(X - SUN[0]) / 110) ** 4))
    c = c + (rays() * (Y < HORIZON) * (1 - .6 * ships))[..., None] * linear('ffb860')
    return c + road(c)[..., None] * linear('ffb458')


def rays():
    """Faint beams between the clouds, wider and weaker away from the sun."""
    dx, dy = X - SUN[0], Y - SUN[1]
    turn = ((np.arctan2(dy, dx) / (2 * np.pi) + .5) * 1023).astype(int)
    beam = gaussian_filter(fbm(1, 1024, 91, 1.1)[0], 5, mode='wrap')
    away = np.hypot(dx, dy)
    return .085 * np.clip(beam[turn], -.4, 1.6) * np.exp(-away / 170) * np.clip(away / 40, 0, 1)


def road(c):
    """The sun's road: a broad gleam, and on it glitter that is finer further away."""
    down = np.clip((Y - HORIZON - 1) / 196, 0, 1)
    width = 20 + 74 * down
    lane = np.exp(-((X - SUN[0]) / width) ** 2) * (Y > HORIZON + 1)
    bright = np.clip((c.mean(2) - .045) / .22, 0, 1)
    near = 7 / (6 + np.clip(Y - HORIZON, 0, None))
    u = ((X - SUN[0]) * near * 14).astype(int) % 1024
    v = (620 * near).astype(int) % 1024
    waves = fbm(1024, 1024, 93, 1.15, sx=1.6)[v, u]
    glitter = smoothstep(waves + .9 * lane, 1.2, 2.1) * lane * np.clip(1.2 - 4 * down, 0, 1)
    return lane * bright * (.66 - .30 * down) + glitter


def gun_smoke(pose):
    """Puffs at the muzzles: the aftermost gun fired first, so its smoke has grown and risen."""
    muzzles = pose.muzzles()
    ahead = np.sign(muzzles[0, 0] - muzzles[-1, 0])
    puffs = []
    for k, (x, y) in enumerate(muzzles):
        puffs.append((x + ahead * 2, y + 1, 4 + .6 * k, .40))
        puffs.append((x + ahead * (9 + 2 * k), y - 1 - k, 7 + 1.4 * k, .17))
    return puffs + drift(muzzles[0], ahead)


def drift(gun, ahead):
    """Earlier smoke, which the wind from astern has carried past the bow as a thin veil."""
    puffs = []
    for step in np.linspace(0, 1, 7):
        x, y = gun + np.array([ahead * (128 + 105 * step), -4 - 34 * step ** 1.4])
        puffs.append((x, y, 11 + 18 * step, .11 - .07 * step))
    return puffs


def bank(pose):
    """The first broadsides' smoke, which has gathered on her far side."""
    x, y = pose.muzzles()[1]
    ahead = np.sign(x - pose.muzzles()[-1, 0])
    return [(x + ahead * (-70 + 190 * s), y - 22 - 26 * s ** .8 + 9 * np.sin(11 * s),
             20 + 12 * np.sin(3 * s), .42 - .22 * s) for s in np.linspace(0, 1, 8)]


def smoke(c, corner, size, puffs, seed, sun_right, ships=None):
    """Smoke on a part of the picture; with `ships`, it lies behind them."""
    x0, y0 = corner
    local = [(x - x0, y - y0, r, d) for x, y, r, d in puffs]
    lit, ambient, cover = march(*size, local, seed, .30, sun_right)
    colour = linear('3e3350') * .55
    colour = colour + (linear('a07f92') * .42 - colour) * np.clip(ambient, 0, 1)[..., None] * .9
    colour = colour + linear('ffcf95') * 1.05 * (np.clip(lit, 0, 1) ** 1.1)[..., None]
    part = np.s_[y0:y0 + size[1], x0:x0 + size[0]]
    near = np.exp(-np.hypot(X[part] - SUN[0], Y[part] - SUN[1]) / 130)[..., None]
    colour = colour * (1 + .5 * near * linear('ffd080'))
    if ships is not None:
        cover = cover * (1 - ships[part])
    c = c.copy()
    c[part] = lay(c[part], colour, cover * .94)
    return c


def flashes(c):
    """Light of the muzzle flashes and of their reflections, to be added."""
    light, wet = np.zeros((H, W, 3)), np.clip(c.mean(2) * 7, 0, 1)
    guns = [(x, y) for pose in (FIRST, SECOND) for x, y in pose.muzzles()]
    for (x, y), s in zip(guns, (4., 5.5, 4.5, 3.5) * 2):
        d = np.hypot(X - x, Y - y)
        light += (np.exp(-(d / (s * .55)) ** 2) * 2.6)[..., None] * linear('fff0b8')
        light += (np.exp(-d / (s * 1.3)) * .55)[..., None] * linear('ff9a3c')
        light += (np.exp(-d / (s * 3.5)) * .05)[..., None] * linear('ff7a2c')
        fall = np.exp(-np.clip(Y - y - 16, 0, None) / 50) * (Y > y + 14) * wet * .8
        light += (np.exp(-((X - x) / (s * 1.5)) ** 2) * fall)[..., None] * linear('ff9040')
    return light


def sun(o):
    """Her disc, which melts into the haze downwards, within three halos, each wider and redder.

    Laid over finished colours as light is over light: nothing round the sun comes out darker or
    less golden for it, as it would through the tone curve.
    """
    r = np.hypot(X - SUN[0], (Y - SUN[1]) * 1.04)
    soft = 1.8 + 2.6 * np.clip((Y - SUN[1]) / 18 + .4, 0, 1)
    disc = 1 / (1 + np.exp((r - 17) / soft))
    bars = fbm(H, W, 95, 1.5, sx=9.)
    veil = 1 - .45 * smoothstep(bars, .2, 1.3) * np.clip((Y - SUN[1] + 8) / 20, 0, 1)
    for light, colour in ((disc * veil, 'fffbe6'), (.62 * np.exp(-r / 15), 'ffe49a'),
                          (.40 * np.exp(-r / 48), 'ffc468'), (.22 * np.exp(-r / 150), 'ff9a50')):
        o = 1 - (1 - o) * (1 - light[..., None] * np.array(rgb(colour)))
    return o


def grade(c):
    """Bloom, tone curve, vignette and a little more colour; returns sRGB."""
    bright = np.clip(c - .85, 0, 2)
    for spread, amount in ((6, .22), (22, .20), (70, .26)):
        c = c + gaussian_filter(bright, [spread, spread, 0]) * amount
    c = c * 1.12
    c = c / (1 + .16 * c) * 1.06
    # A shoulder instead of a limit keeps the colours round the sun apart.
    c = np.where(c > .62, .62 + .38 * (1 - np.exp(-(c - .62) / .38)), c)
    corner = np.clip(np.hypot((X - W / 2) / 520, (Y - 330) / 430) - .55, 0, 1) ** 1.4
    o = np.clip(linear_to_srgb(np.clip(c * (1 - .42 * corner)[..., None], 0, 1)), 0, 1)
    o = sun(o)
    grey = o.mean(2, keepdims=True)
    o = np.clip(grey + (o - grey) * 1.10, 0, 1)
    return np.clip((o - .5) * 1.05 + .5, 0, 1)


def paint(o, light):
    pad = np.pad(o, ((8, 8), (8, 8), (0, 0)), mode='edge')
    o = o * .45 + kuwahara(pad, 3)[8:-8, 8:-8] * .55
    light = np.clip(light, 0, 3)
    glow = gaussian_filter(light, [6, 6, 0]) * .6
    c = (srgb_to_linear(o) + light * .9 + glow) / (1 + .10 * light)
    grain = fbm(H, W, 5, .6)[..., None]
    return np.clip(linear_to_srgb(np.clip(c, 0, 1)) * (1 + .018 * grain), 0, 1)


def make(work):
    c, ships = render(work)
    c = air(c, ships)
    c = smoke(c, (0, 300), (380, 130), bank(FIRST), 51, True, ships)
    c = smoke(c, (440, 300), (360, 130), bank(SECOND), 65, False, ships)
    c = waterline(c, FIRST, 61)
    c = waterline(c, SECOND, 62)
    c = smoke(c, (0, 310), (380, 150), gun_smoke(FIRST), 21, True)
    c = smoke(c, (440, 310), (360, 150), gun_smoke(SECOND), 35, False)
    picture = paint(grade(c), flashes(c))
    return to_solid(Image.fromarray((picture * 255 + .5).astype('uint8')))
