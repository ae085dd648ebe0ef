# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""From heights, ground colours and plants to the finished barrier in its surf.

To change: `sandy_shallows` and `stony_shallows` colour the water, `fading` lays out its edge.
Every barrier sets their widths in its `make`.
"""
from pathlib import Path

import numpy as np
from PIL import Image
from scipy.ndimage import distance_transform_edt, gaussian_filter, shift

from common import povray
from common.light import SUN, normals
from common.noise import smoothstep
from common.palette import linear
from common.raster import layer, over, read_layer, read_light, reduce, to_image
from islands.terrain import CELLS, SEA_FLOOR

HERE = Path(__file__).resolve().parent
# The way the swell runs over the picture, as in sea/voda.py.
SWELL = np.array([.62, .79])
# How fast the shallows end behind land, as a part of how fast they end beside it.
LEE = .4


def write_inputs(g, plants, work):
    level = np.clip((g.height - SEA_FLOOR) / (g.top - SEA_FLOOR), 0, 1)
    Image.fromarray((level * 65535).astype('uint16')).save(work / 'height.png')
    ground = (np.clip(g.colour, 0, 1) * 255).astype('uint8')
    Image.fromarray(ground).save(work / 'ground.png')
    (work / 'plants.inc').write_text('#declare Plants = union{ sphere{<0,-500,0>,.1}\n%s\n}\n'
                                     % '\n'.join(plants))


def render(g, work, fill):
    libraries = povray.prepare(work, HERE)
    size = g.shape[::-1]
    options = {'W': g.w, 'H': g.h, 'Top': g.top, 'Fill': fill}
    land, cast = work / 'land.png', work / 'shadow.png'
    povray.render(HERE / 'barrier.pov', land, size, libraries, True, .2, Shadow=0, **options)
    povray.render(HERE / 'barrier.pov', cast, size, libraries, False, .3, Shadow=1, **options)
    return read_layer(land, CELLS), read_light(cast)


def weather_side(g):
    """1 in the water off exposed shores, 0 on the sheltered side."""
    gy, gx = np.gradient(gaussian_filter(g.offshore - g.inland, 4 * CELLS))
    along = (gx * SWELL[0] + gy * SWELL[1]) / np.maximum(np.hypot(gx, gy), 1e-6)
    return np.clip(.5 - .5 * along, 0, 1)


def within(g, corner):
    """How far a cell lies inside the rectangle with corners of radius `corner`."""
    qx, qy = np.abs(g.x) - (g.w / 2 - corner), np.abs(g.y) - (g.h / 2 - corner)
    outside = np.hypot(np.clip(qx, 0, None), np.clip(qy, 0, None))
    return corner - outside - np.minimum(np.maximum(qx, qy), 0)


def fading(g, corner, ragged, low, high):
    """The opacity of the water. It fades out inside the rectangle that stops a ship, at varying
    distances, so that no side of the rectangle shows. Its corners have the radius `corner`; the
    fade starts up to `ragged` pixels inside and is `low` to `high` pixels wide.
    """
    inside = within(g, corner)
    broad = g.noise(1.5, 60, 14, 73) + .5 * g.noise(1.2, 14, 5, 74)
    fine = .5 * g.noise(1., 6, 2.5, 75)
    shore = smoothstep(broad, -1.1, 1.3)
    return smoothstep(inside - ragged * shore + fine, 0, low + (high - low) * shore)


def mixed(a, b, part):
    """Two colours of the palette, mixed in linear light: `part` of the second."""
    part = np.asarray(part, float)[..., None]
    return linear(a) * (1 - part) + linear(b) * part


def open_to_swell(g):
    """1 where the swell arrives unhindered, 0 close behind what stands in its way."""
    land = gaussian_filter((g.height > 0).astype(float), .6 * CELLS)
    broken = np.zeros(g.shape)
    for step in range(2, 40, 2):
        behind = shift(land, SWELL[::-1] * step * CELLS, order=1)
        broken = np.maximum(broken, behind * np.exp(-step / 30))
    return 1 - np.clip(1.5 * gaussian_filter(broken, 1.5 * CELLS), 0, 1)


def beside_sand(g):
    """1 on the water's edge of a sandbank, fading outwards."""
    if not g.sandy.any():
        return np.zeros(g.shape)
    away = distance_transform_edt(~g.sandy) / CELLS + .8 * g.noise(1.2, 14, 4, 78)
    return np.exp(-(np.clip(away, 0, None) / 6.5) ** 1.4)


