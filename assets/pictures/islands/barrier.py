# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""From heights, ground colours and plants to the finished barrier in its surf.

To change: `sandy_shallows` and `stony_shallows` colour the water, `fading` lays out its edge; how
wide each is, every barrier says itself in its `make`.
"""
from pathlib import Path

import numpy as np
from PIL import Image
from scipy.ndimage import distance_transform_edt, gaussian_filter

from common import povray
from common.light import SUN, normals
from common.noise import smoothstep
from common.palette import linear
from common.raster import layer, over, read_layer, read_light, reduce, to_image
from islands.terrain import CELLS, SEA_FLOOR

HERE = Path(__file__).resolve().parent
# The way the swell runs over the picture, as in sea/voda.py.
SWELL = np.array([.62, .79])


def write_inputs(g, plants, work):
    level = np.clip((g.height - SEA_FLOOR) / (g.top - SEA_FLOOR), 0, 1)
    Image.fromarray((level * 65535).astype('uint16')).save(work / 'height.png')
    ground = (np.clip(g.colour, 0, 1) * 255).astype('uint8')
    Image.fromarray(ground).save(work / 'ground.png')
    (work / 'plants.inc').write_text('#declare Plants = union{ sphere{<0,-500,0>,.1}\n%s\n}\n'
                                     % '\n'.join(plants))


def render(g, work):
    libraries = povray.prepare(work, HERE)
    size = g.shape[::-1]
    options = {'W': g.w, 'H': g.h, 'Top': g.top}
    land, cast = work / 'land.png', work / 'shadow.png'
    povray.render(HERE / 'barrier.pov', land, size, libraries, True, .2, Shadow=0, **options)
    povray.render(HERE / 'barrier.pov', cast, size, libraries, False, .3, Shadow=1, **options)
    return read_layer(land, CELLS), read_light(cast)


def weather_side(g):
    """1 off shores on which the swell runs, 0 in their lee."""
    gy, gx = np.gradient(gaussian_filter(g.offshore - g.inland, 4 * CELLS))
    along = (gx * SWELL[0] + gy * SWELL[1]) / np.maximum(np.hypot(gx, gy), 1e-6)
    return np.clip(.5 - .5 * along, 0, 1)


def fading(g, corner, ragged, low, high):
    """The water's own strength: it dies away inside the rectangle that stops a ship, here soon
    and there late, so that no side of the rectangle shows. It is `corner` round at the corners,
    begins up to `ragged` inside, and takes from `low` to `high` pixels.
    """
    qx, qy = np.abs(g.x) - (g.w / 2 - corner), np.abs(g.y) - (g.h / 2 - corner)
    outside = np.hypot(np.clip(qx, 0, None), np.clip(qy, 0, None))
    inside = corner - outside - np.minimum(np.maximum(qx, qy), 0)
    broad = g.noise(1.5, 60, 14, 73) + .5 * g.noise(1.2, 14, 5, 74)
    fine = .5 * g.noise(1., 6, 2.5, 75)
    shore = smoothstep(broad, -1.1, 1.3)
    return smoothstep(inside - ragged * shore + fine, 0, low + (high - low) * shore)


def beside_sand(g):
    """1 on the water's edge of a sandbank, fading outwards."""
    if not g.sandy.any():
        return np.zeros(g.shape)
    away = distance_transform_edt(~g.sandy) / CELLS + .8 * g.noise(1.2, 14, 4, 78)
    return np.exp(-(np.clip(away, 0, None) / 5.5) ** 1.6)


def drowned_stone(g):
    """What lies under the water, in its own colours and in the sun."""
    floor = gaussian_filter(g.height, .5 * CELLS)
    shade = np.clip((normals(floor * CELLS) * SUN).sum(2) / SUN[2], .45, 1.5)
    mottled = 1 + .1 * g.noise(1., 6, 1.5, 77)
    return linear('drowned') * (shade * mottled)[..., None]


def shelf_water(g, shelf, front):
    """Shallow water over stone, which shows through it the darker the shallower."""
    depth = gaussian_filter(np.clip(-g.height, 0, None), .4 * CELLS)
    d = g.offshore * (1 + .3 * g.noise(1.3, 30, 5, 71)) / shelf
    colour = linear('lagoon') + (linear('lagoon_pale') - linear('lagoon')) * (
        (.15 + .45 * front) * np.exp(-d ** 1.4))[..., None]
    sand = beside_sand(g)
    colour = colour + (linear('lagoon_pale') - colour) * .8 * sand[..., None]
    stone = np.exp(-np.clip(depth - .4, 0, None) / 1.6) * .85 * (1 - sand)
    colour = colour + (drowned_stone(g) - colour) * stone[..., None]
    clear = np.exp(-(np.clip(d - .2, 0, None) / 1.1) ** 1.6) * .85
    return layer(colour, np.maximum(clear, .85 * stone))


def lace(g):
    """Foam as it lies on water, up to about 1: threads round holes."""
    threads = 1 - np.abs(g.noise(1.1, 14, 4, 82)) / 1.1
    return threads + .15 * g.noise(.8, 5, 1.5, 83)


def breakers(g, surge, front):
    """Foam: thick where the swell breaks, a thread in the lee, and none here and there."""
    broad = g.noise(1.2, 22, 6, 81)
    reach = surge * (.2 + .9 * front ** 1.5) * np.clip(.9 + .75 * broad, .1, 2.6)
    amount = np.exp(-(g.offshore / np.maximum(reach, .3)) ** 1.5) * (g.offshore > 0)
    threads = lace(g)
    foam = smoothstep(amount * 1.15 + .8 * (threads - .62), .25, 1.2)
    return foam * (1 - .55 * beside_sand(g)) * np.clip(.62 + .36 * threads, .3, 1)


def wash(g, front):
    """The last of a wave, running up the low stones on the weather side."""
    up = np.clip(2.2 * front + .9 * g.noise(1.2, 14, 4, 84) - .9, 0, 2.6)
    return smoothstep(up - g.inland, 0, 1.2) * (g.inland > 0) * np.clip(.5 + .3 * lace(g), 0, .9)


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
    """Foam on the shore and in broken lines further out: (distance, width, amount) each."""
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


def stony_shallows(g, shelf, surge):
    """The water round naked rock."""
    front = weather_side(g)
    return over(layer(linear('foam'), breakers(g, surge, front) * .93),
                shelf_water(g, shelf, front))


def compose(g, land, light, water, edge):
    light = np.clip(light / np.percentile(light, 98), 0, 1)
    water = over(layer(linear('shadow'), gaussian_filter(1 - light, 2) * .68), water)
    return over(land, reduce(water * fading(g, *edge)[..., None], CELLS))


def make(g, plants, work, water, edge, spray=0.):
    """The finished picture; `water` is one of the shallows above, `edge` is for `fading`, `spray`
    how much of the stones the waves wash over.
    """
    write_inputs(g, plants, work)
    picture = compose(g, *render(g, work), water, edge)
    if spray:
        foam = layer(linear('foam'), spray * wash(g, weather_side(g)))
        picture = over(reduce(foam, CELLS) * picture[..., 3:], picture)
    print('%s: %.0f %% solid' % (work.name, 100 * (picture[..., 3] > .5).mean()))
    return to_image(picture)
