# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Broadsides: tongues of fire from the ports and the smoke that rises from them.

A broadside runs along the ship. A gun that has just fired shows its flash; smoke from
earlier shots has spread and drifted with the wind.
To change: AGES says which guns of a ship fired, and when.
"""
import numpy as np

from common.noise import fbm, smoothstep
from common.palette import linear
from painting.brush import enlarge, lay
from painting.camera import VIEW, WIND
from painting.smoke import march

# Seconds since each gun fired, from stern to bow; None for a gun that has not.
AGES = {'First': (None, .06, 3.6, None, .03, 2.4, None, .08, 1.5),
        'Second': (2.8, None, .07, 3.6, None, .04, 2., None, .03)}
LOBES = 6           # tongues of one flash
FLASH = .3          # seconds that one lasts
REACH = 6.5         # metres
BLOW = np.array([np.cos(np.radians(WIND)), 0, np.sin(np.radians(WIND))])


def guns(pose):
    points, aim = pose.muzzles()
    return [(p, aim, age) for p, age in zip(points, AGES[pose.name]) if age is not None]


def puffs(pose):
    """(x, y, radius, density) in finished pixels of the smoke of one ship's broadside."""
    out = []
    for k, (muzzle, aim, age) in enumerate(guns(pose)):
        for part in np.linspace(.15, 1, 8):
            t = age * part
            at = muzzle + aim * (1.2 + 5.5 * (1 - np.exp(-1.6 * t)) * (1.3 - .6 * part))
            at = at + BLOW * (4.6 * t) + (0, 1.2 * t + .5 * np.sin(3. * k + part), 0)
            out.append(seen(at, .8 + .9 * t ** .75, .20 * np.exp(-.30 * t)))
        if age < FLASH:
            out += fresh(muzzle, aim, age)
    return out


def seen(at, size, strength):
    """A puff of a size in metres as (x, y, radius, density)."""
    (x, y), = VIEW.project(at[None])
    return x, y, size * VIEW.focus / at[2], strength


def fresh(muzzle, aim, age):
    """The thick smoke that a shot throws out beyond its flame; the wind has not reached it yet."""
    out = []
    for part in np.linspace(0, 1, 4):
        at = muzzle + aim * (2. + (3. + 14 * age) * part) + BLOW * (1.2 * part)
        out.append(seen(at + (0, .5 + 1.2 * part, 0), 1.1 + 1.3 * part + 3 * age, .50))
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
    """Smoke on a part of the picture; `cover_by` masks what is in front of it."""
    x0, y0 = corner
    w, h = size
    local = [(x - x0, y - y0, r, d) for x, y, r, d in clouds]
    lit, ambient, cover = march(w, h, local, seed, .30, x0 < 300)
    n = dusk.scale
    lit, ambient, cover = (enlarge(a, n) for a in (lit, ambient, cover))
    part = np.s_[y0 * n:(y0 + h) * n, x0 * n:(x0 + w) * n]
    colour = linear('4a4058') * .66
    colour = colour + (linear('9a8f9e') * .50 - colour) * np.clip(ambient, 0, 1)[..., None] * .9
    colour = colour + linear('ffc488') * 1.2 * (np.clip(lit, 0, 1) ** 1.4)[..., None]
    for (x, y), strength in flashes:
        near = np.exp(-np.hypot(dusk.x[part] - x, dusk.y[part] - y) / 15)
        colour = colour + (.8 * strength * near)[..., None] * linear('ff9a40')
    if cover_by is not None:
        cover = cover * (1 - cover_by[part])
    c = c.copy()
    c[part] = lay(c[part], colour, cover * .93)
    return c


def flashes(pose):
    """[(position, strength)] of the guns that are firing."""
    return [(tuple(VIEW.project(p[None])[0]), 1 - (age / FLASH) ** 2 * .8)
            for p, _, age in guns(pose) if age < FLASH]


def tongues(dusk, pose):
    """Light of the flames, to be added: no two are alike, for each has its own age and shape."""
    light = np.zeros(dusk.x.shape + (3,))
    rough = fbm(*dusk.x.shape, 71, 1.45, size=2048)
    for k, (muzzle, aim, age) in enumerate(guns(pose)):
        if age > FLASH:
            continue
        strength = 1 - (age / FLASH) ** 2 * .8
        start, end = VIEW.project(np.stack([muzzle, muzzle + aim * REACH]))
        near = np.hypot(dusk.x - start[0], dusk.y - start[1])
        rows, columns = np.nonzero(near < 60)
        part = np.s_[rows.min():rows.max() + 1, columns.min():columns.max() + 1]
        flame = blossom(dusk.x[part], dusk.y[part], start, end, age, rough[part], k)
        # The middle is white, the rim red; an old flame has hardly any white left.
        light[part] += (1.5 * strength * flame ** 2.8)[..., None] * linear('ffefc0')
        light[part] += (1.4 * flame ** 1.2)[..., None] * linear('ff9a38')
        light[part] += (.7 * flame ** .6)[..., None] * linear('e2501c')
        halo = .05 * strength * np.exp(-near / 6) + .022 * np.exp(-near / 26)
        halo = halo + strength * on_water(dusk, muzzle + aim * .4 * REACH)
        light += halo[..., None] * linear('ff8434')
    return light


def blossom(x, y, start, end, age, rough, seed):
    """A flame as several tongues: first a narrow jet, then a ragged ball that leaves the mouth."""
    r, old = np.random.RandomState(60 + seed), age / FLASH
    straight = np.arctan2(*(end - start)[::-1])
    # One that points at the eye looks short, but is never drawn as a mere dot.
    long = max(np.hypot(*(end - start)), 27.) * (.8 + .5 * r.rand())
    flame = np.zeros(x.shape)
    for _ in range(LOBES):
        turn = straight + r.normal() * (.06 + .6 * old)
        length = long * (.5 + .5 * r.rand())
        along = ((x - start[0]) * np.cos(turn) + (y - start[1]) * np.sin(turn)) / length
        aside = ((y - start[1]) * np.cos(turn) - (x - start[0]) * np.sin(turn)) / length
        q = np.clip(along - .5 * old, 0, 1)
        wide = .05 + (.12 + .24 * old) * np.sqrt(q) * (1 - q) ** .5
        wide = wide * np.clip(1 + .3 * rough, .75, 1.35)
        tongue = np.exp(-(aside / wide) ** 2) * smoothstep(along, .4 * old - .12, .4 * old + .06)
        tongue = tongue * np.clip(1.1 + .4 * old - along + .15 * np.clip(rough, -1, 1), 0, 1)
        flame = np.maximum(flame, tongue)
    return flame


def on_water(dusk, flame):
    """The broken image of a flame on the sea below it."""
    (x, y), = VIEW.project((flame * (1, 0, 1))[None])
    down = np.clip(dusk.y - y, 0, None)
    waves = np.clip(.15 + .8 * dusk.noise(73, .9, sx=7.), 0, 2)
    return .62 * waves * np.exp(-((dusk.x - x) / (7 + .2 * down)) ** 2 - down / 22) * (
        smoothstep(dusk.y, y - 2, y + 1))