def drowned_stone(g):
    """What lies under the water, in its own colours and in the sun."""
    floor = gaussian_filter(g.height, .7 * CELLS)
    shade = np.clip((normals(floor * CELLS) * SUN).sum(2) / SUN[2], .5, 1.4)
    return mixed('drowned', 'lagoon', .45) * shade[..., None]


def downstream(g):
    """The distance from land, less where the swell carries sand and foam away from it."""
    away = g.offshore
    for step in range(2, 14, 2):
        behind = shift(g.offshore, SWELL[::-1] * step * CELLS, order=1, mode='nearest')
        away = np.minimum(away, behind + LEE * step)
    return away


def shelf_water(g, shelf, glow):
    """Shallow water over stone: clear and pale beside the stones, the colour of the sea where it
    ends."""
    wide = g.noise(1.3, 30, 5, 71)
    away = downstream(g)
    d = np.clip(away + 1.2 * wide * smoothstep(away, 0, 5), 0, None) / shelf
    # Towards the rectangle that stops a ship it takes the colour of the sea.
    middle = smoothstep(within(g, .3 * g.h) + 2 * wide, .04 * g.h, .2 * g.h)
    near = np.exp(-d ** 1.3) * (.12 + .88 * middle)
    colour = mixed('sea', 'lagoon', near)
    pale = np.maximum(glow * np.exp(-(1.7 * d) ** 1.6), .85 * beside_sand(g)) * middle
    colour = colour + (linear('lagoon_pale') - colour) * pale[..., None]
    depth = gaussian_filter(np.clip(-g.height, 0, None), .8 * CELLS)
    stone = np.exp(-np.clip(depth - .3, 0, None) / 1.3) * .6 * (1 - beside_sand(g))
    stone = stone * (.1 + .9 * middle)
    colour = colour + (drowned_stone(g) - colour) * stone[..., None]
    return layer(colour, np.clip(.74 + .24 * near, 0, .95))


def streaks(g, seed):
    """Noise drawn out along the swell, about 0 and of unit deviation."""
    along, across = g.x * SWELL[0] + g.y * SWELL[1], g.x * SWELL[1] - g.y * SWELL[0]
    rows = ((along / 5 + g.w) * CELLS).astype(int) % g.shape[0]
    columns = ((across + g.w) * CELLS).astype(int) % g.shape[1]
    return gaussian_filter(g.noise(1.2, 12, 2.2, seed)[rows, columns], .5 * CELLS)


def trailing(g, foam):
    """The same foam and what the swell carries on of it, in streaks that die away."""
    source = gaussian_filter(foam, .8 * CELLS)
    carried = np.zeros(g.shape)
    for step in range(2, 22, 2):
        moved = shift(source, SWELL[::-1] * step * CELLS, order=1)
        carried = np.maximum(carried, moved * np.exp(-step / 11))
    return np.maximum(foam, .75 * smoothstep(carried + .18 * streaks(g, 88), .22, .9))


def breakers(g, surge, front, lace):
    """Foam: thick where the swell breaks, drawn out past the stones, a thread in the lee."""
    broad, fine = g.noise(1.2, 22, 6, 81), g.noise(.9, 5, 1.8, 83)
    threads = 1 - np.abs(g.noise(1.1, 12, 3, 82)) / .9
    reach = surge * front * np.clip(.85 + .45 * broad, .15, 2.)
    amount = np.exp(-(g.offshore / np.maximum(reach, .2)) ** 1.4) * np.clip(1.6 * front, 0, 1)
    foam = smoothstep(amount + .24 * threads + .04 * fine, .35, 1.)
    line = np.exp(-(g.offshore / 1.2) ** 2) * np.clip(.45 + .5 * broad + .1 * fine, 0, .85)
    line = line * (.15 + .85 * front)
    torn = np.clip(.35 + .6 * g.noise(1.2, 16, 5, 85) + .15 * fine, 0, 1)
    outer = lace * torn * np.exp(-((g.offshore - 2. - .9 * broad) / .85) ** 2)
    # It ends in an uneven oval, at varying distances inside the rectangle.
    ends = g.h / 60 * 4. * g.noise(1.3, 34, 7, 86)
    ended = smoothstep(within(g, .46 * g.h) + ends, 2.5, 8.5)
    foam = np.maximum(trailing(g, np.maximum(foam, outer)) * ended, line)
    return foam * (g.offshore > 0) * (1 - .35 * beside_sand(g))


