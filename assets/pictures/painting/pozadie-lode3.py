# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The menu's painting: two ships exchanging broadsides at dusk.

POV-Ray renders ships and sea under a painted sky; haze, foam, smoke, muzzle flashes, bloom,
a gentle paint filter and canvas grain follow here. Positions are pixels of the picture.
"""
from pathlib import Path

import numpy as np
from PIL import Image
from scipy.ndimage import gaussian_filter, uniform_filter

from common import povray
from common.light import linear_to_srgb, srgb_to_linear
from common.noise import fbm
from common.palette import linear
from common.raster import reduce
from painting import sky
from painting.camera import EYE_Y, EYE_Z, FIRST, FOCUS, SECOND
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
    povray.render(HERE / 'duel.pov', work / 'duel.png', (2 * W, 2 * W), libraries, False,
                  rows=2 * H, EyeY=EYE_Y, EyeZ=EYE_Z, Focus=FOCUS)
    picture = np.asarray(Image.open(work / 'duel.png').convert('RGB'))[:2 * H] / 255.
    return reduce(srgb_to_linear(picture), 2)


def lay(c, colour, amount):
    return c + (colour - c) * np.asarray(amount)[..., None]


def air(c):
    """Haze on the horizon before the sun, and the sun's road on the water."""
    haze = np.exp(-((Y - HORIZON + 1) / 16) ** 2) * .32
    c = lay(c, linear('ffb868'), haze * np.exp(-(np.abs(X - SUN[0]) / 95) ** 4))
    down = np.clip((Y - HORIZON - 1) / 196, 0, 1)
    road = np.exp(-((X - SUN[0]) / (26 + 60 * down)) ** 2) * (Y > HORIZON + 1)
    bright = np.clip((c.mean(2) - .045) / .22, 0, 1)
    return c + (road * bright * (.75 - .35 * down))[..., None] * linear('ffb050')


def waterline(c, pose, seed):
    """Foam along the hull, the wave under her bow, and the torn water behind her stern."""
    line = pose.waterline()
    (x0, y0), x1 = line[0], line[-1, 0]
    ahead = 1 if x1 > x0 else -1
    n, fine = fbm(H, W, seed, 1.2), fbm(H, W, seed + 7, .9)
    order = np.argsort(line[:, 0])
    level = np.interp(X, line[order, 0], line[order, 1])
    along = np.clip((X - x0) / (x1 - x0), -.5, 1.5)      # 0 at the stern, 1 at the stem
    below = Y - level - 1.2 * n
    beside = (along > 0) & (along < 1)
    thick = 1.5 + 2.2 * np.clip((along - .55) / .45, 0, 1) ** 2
    foam = np.exp(-(np.clip(below - 1, 0, None) / thick) ** 2) * (below > -1.8)
    foam = foam * np.clip(.42 + .34 * n + .30 * fine, 0, 1) * beside
    gone = (x1 + 5 * ahead - X) * ahead                  # pixels behind the stem
    crest = 7.5 * np.exp(-(gone / 13) ** 2) + 2.2 * np.exp(-((gone - 26) / 16) ** 2)
    wave = np.clip((Y - level + crest * (.8 + .22 * n)) / 2, 0, 1)
    wave = wave * np.exp(-(np.clip(Y - level, 0, None) / (3.5 + 1.2 * n)) ** 2)
    wave = wave * np.clip((gone + 9) / 6, 0, 1) * np.clip(1 - gone / 46, 0, 1)
    wave = wave * np.clip(.80 + .25 * n + .25 * fine, 0, 1)
    astern = (x0 - X) * ahead
    trail = np.exp(-((Y - y0 - 1.5 - .03 * astern - n) / (1.8 + .05 * np.abs(astern))) ** 2)
    trail = trail * (astern > -3) * np.exp(-np.clip(astern, 0, None) / 38)
    trail = trail * np.clip(.30 + .35 * n + .3 * fine, 0, 1)
    foam = np.maximum.reduce([foam * .9, wave, trail * .8])
    lit = linear('f3c9a8') * .70 + linear('ffe6c4') * .25 * np.clip(wave, 0, 1)[..., None]
    return lay(c, lit, np.clip(foam, 0, .93))


