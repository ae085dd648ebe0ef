# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The ship's sheet: 36 headings of 100 x 100, frame k turned k tens of degrees from left.

To change: the outline in `tarred`, shadow and foam in `compose`; light and camera are in sheet.pov.
"""
import json
import os
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import numpy as np
from PIL import Image
from scipy.ndimage import distance_transform_edt, gaussian_filter

from common import povray
from common.noise import smoothstep
from common.palette import linear
from common.raster import layer, over, read_layer, read_light, reduce, to_image
from ship import model, wake

HERE = Path(__file__).resolve().parent
FRAME, COLUMNS, HEADINGS = 100, 6, 36
# The hit boxes of the rules: what looks hit must be hit.
BOX_W = (100, 95, 95, 90, 85, 75, 65, 60, 50)
BOX_H = (40, 50, 60, 65, 75, 85, 90, 95, 95)
TOLERANCE = 4
# The line of tar round her, in pixels, the luminances between which planks end and canvas
# begins, and the least of a hem.
TAR_WIDTH = 1.4
CANVAS = (.36, .48)
HEM = .62
LUMINANCE = np.array((.2126, .7152, .0722))
FAINT = .05
# Samples a pixel, along each axis. A draft shows in half a minute what a change does.
DRAFT = 'PICTURE_DRAFT' in os.environ
FINE, COARSE = (2, 1) if DRAFT else (4, 2)


def box(k):
    """Width and height of the hit box at heading k."""
    w, h = BOX_W[k % 9], BOX_H[k % 9]
    return (h, w) if k // 9 % 2 else (w, h)


def extent(ship):
    """Width and height of the ship without shadow and foam."""
    rows, columns = np.where(ship[..., 3] > .5)
    return int(np.ptp(columns)) + 1, int(np.ptp(rows)) + 1


def render(k, work, libraries):
    scene = HERE / 'sheet.pov'
    hull, cast = work / ('ship%02d.png' % k), work / ('shadow%02d.png' % k)
    for product, shadow, samples, threshold in ((hull, 0, FINE, .15), (cast, 1, COARSE, .3)):
        size = FRAME * samples, FRAME * samples
        povray.render(scene, product, size, libraries, not shadow, .9 if DRAFT else threshold,
                      Heading=k, Shadow=shadow)
    return read_ship(hull), read_light(cast)


def read_ship(path):
    return reduce(tarred(read_layer(path), FINE), FINE)


def tarred(ship, cells):
    """Give the ship an outline: tar on planks and spars, light on the hems of her sails.

    At noon sunlit planks are about as light as the sea, and so is canvas in its own shade; without
    this both melt into it.
    """
    alpha = ship[..., 3:]
    inside = distance_transform_edt(alpha[..., 0] > .5) / cells
    edge = (1 - smoothstep(inside, TAR_WIDTH - .35, TAR_WIDTH + .35))[..., None]
    light = (ship[..., :3] / np.maximum(alpha, 1e-6) @ LUMINANCE)[..., None]
    canvas = smoothstep(gaussian_filter(light, (.3 * cells, .3 * cells, 0)), *CANVAS)
    hem = np.clip(HEM / np.maximum(light, 1e-6), 1, 2)
    lit = np.concatenate([np.minimum(ship[..., :3] * hem, alpha), alpha], 2)
    outline = lit * canvas + layer(linear('tar'), alpha[..., 0]) * (1 - canvas)
    return ship + (outline - ship) * edge


def border():
    """Distance to the frame's edge: shadow and foam must die out before it."""
    y, x = np.mgrid[0:FRAME, 0:FRAME] + .5
    return np.minimum.reduce([x, y, FRAME - x, FRAME - y])


def trimmed(cover):
    """Without the wide faint skirts, which nobody sees but every frame of the game would draw."""
    return np.clip((cover - FAINT) / (1 - FAINT), 0, 1)


def compose(k, ship, light):
    light = np.clip(light / np.percentile(light, 98), 0, 1)
    dark = gaussian_filter(1 - light, .75 * COARSE)
    shade = trimmed(reduce(dark, COARSE) * .50 * np.clip(border() / 5, 0, 1))
    foam = trimmed(reduce(wake.foam(k), wake.CELLS) * .95 * smoothstep(border(), 0, 11))
    under = over(layer(linear('shadow'), shade), layer(linear('foam'), foam))
    return over(ship, under)


def make(work):
    libraries = povray.prepare(work, HERE)
    model.write(work / 'ship.inc', 'chart')
    sheet, errors = Image.new('RGBA', (FRAME * COLUMNS, FRAME * COLUMNS)), {}
    # A draft is built alone; otherwise the second processor builds other pictures.
    with ThreadPoolExecutor(2 if DRAFT else 1) as pool:
        frames = list(pool.map(lambda k: render(k, work, libraries), range(HEADINGS)))
    for k, (ship, light) in enumerate(frames):
        errors[k] = [got - want for got, want in zip(extent(ship), box(k))]
        sheet.paste(to_image(compose(k, ship, light)), (k % COLUMNS * FRAME,
                                                        k // COLUMNS * FRAME))
    (work / 'boxes.json').write_text(json.dumps(errors))
    error = max(max(map(abs, e)) for e in errors.values())
    print('lod1: outline within %d pixels of the hit boxes' % error)
    if error > TOLERANCE:
        raise RuntimeError('at most %d pixels are allowed: %s' % (TOLERANCE, errors))
    return sheet