def wash(g, front):
    """The last of a wave, running up the low stones on the weather side."""
    up = np.clip(2.6 * front + .9 * g.noise(1.2, 14, 4, 84) - 1., 0, 2.2)
    return smoothstep(up - g.inland, 0, 1.2) * (g.inland > 0) * .8


def weather(g):
    """1 on stones that meet the swell, 0 on their lee side and behind other stones."""
    return open_to_swell(g) * smoothstep(weather_side(g), .25, .7)


def lagoon(g, reach, pale, wide, fine):
    """Shallow water: pale over sand, darker and clearer outwards, ending in a ragged edge."""
    d = np.clip(g.offshore + wide * reach * .12 + fine * .5, 0, None)
    depth = np.clip(d / reach, 0, 1)
    colour = linear('lagoon_pale') * (1 - depth[..., None] ** pale)
    colour = colour + linear('lagoon') * depth[..., None] ** pale
    mottled = 1 + .05 * wide + .05 * fine
    # Weed and coral show dark through the deeper half.
    coral = smoothstep(g.noise(1.4, 26, 5, 76), .5, 1.5) * smoothstep(d, .3 * reach, .7 * reach)
    colour = colour + (linear('sea_light') - colour) * .6 * coral[..., None]
    cover = np.exp(-np.clip(d / reach - .35, 0, None) ** 2 * 1.5) * .94
    return layer(colour * mottled[..., None], np.clip(cover, 0, .96))


def surf(g, lines, wide, fine):
    """Foam on the shore and in broken lines further out, each (distance, width, amount, base)."""
    d = g.offshore + 1.1 * wide + .5 * fine
    foam = np.exp(-(np.clip(d - .4, 0, None) / 1.5) ** 2) * np.clip(.86 + .18 * fine, 0, 1)
    foam = foam * (g.offshore > 0)
    for at, width, amount, base in lines:
        line = np.exp(-((d - at) / width) ** 2)
        foam = np.maximum(foam, line * np.clip(base + .5 * wide + .25 * fine, 0, 1) * amount)
    return np.clip(foam, 0, 1)


def sandy_shallows(g, reach, pale, lines):
    """The water round an island of sand."""
    wide, fine = g.noise(1.2, 22, 3, 71), g.noise(.9, 7, 1.2, 72)
    foam = surf(g, lines, wide, fine) * (.62 + .38 * weather_side(g))
    return over(layer(linear('foam'), foam * .95), lagoon(g, reach, pale, wide, fine))


def stony_shallows(g, shelf, surge, lace=0., glow=.45):
    """The water round naked rock: `shelf` is how far the shallows reach, `surge` the surf on the
    weather side; `lace` is the strength of a second thread of foam round the stones and `glow`
    that of the pale water beside them.
    """
    return over(layer(linear('foam'), breakers(g, surge, weather(g), lace) * .95),
                shelf_water(g, shelf, glow))


def compose(g, land, light, water, edge, dark):
    light = np.clip(light / np.percentile(light, 98), 0, 1)
    water = over(layer(linear('shadow'), gaussian_filter(1 - light, CELLS) * dark), water)
    return over(land, reduce(water * fading(g, *edge)[..., None], CELLS))


def make(g, plants, work, water, edge, spray=0., fill=1., dark=.68):
    """The finished picture; `water` is one of the shallows above, `edge` is for `fading`, `spray`
    how much of the stones the waves wash over, `fill` the light in the shade, and `dark` how dark
    the shadow on the water is.
    """
    write_inputs(g, plants, work)
    picture = compose(g, *render(g, work, fill), water, edge, dark)
    if spray:
        foam = layer(linear('foam'), spray * wash(g, weather(g)))
        picture = over(reduce(foam, CELLS) * picture[..., 3:], picture)
    print('%s: %.0f %% solid' % (work.name, 100 * (picture[..., 3] > .5).mean()))
    return to_image(picture)
