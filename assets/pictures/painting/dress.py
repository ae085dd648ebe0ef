# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Cloth and paint of the painted ships, as pictures that POV-Ray lays onto them.

There is one function for each picture; colours are sRGB in 0..1.
"""
import numpy as np
from PIL import Image

from common.noise import fbm, smoothstep
from common.palette import rgb


def colour(*stops):
    return np.array([rgb(stop) for stop in stops])


def save(work, name, o):
    Image.fromarray((np.clip(o, 0, 1) * 255 + .5).astype('uint8')).save(work / (name + '.png'))


def cloth(seed, panels, bands):
    """Canvas of narrow cloths sewn edge to edge; `bands` are reef bands, from the head down."""
    h, w = 512, 512
    y, x = np.mgrid[0:h, 0:w] / 512.
    o = np.broadcast_to(colour('f3e6c6')[0], (h, w, 3)).copy()
    tone = np.random.RandomState(seed).normal(size=panels + 1) * .022
    o *= (1 + tone[(x * panels).astype(int)] + .020 * fbm(h, w, seed, 1.9)
          + .012 * fbm(h, w, seed + 1, 1.2, sx=.4))[..., None]
    seam = np.abs((x * panels + .5) % 1 - .5)
    dark = .17 * np.exp(-(seam / .045) ** 2)
    for at in bands:
        dark = np.maximum(dark, .16 * (np.abs(y - at) < .014))
        points = np.exp(-(((x * panels * 2) % 1 - .5) / .11) ** 2) * (y > at) * (y < at + .055)
        dark = np.maximum(dark, .24 * points)
    edge = np.minimum.reduce([x, 1 - x, (1 - y), y + .01])
    dark = np.maximum(dark, .20 * (edge < .022))
    stain = smoothstep(fbm(h, w, seed + 2, 1.6), .9, 2.4) * .12
    o = o * (1 - dark - stain)[..., None] + colour('8a6a42')[0] * (.30 * dark)[..., None]
    return o


def side_paint(band, upper):
    """The ship's side over its length and from 1.62 of the sheer's height to below the water."""
    h, w = 768, 2048
    y, x = np.mgrid[0:h, 0:w]
    v = 1.62 - (1.62 + 1 / 3) * y / (h - 1.)
    stops = ((-.34, '4a2c1c'), (.03, '4a2c1c'), (.06, '20120c'), (.30, '2e1a10'), (.43, '301b11'),
             (.435, 'dcae58'), (.475, 'dcae58'), (.48, band), (.755, band), (.76, '24140d'),
             (.97, '2e1a10'), (1.0, upper), (1.62, upper))
    o = np.dstack([np.interp(v, [s for s, _ in stops], colour(*[c for _, c in stops])[:, i])
                   for i in range(3)])
    plank = v * 9 + .5
    seam = np.exp(-((plank % 1 - .5) / .13) ** 2)
    row = plank.astype(int) % 40
    tone = np.random.RandomState(3).normal(size=(40, 64)) * .11
    butt = (x / 150 + row * .37)
    o = o * (1 - .36 * seam + tone[row, butt.astype(int) % 64])[..., None]
    worn = fbm(h, w, 12, 1.5, sx=7.) * .07 + fbm(h, w, 14, 1.5, sy=6.) * .05
    return o * (1 + worn)[..., None]


def windows(across, rows, ground):
    """Carved and glazed panels: `rows` are (top, bottom) of lit windows, from above."""
    h, w = 384, 384
    y, x = np.mgrid[0:h, 0:w] / 384.
    o = np.broadcast_to(colour(ground)[0], (h, w, 3)) * (1 + .08 * fbm(h, w, 9, 1.4))[..., None]
    gilt, glass = colour('c9963c', 'ffcf78')
    for top, bottom in rows:
        u, q = (x * across) % 1, (y - top) / (bottom - top)
        inside = (q > 0) & (q < 1)
        frame = inside & ((u < .16) | (u > .84))
        pane = inside & (u > .2) & (u < .8) & (q > .12) & (q < .9)
        bars = pane & ((np.abs(u - .5) < .035) | (np.abs(q * 3 % 1 - .5) > .46))
        o[frame] = gilt
        o[pane] = glass
        o[bars] = colour('4a2c14')[0]
        sill = (np.abs(q + .16) < .07) | (np.abs(q - 1.12) < .07)
        o[sill] = gilt
    return o


def ensign(field, moon):
    """An ensign of one colour between golden hems: a golden sun, or a pale crescent moon."""
    h, w = 256, 384
    y, x = np.mgrid[0:h, 0:w].astype(float)
    o = np.broadcast_to(colour(field)[0], (h, w, 3)).copy()
    away, turn = np.hypot(x - 170, y - 128), np.arctan2(y - 128, x - 170)
    if moon:
        mark = (away < 78) & (np.hypot(x - 206, y - 118) > 66)
    else:
        mark = (away < 46) | ((away < 88) & (np.abs((turn * 12 / (2 * np.pi)) % 1 - .5) < .27))
    o[mark] = colour('efe4c8' if moon else 'f0b840')[0]
    o[(y < 20) | (y > h - 20)] = colour('d9a441')[0]
    return o * (1 + .08 * fbm(h, w, 5, 1.8))[..., None]


def write(work):
    save(work, 'course', cloth(1, 14, (.18,)))
    save(work, 'topsail', cloth(4, 11, (.16, .31)))
    save(work, 'jib', cloth(7, 9, ()))
    for name, field, band, upper in (('first', '8c2a22', 'b8452f', '7a2a1c'),
                                     ('second', '2c4674', '5578a4', '2d4a76')):
        save(work, 'ensign_' + name, ensign(field, name == 'second'))
        save(work, 'side_' + name, side_paint(band, upper))
    save(work, 'transom', windows(7, ((.30, .44), (.52, .68)), '3a1d10'))
    save(work, 'gallery', windows(5, ((.27, .46), (.56, .74)), '4a2815'))
