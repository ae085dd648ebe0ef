# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Powder smoke: a small volume of noise, lit by marching through it.

To change: the raggedness in `density`, and DRAWN. The painting's script says where the smoke is.
"""
import numpy as np

DEPTH = 72
SHEAR = 1.5     # the wind carries what has risen farther to the right
DRAWN = 2.2     # how much longer than high the wind draws every wisp


def noise3(shape, seed, slope, lowest):
    r = np.random.RandomState(seed)
    f = [np.fft.fftfreq(n) * 360. for n in shape]
    k = np.sqrt(f[0][:, None, None] ** 2 + f[1][None, :, None] ** 2
                + (DRAWN * f[2][None, None, :]) ** 2)
    k[0, 0, 0] = 1e9
    amplitude = k ** -slope
    amplitude[k < lowest] = 0
    x = np.fft.ifftn(amplitude * np.fft.fftn(r.normal(size=shape))).real
    return (x / x.std()).astype(np.float32)


def density(w, h, puffs, seed):
    shape = (DEPTH, h, w)
    ragged = .30 * noise3(shape, seed, 2.3, 5) + .20 * noise3(shape, seed + 1, 1.7, 14)
    clear, r = np.ones(shape, np.float32), np.random.RandomState(seed + 2)
    for px, py, size, strength in puffs:
        for _ in range(12):
            a = r.rand() * 6.28
            cy = py + np.sin(a) * size * .50 * r.rand() ** .5
            cx = px + np.cos(a) * size * 1.2 * r.rand() ** .5 + SHEAR * (py - cy)
            cz = DEPTH / 2 + r.normal() * min(size * .3, DEPTH * .16)
            radius = size * (.20 + .40 * r.rand())
            ball(clear, ragged, (cz, cy, cx), radius, strength)
    return 1 - clear


def ball(clear, ragged, middle, radius, strength):
    """Balls melt into each other and thin out slowly: a hard edge looks like dough."""
    # The raggedness carries no wisp further than this.
    reach = 2.4 * radius * np.array([1, 1, DRAWN])
    box = tuple(slice(max(0, int(at - far)), max(0, min(n, int(at + far) + 1)))
                for at, far, n in zip(middle, reach, clear.shape))
    z, y, x = np.ogrid[box]
    cz, cy, cx = middle
    aside = (x - cx) / DRAWN
    away = np.sqrt(aside ** 2 + (y - cy) ** 2 + (z - cz) ** 2) / radius + ragged[box]
    clear[box] *= 1 - np.clip((1.12 - away) / .8, 0, 1) ** 1.4 * strength


def before(d, axis):
    """Optical depth in front of every cell along an axis; negative axes count from the end."""
    if axis >= 0:
        return np.cumsum(d, axis) - d
    return np.flip(before(np.flip(d, -axis - 1), -axis - 1), -axis - 1)


def march(w, h, puffs, seed, k=.16, sun_right=True):
    """(sunlight, ambient light, coverage) of the smoke on a w x h piece of the picture."""
    d = density(w, h, puffs, seed)
    above, behind = before(d, 1), before(d, -1)
    aside = before(d, -3) if sun_right else before(d, 2)
    sun = .40 * np.exp(-k * .9 * above) + .60 * np.exp(-k * .75 * (.55 * aside + .45 * behind))
    sky = np.exp(-k * .35 * above)
    lit, ambient, through = np.zeros((h, w)), np.zeros((h, w)), np.ones((h, w))
    for i in range(DEPTH):
        a = 1 - np.exp(-k * d[i])
        lit += through * a * sun[i]
        ambient += through * a * sky[i]
        through = through * (1 - a)
    cover = 1 - through
    share = np.maximum(cover, 1e-4)
    return lit / share, ambient / share, cover
