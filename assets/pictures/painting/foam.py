# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What the sea shows of a painted ship: foam along her waterline, and her image below it.

To change: `crest` is the wave under her bow, in metres; the colours are in `waterline`.
"""
import numpy as np
from scipy.ndimage import gaussian_filter, map_coordinates

from common.noise import smoothstep
from common.palette import linear
from painting.brush import lay
from painting.camera import VIEW

DEEP = 98.          # pixels below her waterline where a ship's image is lost
WAVES = 3.          # how much the slopes of the waves bend it


def profile(pose, sea):
    """Along her visible waterline: x, y, metres per pixel and share of her length."""
    points = pose.waterline()
    points[:, 1] = sea.height(points[:, 0], points[:, 2])
    x, y = VIEW.project(points).T
    # Behind her widest point the side turns away and is hidden.
    seen = np.argmin(x * np.sign(x[-1] - x[0]))
    part = np.linspace(0, 1, len(points))
    return x[seen:], y[seen:], points[seen:, 2] / VIEW.focus, part[seen:]


def across(x, line, values):
    order = np.argsort(line)
    return np.interp(x, line[order], values[order])


def crest(metres):
    """Height of the water along her side, metres behind the stem: bow wave, trough and quarter."""
    return (1.8 * np.exp(-((metres - 1.6) / 2.4) ** 2) + .45 * np.exp(-((metres - 9) / 4) ** 2)
            + .25 * np.exp(-((metres - 40) / 7) ** 2))


def afloat(dusk, pose, sea, cover):
    """Her coverage without what lies under water."""
    x, y, _, _ = profile(pose, sea)
    level = across(dusk.x, x, y)
    mine = (dusk.x > x.min() - 60) & (dusk.x < x.max() + 60)
    return cover * np.where(mine, np.clip((level - dusk.y) * dusk.scale + .5, 0, 1), 1)


def waterline(c, dusk, pose, sea, seed):
    """Foam along the hull, the wave under her bow, and the torn water behind her stern."""
    x, y, pixel, part = profile(pose, sea)
    level, metre = across(dusk.x, x, y), 1 / across(dusk.x, x, pixel)
    # Beyond bow and stern, the scale at that end applies.
    ahead = np.sign(x[-1] - x[0])
    length = 46. / abs(x[-1] - x[0])
    gone = np.where((dusk.x - x[-1]) * ahead < 0, (1 - across(dusk.x, x, part)) * 46,
                    (x[-1] - dusk.x) * ahead * length)      # metres behind the stem
    behind = np.where((x[0] - dusk.x) * ahead > 0, (x[0] - dusk.x) * ahead * length, 0)
    gone = gone + behind
    n, fine = dusk.noise(seed, 1.25, sx=2.2), dusk.noise(seed + 7, .8, sx=1.8)
    above = (level - dusk.y) / metre
    high = crest(gone) * (1 + .30 * np.clip(n, -1, 2)) + .20 * fine + .10
    body = smoothstep(high - above, -.05, .45)
    reach = .35 + 1.3 * np.exp(-((gone - 4) / 6) ** 2) + .008 * gone
    body = body * np.exp(-(np.clip(-above, 0, None) / (reach * (1 + .3 * n))) ** 2)
    inside = smoothstep(gone, -3.2, -.6) * (1 - smoothstep(gone, 44, 47))
    torn = smoothstep(.5 * n + .45 * fine, -.75, .9) * (
        .50 + .50 * np.exp(-np.clip(gone - 4, 0, None) / 8))
    torn = np.maximum(torn, .75 * np.exp(-(gone / 5.5) ** 2))
    body = body * inside * torn
    wake = np.exp(-((above + .5 + .05 * behind) / (.5 + .05 * behind)) ** 2) * (behind > 0)
    wake = wake * np.exp(-behind / 26) * np.clip(.4 + .4 * n + .3 * fine, 0, 1)
    spray = .6 * smoothstep(.6 * fine + .8 * n, .5, 1.8)
    spray = spray * np.exp(-((above - 1.2 * high) / 1.1) ** 2)
    spray = spray * np.exp(-((gone - 1) / 4.) ** 2) * (above > 0)
    foam = np.clip(np.maximum.reduce([body, .8 * wake, .8 * spray]), 0, .93)
    light = np.clip(.18 + .55 * above / np.maximum(high, .5) + .25 * fine, 0, 1)
    light = np.maximum(light, spray)[..., None]
    colour = linear('434659') * (1 - light) + linear('ffd6a6') * .85 * light
    # Between wet planks and foam lies a dark line: her own shadow on the water.
    contact = .6 * np.exp(-((above + .25) / np.where(above > -.25, .30, .9)) ** 2) * inside
    return lay(lay(c, linear('17121f'), contact), colour,
               gaussian_filter(foam, .45 * dusk.scale))


def image(layer, level, x, y, ripple, scale):
    """A layer turned over below the waterline `level`, drawn out and broken by the waves."""
    down = np.clip(y - level, 0, None)
    row = (level - .5 - down * 1.15 + (.6 + .03 * down) * ripple) * scale
    column = (x + ripple * (.7 + .07 * down)) * scale
    return np.stack([map_coordinates(layer[..., i], [row, column], order=1)
                     for i in range(layer.shape[2])], -1) * (y > level)[..., None]


def mirror(c, dusk, pose, sea, ship, seed):
    """The ship's image in the water in front of her; it fades where the sea gets rough and near."""
    x, y, _, _ = profile(pose, sea)
    level = gaussian_filter(across(dusk.x, x, y), (0, 6 * dusk.scale))
    ripple = .7 * dusk.noise(seed, 1.1, sx=5.) + .5 * dusk.noise(seed + 1, 1.5, sx=3.)
    # The painted waves themselves bend the image, so that it lies in the water and not on it.
    ripple[sea.top:] += WAVES * sea.sz
    down = np.clip(dusk.y - level, 0, None)
    # The farther from her, the more the waves break it, until only streaks are left.
    soft = gaussian_filter(ship, (1.5 * dusk.scale, 3 * dusk.scale, 0))
    seen = image(soft, level, dusk.x, dusk.y, ripple * (1 + down / 40), dusk.scale)
    strength = .95 * np.clip(1 - down / DEEP, 0, 1) * np.clip(.85 + .35 * ripple, .25, 1)
    strength = strength * smoothstep(ripple + 1.4 - down / 45, -.6, .9)
    seen = seen * strength[..., None]
    # Broken by the waves, pale cloth takes the colour of the evening.
    colour = seen[..., :3] * linear('f0b088') * .8
    return c * (1 - seen[..., 3:]) + colour + seen[..., 3:] * linear('2b2438') * .4
