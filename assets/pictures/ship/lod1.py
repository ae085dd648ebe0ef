# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The ship's sheet: 36 headings of 100 x 100, frame k turned k tens of degrees from left.

Her hull and what hangs low fill the hit boxes of the rules; her upper sails rise above them.

To change: TILT for the view, the outline in `outlined`, shadow and foam in `compose`; light and
camera are in sheet.pov.
"""
import json
import math
import os
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import numpy as np
from PIL import Image
from scipy.ndimage import binary_erosion, distance_transform_edt, gaussian_filter

from common import povray
from common.noise import smoothstep
from common.palette import linear
from common.raster import layer, over, read_layer, read_light, reduce, to_image
from ship import hull, rig, wake
from ship.mesh import Model

HERE = Path(__file__).resolve().parent
FRAME, COLUMNS, HEADINGS = 100, 6, 36
WIDER = 108         # pixels of a view in which what the cell cuts off would show
# The hit boxes of the rules: what looks hit must be hit.
BOX_W = (100, 95, 95, 90, 85, 75, 65, 60, 50)
BOX_H = (40, 50, 60, 65, 75, 85, 90, 95, 95)
TOLERANCE = 4
# Degrees of the view from vertical, and the pixels by which she is lowered, so that waterline and
# rail together are centred.
TILT, DROP = 35, 5.0
FORWARD = 1.7
# Strength of the sun, of the light from in front of her and of the sky's.
LIGHTS = {'Sun': 1.10, 'Front': .46, 'Sky': .32}
# The line round her, in pixels: pitch on wood, light hems on canvas. Luminances between which wood
# ends and canvas begins, for hull and rig, and the least of a hem.
LINE_WIDTH, SUNNY = 1.0, .25   # the line is thinner by this part towards the sun
LINE_FADE = -.1, .75    # where the line begins and ends to fade inwards, from its width
PITCH = linear('pitch')
CANVAS_OF_HULL, CANVAS_OF_RIG = (.62, .68), (.12, .18)
HEM = .8
# Sunlit canvas keeps its shading: luminances above KNEE are pressed towards WHITE.
KNEE, WHITE = .65, 1.06
# Luminances that stand out from the sea by 3:1, with something to spare.
DARK, LIGHT = .008, .55
# Up to this luminance it is wood, whose outline becomes dark rather than light.
WOODEN = .3
LUMINANCE = np.array((.2126, .7152, .0722))
FAINT = .05
# Samples a pixel, along each axis. A draft is coarser, but shows sooner what a change does.
DRAFT = 'PICTURE_DRAFT' in os.environ
FINE, COARSE = (2, 2) if DRAFT else (4, 2)


def box(k):
    """Width and height of the hit box at heading k."""
    w, h = BOX_W[k % 9], BOX_H[k % 9]
    return (h, w) if k // 9 % 2 else (w, h)


def beyond_box(mask, k):
    """By how many pixels the mask's left, right, upper and lower bounds miss the hit box's."""
    w, h = box(k)
    rows, columns = np.nonzero(mask)
    left, upper = (FRAME - w) // 2, (FRAME - h) // 2
    bounds = columns.min(), columns.max() + 1, rows.min(), rows.max() + 1
    return [int(a) - b for a, b in zip(bounds, (left, left + w, upper, upper + h))]


def moved(k):
    """Pixels by which the ship stands to the right and low in her cell.

    On diagonal headings her pointed bow falls short of the hit box and her stern's corners stand
    out of it, so she stands a little forward there.
    """
    turn = math.radians(10 * k)
    ahead = FORWARD * min(1, 1.6 * abs(math.sin(2 * turn)))
    # Heading up, her stern at the water must not reach below the cell.
    lowest = hull.STERN * math.sin(turn) + .84 * hull.side(0) * abs(math.cos(turn))
    drop = min(DROP - ahead * math.sin(turn), FRAME / 2 - .15 - lowest)
    return -ahead * math.cos(turn), drop


def render(k, work, libraries):
    own = work / ('heading%02d' % k)
    own.mkdir(exist_ok=True)
    write_model(own / 'ship.inc', k)
    aside, drop = moved(k)
    products = []
    # Colour, shadow, mask of what is low, mask of all.
    for number, (samples, threshold, span) in enumerate((
            (FINE, .6, FRAME), (COARSE, .3, FRAME), (COARSE, .9, FRAME), (COARSE, .9, WIDER))):
        products.append(own / ('pass%d.png' % number))
        povray.render(HERE / 'sheet.pov', products[-1], (span * samples,) * 2,
                      libraries + ['+L%s' % own], number != 1, .9 if DRAFT else threshold,
                      Heading=k, Pass=number, Tilt=TILT, Drop=drop, Aside=aside, Span=span,
                      **LIGHTS)
    check_uncut(k, read_layer(products[3])[..., 3])
    low = read_layer(products[2])[..., 3]
    wood = np.kron(low, np.ones((FINE, FINE)))[::COARSE, ::COARSE]
    ship = shouldered(read_layer(products[0]))
    ship = reduce(outlined(ship, FINE, gaussian_filter(wood, .3 * FINE)), FINE)
    return cleared(ship), reduce(low, COARSE) > .5, read_light(products[1])


def check_uncut(k, whole):
    """Nothing of her, seen in a wider view, may lie beyond the cell."""
    inside = np.pad(np.ones((FRAME * COARSE,) * 2), (WIDER - FRAME) // 2 * COARSE)
    if (whole * (1 - inside)).any():
        raise RuntimeError('lod1: heading %d does not fit its cell' % k)


def write_model(path, k):
    wood, cloth = Model(), Model()
    hull.build(wood)
    rig.build(cloth, k)
    path.write_text(wood.source('Hull') + cloth.source('Rig'))


def shouldered(ship):
    """Press the brightest tones together, as film does, instead of cutting them off."""
    light = (ship[..., :3] / np.maximum(ship[..., 3:], 1e-6) @ LUMINANCE)[..., None]
    room = WHITE - KNEE
    pressed = KNEE + room * (1 - np.exp(-np.clip(light - KNEE, 0, None) / room))
    share = np.where(light > KNEE, pressed / np.maximum(light, 1e-6), 1)
    return np.concatenate([ship[..., :3] * share, ship[..., 3:]], 2)


def outlined(ship, cells, wood):
    """Give the ship an outline: pitch on planks and spars, light on the hems of her sails.

    Sunlit planks are about as light as the sea, and so is canvas in its own shade; without this
    both melt into it.
    """
    alpha = ship[..., 3:]
    inside = distance_transform_edt(alpha[..., 0] > .5) / cells
    down, right = np.gradient(gaussian_filter(alpha[..., 0], cells))
    facing = np.clip((down + right) / np.maximum(np.hypot(down, right), 1e-3) / 1.41, 0, 1)
    width = LINE_WIDTH * (1 - SUNNY * gaussian_filter(facing, .5 * cells))
    edge = (1 - smoothstep(inside - width, *LINE_FADE))[..., None]
    light = (ship[..., :3] / np.maximum(alpha, 1e-6) @ LUMINANCE)[..., None]
    soft, wood = gaussian_filter(light, (.2 * cells, .2 * cells, 0)), np.clip(wood, 0, 1)[..., None]
    canvas = smoothstep(soft, *CANVAS_OF_HULL) * wood + smoothstep(soft, *CANVAS_OF_RIG) * (
        1 - wood)
    hem = np.clip(HEM / np.maximum(light, 1e-6), 1, 3)
    lit = np.concatenate([np.minimum(ship[..., :3] * hem, alpha), alpha], 2)
    line = lit * canvas + layer(PITCH, alpha[..., 0]) * (1 - canvas)
    return ship + (line - ship) * edge


def cleared(ship):
    """Where the outline still blends into the sea, take the pixel on or beside the edge that
    stands out most, and make it fully dark or light."""
    alpha = ship[..., 3]
    body = alpha > .5
    light = ship[..., :3] @ LUMINANCE / np.maximum(alpha, 1e-6)
    # 0 at both ends of the range that melts into the sea, 1 where it is furthest from them.
    melts = np.minimum(np.log(np.maximum(light, 1e-4) / DARK), np.log(LIGHT / light.clip(1e-4)))
    melts = np.where(body, np.clip(melts, 0, None) + 9 * (alpha < .97), 99)
    out = ship.copy()
    for y, x in np.argwhere(body & ~binary_erosion(body)):
        near = [(melts[b, a], b, a) for b in range(max(y - 1, 0), min(y + 2, FRAME))
                for a in range(max(x - 1, 0), min(x + 2, FRAME))]
        worst, b, a = min(near)
        if 0 < worst < 9:
            goal = DARK if light[b, a] < WOODEN else LIGHT
            out[b, a, :3] = np.minimum(ship[b, a, :3] * (goal / light[b, a]), alpha[b, a])
    return out


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
    shade = trimmed(reduce(dark, COARSE) * .62 * np.clip(border() / 5, 0, 1))
    foam = trimmed(reduce(wake.foam(k, *moved(k)), wake.CELLS) * .95 * smoothstep(border(), 0, 9))
    under = over(layer(linear('shadow'), shade), layer(linear('foam'), foam))
    # Where she covers half a pixel it is hers, or foam would eat into the line round her.
    under = under * (ship[..., 3:] <= .5)
    return over(ship, under)


def make(work):
    libraries = povray.prepare(work, HERE)
    sheet, errors = Image.new('RGBA', (FRAME * COLUMNS, FRAME * COLUMNS)), {}
    # A draft is built alone; otherwise the second processor builds other pictures.
    with ThreadPoolExecutor(2 if DRAFT else 1) as pool:
        frames = list(pool.map(lambda k: render(k, work, libraries), range(HEADINGS)))
    for k, (ship, low, light) in enumerate(frames):
        errors[k] = beyond_box(low, k)
        sheet.paste(to_image(compose(k, ship, light)), (k % COLUMNS * FRAME,
                                                        k // COLUMNS * FRAME))
    (work / 'boxes.json').write_text(json.dumps(errors))
    error = max(max(map(abs, e)) for e in errors.values())
    print('lod1: hull within %d pixels of the hit boxes' % error)
    if error > TOLERANCE:
        raise RuntimeError('at most %d pixels are allowed: %s' % (TOLERANCE, errors))
    return sheet
