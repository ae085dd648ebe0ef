# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The menu's painting: two ships exchanging broadsides at dusk.

POV-Ray renders the ships; sky, sea, foam, smoke and gunfire are calculated round them. All of it
is painted at twice the size, brush strokes included, and reduced at the end, so that every edge
is smooth. To change: the ships' places are in camera.py, the gunfire in gunfire.py, the light in
dusk.py, the water in sea.py and foam.py, and the brush strokes in `paint`.
"""
from pathlib import Path

import numpy as np
from PIL import Image

from common import povray
from common.light import linear_to_srgb, srgb_to_linear
from common.noise import smoothstep
from common.palette import linear
from common.raster import read_layer, reduce, to_solid
from painting import dress, foam, gunfire, sky, vessel
from painting.brush import kuwahara, lay, strokes
from painting.camera import FIRST, SECOND, VIEW
from painting.dusk import Dusk, glitter
from painting.sea import Sea

HERE = Path(__file__).resolve().parent
W, H = 800, 600
SCALE = 2
FRAME = int(2 * VIEW.horizon)        # rows of the camera's frame, whose middle is the horizon


def render_ships(work):
    """The ships on a clear ground, linear and premultiplied."""
    dress.write(work)
    libraries = povray.prepare(work, HERE)
    placed = ''
    for pose, sun in ((FIRST, 1), (SECOND, -1)):
        vessel.write(work / (pose.name.lower() + '.inc'), pose.name, pose.wind(), pose.brace,
                     pose.courses)
        placed += 'Lit(object{ %s %s }, %d)\n' % (pose.name, pose.matrix(), sun)
    (work / 'poses.inc').write_text(placed)
    povray.render(HERE / 'duel.pov', work / 'ships.png', (SCALE * W, SCALE * FRAME), libraries,
                  rows=SCALE * H, Eye=VIEW.eye, Focus=VIEW.focus)
    return read_layer(work / 'ships.png')[:SCALE * H]


def mirrored(layers):
    """For the sea: what its rays see of the ships."""
    def look(sea, rays, seen):
        clear = seen
        for pose, ship in layers:
            seen = sea.reflect(rays, seen, ship * (.6, .6, .65, 1), pose.spot[2], VIEW, SCALE)
        # On near waves the reflection of a ship would break into specks.
        return clear + (seen - clear) * smoothstep(sea.z, 35, 95)[..., None]
    return look


def backdrop(dusk):
    """Sky over the whole picture and its look-up."""
    colours = sky.lookup(sky.paint())
    azimuth = np.arctan((dusk.x - VIEW.middle) / VIEW.focus)
    lift = np.arctan((VIEW.horizon - 1.5 - dusk.y) / VIEW.focus * np.cos(azimuth))
    return colours(azimuth, lift), colours


def action(dusk, c, halves, sea):
    """The ships, their images in the water, their smoke and their fire over sky and sea."""
    light = 0
    for pose, ship, part, seed in ((FIRST, halves[0], ((0, 230), (400, 250)), 51),
                                   (SECOND, halves[1], ((400, 230), (400, 250)), 65)):
        c = gunfire.smoke(c, dusk, *part, gunfire.bank(pose, (-14, 44), 6, .4), seed)
        cover = foam.afloat(dusk, pose, sea, ship[..., 3])
        colour = dusk.warm(ship[..., :3] / np.maximum(ship[..., 3:], 1e-4))
        far = .04 if pose is FIRST else .08
        c = lay(c, lay(colour, linear('d88a62') * .8, np.full(cover.shape, far)), cover)
        c = foam.mirror(c, dusk, pose, sea, np.dstack([ship[..., :3], cover]), seed + 20)
        c = foam.waterline(c, dusk, pose, sea, seed + 10)
        near = gunfire.flashes(pose)
        c = gunfire.smoke(c, dusk, *part, gunfire.puffs(pose), seed + 3, None, near)
        light = light + gunfire.tongues(dusk, pose)
    return c + light


def compose(work):
    dusk = Dusk(W, H, SCALE)
    ships = render_ships(work)
    halves = [ships * side[..., None] for side in (dusk.x < 400, dusk.x >= 400)]
    c, colours = backdrop(dusk)
    sea = Sea(W, H, SCALE)
    water = sea.water(colours, mirrored(list(zip((FIRST, SECOND), halves))), glitter)
    c[sea.top:] = sea.whitecaps(dusk.ripples(water, sea.top))
    c = dusk.horizon(dusk.haze(c) + dusk.path())
    return dusk, action(dusk, c, halves, sea), ships[..., 3]


def paint(o, ships):
    """Broad strokes in sky and sea, narrow ones in the ships, and a trace of canvas grain."""
    broad = kuwahara(np.pad(o, ((16, 16), (16, 16), (0, 0)), mode='edge'), 6)[16:-16, 16:-16]
    o = lay(o, broad, .28 * (1 - ships))
    return strokes(o, 5, 2.5)


def make(work):
    dusk, c, ships = compose(work)
    o = paint(dusk.grade(c), ships)
    o = linear_to_srgb(reduce(srgb_to_linear(o), SCALE))
    grain = Dusk(W, H, 1).noise(5, .6)[..., None]
    o = np.clip(o * (1 + .005 * grain), 0, 1)
    return to_solid(Image.fromarray((o * 255 + .5).astype('uint8')))
