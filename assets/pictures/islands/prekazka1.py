# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Barrier kind 0: an island with hills, woods, clearings and a landing place, 220 x 180.

To change: `coast` draws the outline, SPINES the hills, `beach` the sand, `clearing` and `path` the
ways; LANDING, FIELD and JETTY are the settlement's places; the numbers in `make` are the lagoon's.
"""
import numpy as np
from scipy.ndimage import gaussian_filter

from common.light import SUN, normals
from common.noise import smoothstep
from islands import barrier
from islands.terrain import CELLS, Ground, lerp, srgb

LANDING = (34, 46)          # the huts' clearing
FIELD = (-47, 40)
JETTY = (57, 59)
# The crests, each a line of points (x and y from the middle, height), then the widths of its lit
# and shaded flanks. They run across the light.
SPINES = (
    (((-70, 14, 8), (-54, -4, 27), (-40, -18, 42), (-26, -30, 34), (-8, -46, 12)), 32, 27),
    (((-40, -18, 38), (-28, -4, 24), (-16, 4, 8)), 16, 16),
    (((16, -22, 8), (32, -34, 21), (46, -46, 10)), 20, 17))


def coast(g):
    """How far inside the coast a cell lies, 0 at the waterline: bays and headlands."""
    e = g.outline(.445, .430, 2.8) + .075 * g.noise(1.6, 90, 22, 1)
    e = e + .30 * g.hump(56, 82, 24, 26)            # the bay on the lower right
    e = e + .34 * g.hump(-106, 20, 24, 20)          # a cove on the left
    e = e + .34 * g.hump(22, -92, 22, 20)           # and one above
    # Rounded before the small disturbance, or headlands come to points.
    return 1 - gaussian_filter(e, 2.5 * CELLS) - .007 * g.noise(1.3, 14, 4, 2)


def heights():
    g = Ground(220, 180, 70, 5)
    inside = coast(g)
    h = np.where(inside > 0, 24 * np.clip(inside, 0, 1) ** 1.25, 26 * inside)
    h = h + np.clip(inside, 0, .3) * 4 * g.noise(1.7, 40, 6, 3)
    hill = np.clip(np.maximum.reduce([g.ridge(*spine) for spine in SPINES]), 0, None)
    gullies = 1 - np.abs(g.noise(1.1, 26, 7, 4))
    hill = gaussian_filter(hill, 1.2 * CELLS) * (.91 + .12 * gullies)
    broken = .7 * smoothstep(hill, 3, 14)
    hill = hill + broken * (g.faceted(hill, 8., 1., 8) - hill)
    hill = hill + .35 * g.noise(1.1, 6, 2, 7) * smoothstep(hill, 5, 12)
    h = h + np.where(inside > 0, hill * smoothstep(inside, 0, .25), 0)
    g.height = h + .22 * g.noise(1, 5, 1.5, 6) * smoothstep(inside, .08, .3)
    g.settle()
    return g


def clearing(g):
    """1 where no wood grows: round the huts, along the path and in two meadows."""
    x, y = LANDING
    bare = np.maximum(g.hump(x, y, 17, 13), g.hump(-50, 40, 27, 17) * .95)
    bare = np.maximum(bare, g.hump(70, 2, 15, 20) * .9)
    return np.maximum(bare, path(g))


def path(g):
    """A trodden way from the landing up to the saddle between the hills."""
    t = np.clip((LANDING[1] - g.y) / 70, 0, 1)
    middle = LANDING[0] - 28 * t + 7 * np.sin(t * 7)
    along = (g.y < LANDING[1] + 2) & (g.y > LANDING[1] - 70)
    return np.exp(-((g.x - middle) / 2.2) ** 2) * along


def field(g):
    """The settlers' field: where it lies, and the green of its rows."""
    x, y = g.x - FIELD[0], g.y - FIELD[1]
    u, v = .94 * x + .34 * y, .94 * y - .34 * x
    edge = .5 * g.noise(1.2, 12, 3, 56)
    inside = np.minimum(14 - np.abs(u), 8.5 - np.abs(v)) + edge
    return smoothstep(inside, 0, 1.2), smoothstep(np.sin(2.3 * v), -.35, .45)


def beach(g):
    """The width of the sand: some pixels under the headlands, wide in the bays."""
    return np.clip(7.5 + 4.5 * g.noise(1.5, 110, 30, 58) + 1.5 * g.noise(1.3, 30, 4, 53), 3.5, 17)


def relief(g):
    """The light and shade of the mountain's larger faces, 1 on level ground. Deliberate: painted
    into the stone on top of the scene's own light, which alone leaves the ridge flat.
    """
    faces = gaussian_filter(g.height, .9 * CELLS)
    return np.clip((normals(faces * CELLS) * SUN).sum(2) / SUN[2], .66, 1.3)[..., None]


