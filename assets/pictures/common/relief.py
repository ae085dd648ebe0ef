# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Materials for panels and letters: metal, wood and parchment from height maps.

There is one function per material; its ramp of colours comes from the palette.
"""
import numpy as np

from common.light import LAMP, halfway, normals
from common.noise import fbm
from common.palette import BRASS, GOLD, PARCHMENT, WOOD, linear, ramp


def mix(colours, t):
    """Interpolate along a ramp of linear colours, t in 0..1."""
    c = ramp(colours)
    q = np.clip(t, 0, 1) * (len(c) - 1)
    i = np.clip(q.astype(int), 0, len(c) - 2)
    f = (q - i)[..., None]
    return c[i] * (1 - f) + c[i + 1] * f


def metal(height, seed=1, colours=GOLD, rough=.02):
    """Polished metal: reflects an imagined studio, bright above and left, dark below."""
    n = normals(height)
    flaws = fbm(*height.shape, seed, 1.2) * rough
    r = 2 * n[..., 2:] * n - np.array([0, 0, 1.])
    t = .5 - .36 * r[..., 1] - .20 * r[..., 0] + flaws
    # Window bars in the reflection are what the eye reads as metal.
    t = t + .16 * np.sin(r[..., 1] * 7 + r[..., 0] * 3) * (1 - n[..., 2] ** 4)
    t = np.where(n[..., 2] > .995, .60 + flaws * 1.2, t)
    shine = np.clip(n @ halfway(LAMP), 0, 1) ** 60
    return mix(colours, t) + shine[..., None] * linear('fff3c0') * .7


def shade(colour, height, amount=1.):
    """Light a flat colour by the relief of a height map."""
    s = np.clip(normals(height) @ LAMP, 0, 1) / LAMP[2]
    return colour * (1 + (s - 1) * amount)[..., None]


def wood(canvas, seed, plank=None, colours=WOOD):
    """Boards with the grain along x; `plank` is the boards' width."""
    h, w = canvas.shape
    grain = fbm(h, w, seed, 1.25, sx=14., lowest=3)
    fine = fbm(h, w, seed + 1, .9, sx=40, lowest=4)
    bow = fbm(h, w, seed + 2, 2., sx=5.)
    rings = np.sin((canvas.y / 3.2 + bow * 1.6) * 2.2)
    t = np.clip(.45 + .17 * grain + .10 * fine + .13 * rings, 0, 1)
    height = .25 * fine + .35 * rings
    if plank:
        tint = np.random.RandomState(seed + 5).normal(size=999) * .09
        t = np.clip(t + tint[(canvas.y // plank).astype(int)], 0, 1)
        gap = np.minimum(canvas.y % plank, plank - canvas.y % plank)
        t = t * np.clip(.25 + gap / 1.1, 0, 1)
        height = height - 8 * np.exp(-(gap / .7) ** 2)
    light = np.clip(normals(height * .35) @ LAMP / LAMP[2], 0, 2)
    return mix(colours, t) * light[..., None]


def parchment(canvas, seed, colours=PARCHMENT):
    h, w = canvas.shape
    t = .5 + .13 * fbm(h, w, seed, 1.9) + .07 * fbm(h, w, seed + 1, 1.)
    t = t + .05 * fbm(h, w, seed + 2, .5, sx=6)
    return shade(mix(colours, t), fbm(h, w, seed + 3, 1.5) * 2.2, .35)


def moulding(canvas, distance, width, seed, colours=BRASS):
    """Brass frame for 0 < distance < width: a step, a bead and a slope inwards."""
    t = np.clip(distance / width, 0, 1)
    bead = .5 + .5 * np.clip(np.sin((t - .22) / .53 * np.pi), 0, 1) ** .8
    profile = np.where(t < .22, t / .44, np.where(t < .75, bead, .5 - 2 * (t - .75)))
    height = canvas.blur(profile * width * .7 * canvas.scale, .3)
    return metal(height, seed, colours, .03)


def rivet(canvas, colour, x, y, r, colours=BRASS):
    """Set a domed rivet with its small shadow into a surface."""
    q = canvas.radius(x, y)
    dome = metal(np.sqrt(np.clip(r * r - q * q, 0, None)) * canvas.scale, 3, colours)
    under = canvas.soft(r + .4 - canvas.radius(x + r * .26, y + r * .34))
    lit = colour * (1 - .55 * under)[..., None]
    cover = canvas.soft(r - q)[..., None]
    return lit * (1 - cover) + dome * cover


def sphere(canvas, x, y, r, rim=0.):
    """Iron ball: (colour, coverage); `rim` adds light reflected from around it."""
    q = canvas.radius(x, y)
    n = normals(np.sqrt(np.clip(r * r - q * q, 0, None)) * canvas.scale)
    diffuse = np.clip(n @ LAMP, 0, 1)[..., None]
    shine = (np.clip(n @ halfway(LAMP), 0, 1) ** 35)[..., None]
    back = np.clip((q / r - .72) / .28, 0, 1)[..., None]
    colour = linear('101114') + linear('6a6e78') * diffuse * .8 + linear('fff4e0') * shine * .95
    return colour + linear('bcd4dc') * back * rim, canvas.soft(r - q)
