# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Broadsides: tongues of fire from the ports and the smoke that rises from them.

A broadside runs along the ship. Each gun that fired has an age in seconds; young ones still
show their flash, the smoke of older ones has swollen and gone with the wind.
To change: AGES says which guns of a ship fired, and when.
"""
import numpy as np

from common.noise import fbm, smoothstep
from common.palette import linear
from painting.brush import lay
from painting.camera import VIEW, WIND
from painting.smoke import march

# From stern to bow; none has not fired.
AGES = {'First': (None, .03, None, .07, None, .11, None, .16, None, None, .9, 2.),
        'Second': (3., None, .03, None, None, .07, None, None, .11, None, None, 1.6)}
DIP = np.array([0, -.30, 0])     # the flames' heavy end sinks towards the water
FLASH = .3          # seconds that one lasts
BLOW = np.array([np.cos(np.radians(WIND)), 0, np.sin(np.radians(WIND))])


def guns(pose):
    points, aim = pose.muzzles()
    return [(p, aim, age) for p, age in zip(points, AGES[pose.name]) if age is not None]


def puffs(pose):
    """(x, y, radius, density) in finished pixels of the smoke of one ship's broadside."""
    out = []
    for k, (muzzle, aim, age) in enumerate(guns(pose)):
        for part in np.linspace(.25, 1, 4):
            t = age * part
            at = muzzle + aim * (1.2 + 5.5 * (1 - np.exp(-1.6 * t)) * (1.3 - .6 * part))
            at = at + BLOW * (3.2 * t) + (0, .95 * t + .5 * np.sin(3. * k + part), 0)
            (x, y), = VIEW.project(at[None])
            size = (.7 + 1.15 * t ** .75) * VIEW.focus / at[2]
            out.append((x, y, size, .30 * np.exp(-.25 * t) * (1 if age > FLASH else .25)))
    return out


def bank(pose, reach, rise, strength):
    """Smoke of earlier broadsides, which lies to leeward of her."""
    out = []
    for s in np.linspace(0, 1, 15):
        at = np.array(pose.spot) + BLOW * (reach[0] + (reach[1] - reach[0]) * s)
        at = at + (0, 2.5 + rise * s ** .8 + 1.2 * np.sin(9 * s), 12)
        (x, y), = VIEW.project(at[None])
        out.append((x, y, (3. + 4.2 * s + .9 * np.sin(11 * s)) * VIEW.focus / at[2],
                    .7 * strength * (1 - .75 * s)))
    return out


def smoke(c, dusk, corner, size, clouds, seed, cover_by=None, flashes=()):
    """Smoke on a part of the picture; `cover_by` is what stands before it."""
    x0, y0 = corner
    w, h = size
    local = [(x - x0, y - y0, r, d) for x, y, r, d in clouds]
    lit, ambient, cover = march(w, h, local, seed, .30, x0 < 300)
    n = dusk.scale
    lit, ambient, cover = (enlarge(a, n) for a in (lit, ambient, cover))
    part = np.s_[y0 * n:(y0 + h) * n, x0 * n:(x0 + w) * n]
    colour = linear('3e3350') * .62
    colour = colour + (linear('a07f92') * .50 - colour) * np.clip(ambient, 0, 1)[..., None] * .9
    colour = colour + linear('ffc488') * 1.0 * (np.clip(lit, 0, 1) ** 1.1)[..., None]
    for (x, y), strength in flashes:
        near = np.exp(-np.hypot(dusk.x[part] - x, dusk.y[part] - y) / 15)
        colour = colour + (1.1 * strength * near)[..., None] * linear('ff9a40')
    if cover_by is not None:
        cover = cover * (1 - cover_by[part])
    c = c.copy()
    c[part] = lay(c[part], colour, cover * .93)
    return c


def enlarge(a, n):
    """Linear interpolation to n cells a pixel."""
    h, w = a.shape
    y = np.clip((np.arange(h * n) + .5) / n - .5, 0, h - 1)
    x = np.clip((np.arange(w * n) + .5) / n - .5, 0, w - 1)
    i, j = np.minimum(y.astype(int), h - 2), np.minimum(x.astype(int), w - 2)
    fy, fx = (y - i)[:, None], (x - j)[None]
    top = a[i][:, j] * (1 - fx) + a[i][:, j + 1] * fx
    low = a[i + 1][:, j] * (1 - fx) + a[i + 1][:, j + 1] * fx
    return top * (1 - fy) + low * fy


def flashes(pose):
    """[(position, strength)] of the guns that are firing."""
    return [(tuple(VIEW.project(p[None])[0]), 1 - (age / FLASH) ** 2 * .8)
            for p, _, age in guns(pose) if age < FLASH]


def tongues(dusk, pose):
    """Light of the flames, to be added: each a ragged tongue outwards from its port."""
    light = np.zeros(dusk.x.shape + (3,))
    rough = fbm(*dusk.x.shape, 71, 1.45, size=2048)
    for k, (muzzle, aim, age) in enumerate(guns(pose)):
        if age > FLASH:
            continue
        strength = 1 - (age / FLASH) ** 2 * .8
        reach = 3.4 * (.6 + .4 * strength)
        start, end = VIEW.project(np.stack([muzzle, muzzle + (aim + DIP) * reach]))
        along = end - start
        # One that points at the eye is seen short, but never as a mere dot.
        length = max(np.hypot(*along), 8 * strength + 5)
        direction = along / max(np.hypot(*along), 1e-6)
        u = ((dusk.x - start[0]) * direction[0] + (dusk.y - start[1]) * direction[1]) / length
        v = ((dusk.y - start[1]) * direction[0] - (dusk.x - start[0]) * direction[1]) / length
        q = np.clip(u, 0, 1)
        wide = .045 + .13 * np.sqrt(q) * (1 - q) ** .5
        wide = wide * np.clip(1 + .45 * rough + .3 * np.sin(17 * u + 3 * k), .4, 2)
        flame = np.exp(-(v / wide) ** 2) * smoothstep(u, -.12, .04)
        flame = flame * np.clip(1.15 - u + .22 * rough, 0, 1) ** .8
        middle = start + .3 * along
        away = np.hypot(dusk.x - middle[0], dusk.y - middle[1])
        light += (2.6 * strength * flame ** 2)[..., None] * linear('ffe9a8')
        light += (1.2 * strength * flame ** .9)[..., None] * linear('ff8a2c')
        halo = .13 * strength * np.exp(-away / 5) + .04 * np.exp(-away / 26)
        halo = halo + strength * on_water(dusk, muzzle + aim * .4 * reach)
        light += halo[..., None] * linear('ff8434')
    return light


def on_water(dusk, flame):
    """The broken image of a flame on the sea below it."""
    (x, y), = VIEW.project((flame * (1, 0, 1))[None])
    down = np.clip(dusk.y - y, 0, None)
    waves = np.clip(.15 + .8 * dusk.noise(73, .9, sx=7.), 0, 2)
    return .62 * waves * np.exp(-((dusk.x - x) / (7 + .2 * down)) ** 2 - down / 22) * (
        smoothstep(dusk.y, y - 2, y + 1))