def ground(g):
    broad, grain = g.noise(1.3, 40, 3, 51), g.noise(.8, 6, 1, 52)
    spots = grain[..., None]
    c = srgb('sand') + .02 * broad[..., None] + .018 * spots
    # The last wave's reach: wide in one place, nothing in the next, and hardly darker at its end.
    reach = np.clip(1.1 + 1.5 * g.noise(1.4, 40, 8, 57), 0, 4.5)
    wet = (1 - smoothstep(g.inland, .3 * reach, reach + .3)) * smoothstep(reach, .1, 1.4)
    c = lerp(c, srgb('sand_wet') + .02 * spots, .55 * wet)
    green = smoothstep(g.inland - beach(g), -1.5, 2.5)
    tint = broad[..., None] * np.array([.035, .03, .01])
    c = lerp(c, srgb('grass') + tint + .02 * spots, green)
    meadow = np.maximum(smoothstep(g.noise(1.5, 50, 8, 54), .2, 1.2) * .55, clearing(g) * .9)
    c = lerp(c, srgb('meadow') * 1.12 + .03 * spots, green * meadow)
    plot, furrows = field(g)
    crops = lerp(srgb('earth') * .95 + .02 * spots, srgb('meadow') * 1.25 + .02 * spots, furrows)
    c = lerp(c, crops, green * plot * .9)
    trodden = np.maximum(path(g), .9 * g.hump(LANDING[0] - 3, LANDING[1], 15, 9))
    c = lerp(c, srgb('sand') * .92 + .02 * spots, smoothstep(trodden, .3, .8) * .8)
    stone = lerp(srgb('rock'), srgb('rock_lit'), .5) + .03 * broad[..., None] + .03 * spots
    stone = stone * relief(g)
    cliff = smoothstep(g.slope + .16 * broad, .85, 1.25) * smoothstep(g.inland, 3, 8)
    c = lerp(c, stone, cliff)
    return lerp(c, stone * 1.1, smoothstep(g.height + 2 * broad, 36, 43))


def bushes(g):
    r, out = g.random, []
    wood, bare, sand = g.noise(1.5, 60, 10, 61), clearing(g), beach(g)
    for _ in range(5200):
        x, y = (r.rand() - .5) * g.w, (r.rand() - .5) * g.h
        z, inland, slope = g.at(x, y)
        i, j = int((y + g.h / 2) * CELLS), int((x + g.w / 2) * CELLS)
        dense = wood[i, j] - 2.4 * bare[i, j]
        if inland > sand[i, j] and slope < 1. and z < 42 and dense > -.35 and r.rand() < .6:
            size = (1.3 + 1.5 * r.rand() ** 1.5) * (1.25 if dense > .9 else 1.)
            out.append('object{Bush%d scale <%.2f,%.2f,%.2f> rotate y*%d translate '
                       '<%.2f,%.2f,%.2f>}' % (r.randint(5), size, size * .9, size,
                                              r.randint(360), x, z + size * .25, -y))
    return out


def palms(g):
    r, out, places = g.random, [], []
    for _ in range(4000):
        x, y = (r.rand() - .5) * g.w, (r.rand() - .5) * g.h
        z, inland, slope = g.at(x, y)
        apart = all((x - a) ** 2 + (y - b) ** 2 > 52 for a, b in places)
        landing = 26 < x < 74 and 36 < y < 80
        if 4 < inland < 15 and slope < .9 and apart and len(places) < 56 and not landing:
            places.append((x, y))
            out.append('object{Palm%d scale %.2f rotate y*%d translate <%.2f,%.2f,%.2f>}' % (
                r.randint(3), .85 + .4 * r.rand(), r.randint(360), x, z, -y))
    return out


def settlement(g):
    x, y = LANDING
    out = []
    for dx, dy, size, turn in ((2, 2, 1.25, 25), (-14, 5, 1.05, -40), (-3, -10, .95, 80)):
        out.append('object{Hut scale %.2f rotate y*%d translate <%.2f,%.2f,%.2f>}' % (
            size, turn, x + dx, g.at(x + dx, y + dy)[0], -y - dy))
    out.append('object{Jetty translate <%.2f,0,%.2f>}' % (JETTY[0], -JETTY[1]))
    out.append('object{Boat rotate y*75 translate <%.2f,2.8,%.2f>}' % (
        JETTY[0] - 9, -JETTY[1] - 12))
    return out


def make(work):
    g = heights()
    g.colour = ground(g)
    plants = bushes(g) + palms(g) + settlement(g)
    water = barrier.sandy_shallows(
        g, reach=25, pale=.7,
        lines=((5.6, .9, .55, .2), (10.5, 1.1, .8, .3), (15., .8, .6, .1)))
    return barrier.make(g, plants, work, water, edge=(40, 3., 6., 14.))
