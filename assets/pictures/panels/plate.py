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


def hit_point_bar(c, surface, left, colours):
    """The full bar: enamel between brass wires. The game blackens it from the right in steps of
    one hit, which the wires show; a wire ends what is left.
    """
    x, y = c.x - left, c.y - BAR_TOP
    t = y / (H - BAR_TOP)
    light, dark = (linear(colour) for colour in colours)
    rim = np.minimum.reduce([x, BAR_LENGTH - x, y, H - BAR_TOP - y])
    wire = np.minimum.reduce([np.abs(x - end + 1) for end in hit_ends()])
    # Enamel lies a little deeper and darker along the metal, and is mottled by the firing.
    pool = np.clip(np.minimum(rim - 1, wire - .6) / 4.5, 0, 1) ** .7
    mottled = .5 + .11 * fbm(*c.shape, 41, 1.5) + .06 * fbm(*c.shape, 42, .8)
    enamel = dark + (light - dark) * np.clip(
        mottled + .42 - .62 * t, 0, 1)[..., None] * (.35 + .65 * pool)[..., None]
    gleam = np.exp(-((t - .2) / .07) ** 2) * .05 * pool
    enamel = enamel + gleam[..., None] * linear('ffeedd')
    brass = shade(c.fill(linear('b98a36')), c.blur(np.clip(.8 - wire, 0, .8) * 3.2, .2), .8)
    enamel = blend(enamel, brass * (1.05 - .5 * t)[..., None], wire < .5)
    enamel = enamel * (1 - .5 * ((wire >= .5) & (wire < .95)))[..., None]
    enamel = enamel * (1 - .6 * (rim < 1))[..., None]
    return blend(surface, enamel, (x > 0) & (x < BAR_LENGTH) & (y > 0))


def hit_ends():
    return [int(hits * HIT * BAR_LENGTH / HIT_POINTS) for hits in range(1, HIT_POINTS // HIT)]


def pointer(c, surface):
    """A brass arrow head in the top moulding, under the middle of the view that this player has."""
    x, tip, foot, half = W / 2, .6, 11.4, 9.5

    def head(grow):
        return c.polygon([(x, tip - grow * 1.6), (x + half + grow * 1.5, foot + grow),
                          (x - half - grow * 1.5, foot + grow)])

    mask = head(0)
    surface = surface * (1 - c.shadow(head(.8), 1.2, 1.2, 1.2, .7))[..., None]
    surface = blend(surface, linear('140903'), head(.8))
    bright = metal(c.bevel(mask, 2.2, .15), 6, GOLD)
    # Two facets meet in a ridge below the tip; the light comes from the left.
    facet = np.clip((x - c.x) * 1.5 + .5, 0, 1)[..., None]
    return blend(surface, bright * (.62 + .55 * facet), mask)


def board(c, seed, dial):
    """Deck planks in a brass frame, with the hollow in which the dial sits."""
    frame = c.rounded(-6, 0, W + 6, BAR_TOP, 3)
    surface = wood(c, seed, plank=26) * (.45 + .55 * np.clip(frame / 12, 0, 1))[..., None]
    ends = np.minimum(np.minimum(c.x, W - c.x), np.minimum(c.y, BAR_TOP - c.y))
    surface = blend(surface, moulding(c, ends, 4.5, 7), (ends > 0) & (ends < 4.5))
    middle = (dial + DIAL_RADIUS, DIAL_TOP + DIAL_RADIUS)
    reach = np.clip(c.radius(middle[0] + 2, middle[1] + 3) - 36, 0, None)
    surface = surface * (1 - .6 * np.exp(-reach ** 2 / 14))[..., None]
    # The dial's own edge is hard, because it is keyed; against a dark gap no step of it shows.
    surface = blend(surface, linear('080403'), c.soft(DIAL_RADIUS + .9 - c.radius(*middle)))
    return surface * (c.y < BAR_TOP)[..., None]


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


def panel(seed, bar_left, dial, plate, colour, enamel, crest, words):
    """The finished panel; `enamel` is the bar's (light, dark), `crest` is (field left, field right,
    shield maker, charge maker).
    """
    c = Canvas(W, H)
    surface = board(c, seed, dial)
    left, right, emblem, charge = crest
    x = (max(left, plate[0]) + min(right, plate[1])) / 2
    shapes = (left, right, emblem(c, x, 41, 40, 46), charge(c, x, 40, 14))
    surface = name_plate(c, surface, *plate, colour, shapes, words)
    for x in (8.5, W - 8.5):
        for y in (8.5, BAR_TOP - 8.5):
            surface = rivet(c, surface, x, y, 2.6)
    surface = pointer(c, surface)
    return to_opaque(reduce(hit_point_bar(c, surface, bar_left, enamel), c.scale))
