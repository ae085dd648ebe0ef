# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""From heights, ground colours and plants to the finished barrier in its surf.

To change: `lagoon` and `surf` colour the water, `shoal` lays out its edge; how wide each is,
every barrier says itself in its `make`.
"""
from pathlib import Path

import numpy as np
from PIL import Image
from scipy.ndimage import gaussian_filter

from common import povray
from common.noise import smoothstep
from common.palette import linear
from common.raster import layer, over, read_layer, read_light, reduce, to_image
from islands.terrain import CELLS, SEA_FLOOR

HERE = Path(__file__).resolve().parent


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


def shoal(g, corner, ragged):
    """How far inside the shoal's edge a cell lies. The edge fills the barrier's rectangle up to
    rounded corners, since a ship is stopped there, but wanders as the edge of a reef does.
    """
    qx, qy = np.abs(g.x) - (g.w / 2 - corner), np.abs(g.y) - (g.h / 2 - corner)
    outside = np.hypot(np.clip(qx, 0, None), np.clip(qy, 0, None))
    inside = corner - outside - np.minimum(np.maximum(qx, qy), 0)
    bays = g.noise(1.5, 64, 14, 73) + .45 * g.noise(1.2, 14, 5, 74) + .22 * g.noise(1., 5, 2, 75)
    # Only inwards: beyond the rectangle nothing can be drawn, so what stands out is cut straight.
    return inside - ragged * np.clip(.55 + .55 * bays, 0, 2.2)


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


def surf(g, breakers, wide, fine):
    """Foam on the shore and in broken lines further out: (distance, width, amount) each."""
    d = g.offshore + 1.1 * wide + .5 * fine
    foam = np.exp(-(np.clip(d - .4, 0, None) / 1.5) ** 2) * np.clip(.86 + .18 * fine, 0, 1)
    foam = foam * (g.offshore > 0)
    for at, width, amount, base in breakers:
        line = np.exp(-((d - at) / width) ** 2)
        foam = np.maximum(foam, line * np.clip(base + .5 * wide + .25 * fine, 0, 1) * amount)
    return np.clip(foam, 0, 1)


def outer_surf(inside, fade, wide, fine):
    """The swell breaking over the shoal's edge, in patches: it tells where a ship is stopped."""
    line = np.exp(-((inside - .55 * fade + .5 * fine) / (.22 * fade)) ** 2)
    return line * np.clip(.30 + .42 * wide + .30 * fine, 0, 1)


def compose(g, land, light, corner, fade, ragged, reach, pale, breakers):
    wide, fine = g.noise(1.2, 22, 3, 71), g.noise(.9, 7, 1.2, 72)
    inside = shoal(g, corner, ragged)
    ramp = smoothstep(inside, 0, fade)
    water = lagoon(g, reach, pale, wide, fine)
    foam = np.maximum(surf(g, breakers, wide, fine), outer_surf(inside, fade, wide, fine))
    water = over(layer(linear('foam'), foam * .95), water)
    light = np.clip(light / np.percentile(light, 98), 0, 1)
    water = over(layer(linear('shadow'), gaussian_filter(1 - light, 2) * .5), water)
    return over(land, reduce(water * ramp[..., None], CELLS))


def make(g, plants, work, **style):
    write_inputs(g, plants, work)
    land, light = render(g, work)
    picture = compose(g, land, light, **style)
    print('%s: %.0f %% solid' % (work.name, 100 * (picture[..., 3] > .5).mean()))
    return to_image(picture)