def gun_smoke(pose):
    """Puffs at the muzzles: the aftermost gun fired first, so its smoke has grown and risen."""
    muzzles = pose.muzzles()
    ahead = np.sign(muzzles[0, 0] - muzzles[-1, 0])
    puffs = []
    for k, (x, y) in enumerate(muzzles):
        puffs.append((x + ahead * 3, y - 2, 8 + k, .50))
        puffs.append((x + ahead * (10 + 3 * k), y - 8 - 3 * k, 12 + 2.5 * k, .22 - .02 * k))
    return puffs + drift(muzzles[0], ahead)


def drift(gun, ahead):
    """Earlier smoke, which the wind from astern has carried past the bow as a thin veil."""
    puffs = []
    for step in np.linspace(0, 1, 7):
        x, y = gun + np.array([ahead * (24 + 150 * step), -4 - 34 * step ** 1.4])
        puffs.append((x, y, 13 + 17 * step, .14 - .09 * step))
    return puffs


def smoke(c, corner, size, puffs, seed, sun_right):
    x0, y0 = corner
    local = [(x - x0, y - y0, r, d) for x, y, r, d in puffs]
    lit, ambient, cover = march(*size, local, seed, .30, sun_right)
    colour = linear('3e3350') * .55
    colour = colour + (linear('a07f92') * .42 - colour) * np.clip(ambient, 0, 1)[..., None] * .9
    colour = colour + linear('ffcf95') * 1.05 * (np.clip(lit, 0, 1) ** 1.1)[..., None]
    part = np.s_[y0:y0 + size[1], x0:x0 + size[0]]
    near = np.exp(-np.hypot(X[part] - SUN[0], Y[part] - SUN[1]) / 130)[..., None]
    colour = colour * (1 + .5 * near * linear('ffd080'))
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


def grade(c):
    """Bloom, tone curve, vignette and a little more colour; returns sRGB."""
    bright = np.clip(c - .85, 0, 2)
    c = c + gaussian_filter(bright, [7, 7, 0]) * .35 + gaussian_filter(bright, [30, 30, 0]) * .16
    c = c * 1.12
    c = c / (1 + .16 * c) * 1.10
    corner = np.clip(np.hypot((X - W / 2) / 520, (Y - 330) / 430) - .55, 0, 1) ** 1.4
    o = np.clip(linear_to_srgb(np.clip(c * (1 - .42 * corner)[..., None], 0, 1)), 0, 1)
    grey = o.mean(2, keepdims=True)
    o = np.clip(grey + (o - grey) * 1.10, 0, 1)
    return np.clip((o - .5) * 1.05 + .5, 0, 1)


def kuwahara(o, r):
    """Every pixel takes the mean of the calmest of its four quarters: brush strokes."""
    def quarter(a, sy, sx):
        size = (r + 1, r + 1) + (0,) * (a.ndim - 2)
        return np.roll(uniform_filter(a, size), (sy * (r // 2 + 1), sx * (r // 2 + 1)), (0, 1))
    grey, best, calm = o.mean(2), None, None
    for sy in (-1, 1):
        for sx in (-1, 1):
            mean = np.dstack([quarter(o[..., i], sy, sx) for i in range(3)])
            var = quarter(grey * grey, sy, sx) - quarter(grey, sy, sx) ** 2
            if best is None:
                best, calm = mean, var
            take = var < calm
            best, calm = np.where(take[..., None], mean, best), np.where(take, var, calm)
    return best


def paint(o, light):
    pad = np.pad(o, ((8, 8), (8, 8), (0, 0)), mode='edge')
    o = o * .45 + kuwahara(pad, 3)[8:-8, 8:-8] * .55
    light = np.clip(light, 0, 3)
    glow = gaussian_filter(light, [6, 6, 0]) * .6
    c = (srgb_to_linear(o) + light * .9 + glow) / (1 + .10 * light)
    grain = fbm(H, W, 5, .6)[..., None]
    return np.clip(linear_to_srgb(np.clip(c, 0, 1)) * (1 + .018 * grain), 0, 1)


def make(work):
    c = air(render(work))
    c = waterline(c, FIRST, 61)
    c = waterline(c, SECOND, 62)
    c = smoke(c, (0, 310), (380, 150), gun_smoke(FIRST), 21, True)
    c = smoke(c, (440, 310), (360, 150), gun_smoke(SECOND), 35, False)
    picture = paint(grade(c), flashes(c))
    return Image.fromarray((picture * 255 + .5).astype('uint8'))
