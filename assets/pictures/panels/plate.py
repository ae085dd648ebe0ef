# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The panels under the two views, which differ in crest, colour, words and in their order.

To change: `board` is the wood, `name_plate` the parchment, `hit_point_bar` the bar.
"""
import numpy as np

from common.canvas import Canvas, blend
from common.noise import fbm
from common.palette import BRASS, GOLD, linear
from common.raster import reduce, to_opaque
from common.relief import metal, moulding, parchment, rivet, shade, wood

W, H = 400, 100
BAR_TOP = 78
BAR_LENGTH = 396
DIAL_TOP, DIAL_RADIUS = 8, 34.5
HIT_POINTS, HIT = 50, 5


def hit_point_bar(c, surface, left):
    """The full bar. The game blackens what is lost in steps of one hit, which notches show."""
    x, y = c.x - left, c.y - BAR_TOP
    t = y / (H - BAR_TOP)
    light = linear('hp_light') + (linear('hp_dark') - linear('hp_light')) * np.clip(
        (t - .30) / .25, 0, 1)[..., None]
    gleam = np.exp(-((t - .20) / .09) ** 2) * .22
    light = light * (1 - .45 * np.clip((t - .72) / .28, 0, 1))[..., None]
    light = light + gleam[..., None] * linear('ffe0c8')
    for hits in range(1, HIT_POINTS // HIT):
        end = int(hits * HIT * BAR_LENGTH / HIT_POINTS)
        light = light * (1 - .55 * (np.abs(x - end + .5) < .5))[..., None]
        light = light * (1 + .25 * (np.abs(x - end - .5) < .5))[..., None]
    rim = np.minimum.reduce([x, BAR_LENGTH - x, y, H - BAR_TOP - y])
    light = light * (1 - .6 * (rim < 1))[..., None]
    return blend(surface, light, (x > 0) & (x < BAR_LENGTH) & (y > 0))


def board(c, seed, dial):
    """Deck planks in a brass frame, with the hollow in which the dial sits."""
    frame = c.rounded(-6, 0, W + 6, BAR_TOP, 3)
    surface = wood(c, seed, plank=26) * (.45 + .55 * np.clip(frame / 12, 0, 1))[..., None]
    ends = np.minimum(np.minimum(c.x, W - c.x), np.minimum(c.y, BAR_TOP - c.y))
    surface = blend(surface, moulding(c, ends, 4.5, 7), (ends > 0) & (ends < 4.5))
    middle = (dial + DIAL_RADIUS, DIAL_TOP + DIAL_RADIUS)
    reach = np.clip(c.radius(middle[0] + 2, middle[1] + 3) - 36, 0, None)
    hollow = np.where(c.radius(*middle) > 34, .6 * np.exp(-reach ** 2 / 14), .5)
    surface = surface * (1 - hollow * (c.y < BAR_TOP - 4.5))[..., None]
    return blend(surface, linear('140a07'), c.y >= BAR_TOP)


def name_plate(c, surface, x0, x1, colour, crest, words):
    """Parchment with the player's words, and an enamelled field with the crest beside it."""
    d = c.rounded(x0, 12, x1, 70, 5)
    drop = c.shadow((d > 0).astype(float), 1.5, 2, 2, .6)
    surface = surface * (1 - drop * (d < 0))[..., None]
    sheet = parchment(c, 9) * (.62 + .38 * np.clip(d / 9, 0, 1))[..., None]
    left, right, emblem, charge = crest
    field = (c.x > left) & (c.x < right)
    silk = shade(c.fill(linear(colour)), fbm(*c.shape, 77, 1.1, sx=6) * 1.2, .5)
    sheet = blend(sheet, silk * (.7 + .3 * np.clip(d / 6, 0, 1))[..., None], field)
    seam = np.minimum(np.abs(c.x - left), np.abs(c.x - right))
    sheet = blend(sheet, moulding(c, np.clip(1.1 - seam, 0, None), 2.2, 9), seam < 1.1)
    surface = blend(surface, sheet, d > 0)
    edge = moulding(c, np.clip(d, 0, None), 2.4, 9)
    surface = blend(surface, edge, (d > 0) & (d < 2.4))
    surface = draw_crest(c, surface, emblem, charge)
    return write(c, surface, words, x0, x1, left, right, colour)


def draw_crest(c, surface, emblem, charge):
    rim = c.inside(emblem)
    surface = surface * (1 - c.shadow(emblem, 1.2, 1.8, 1.4, .7) * (emblem < .5))[..., None]
    dark = surface * .35
    edge = metal(c.bevel(np.where(rim < 2.2, emblem, 0), 1.1), 3, BRASS)
    surface = blend(surface, blend(dark, edge, rim < 2.2), emblem)
    bright = metal(c.bevel(charge, 2.2, .2), 4, GOLD) * 1.12
    return blend(surface, bright, charge)


def write(c, surface, words, x0, x1, left, right, colour):
    middle = (right + x1) / 2 if left <= x0 + 1 else (x0 + left) / 2
    ink = c.fatten(c.text(words, 26, middle, 53.5, spacing=1), .4)
    lit = c.moved(ink, .5, .7) * (1 - ink)
    surface = surface * (1 + .35 * lit)[..., None]
    tone = linear(colour) * .5
    return blend(surface, tone, ink * .95)


def panel(seed, bar_left, dial, plate, colour, crest, words):
    """The finished panel; `crest` is (field left, field right, shield maker, charge maker)."""
    c = Canvas(W, H)
    surface = board(c, seed, dial)
    left, right, emblem, charge = crest
    x = (max(left, plate[0]) + min(right, plate[1])) / 2
    shapes = (left, right, emblem(c, x, 41, 40, 46), charge(c, x, 40, 14))
    surface = name_plate(c, surface, *plate, colour, shapes, words)
    for x in (8.5, W - 8.5):
        for y in (8.5, BAR_TOP - 8.5):
            surface = rivet(c, surface, x, y, 2.6)
    return to_opaque(reduce(hit_point_bar(c, surface, bar_left), c.scale))
