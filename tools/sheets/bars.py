# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Figures measured on the pictures of data/, beside the bars they are meant to reach."""

import io
import time

import numpy
from PIL import Image
from scipy import ndimage

from robots.artwork import BUTTON_HEIGHT, BUTTON_TYPES, HIGHLIGHT_OFFSET, PHASES

from .vision import DEFICIENCIES, contrast, difference, luminance, simulate

LUMA = numpy.array((0.2126, 0.7152, 0.0722))
WIDTHS = (100, 95, 95, 90, 85, 75, 65, 60, 50)
HEIGHTS = (40, 50, 60, 65, 75, 85, 90, 95, 95)
SOLID = 250  # alpha; the densest foam stays below
PICTURES = ("lod1", "voda", "prekazka1", "prekazka2", "prekazka3", "cball", "bar1", "bar2", "kruh",
            "pozadie-lode3", "logo", "menu", "tlacitka", "brannoc4f", "presentsscreen1", "strela2")


def luma(frame):
    return frame[..., :3] @ LUMA


def saturation(frame):
    brightest = frame[..., :3].max(-1).astype(float)
    return (brightest - frame[..., :3].min(-1)) / numpy.maximum(brightest, 1)


def solid(frame):
    return frame[..., 3] >= SOLID


def hull(frame):
    """The ship without shadow and foam, both of which are cold; wood and canvas are warm."""
    return (frame[..., 3] > 127) & (frame[..., 0].astype(int) > frame[..., 2])


def soft_edge(frame):
    """Partly covered pixels that touch the solid ship, as a share of the solid ones."""
    body = solid(frame)
    partly = (frame[..., 3] > 12) & ~body & ndimage.binary_dilation(body, numpy.ones((3, 3)))
    return partly.sum() / body.sum()


def on_water(frame, colour):
    """The frame's colours as seen over still water of one colour."""
    cover = frame[..., 3:] / 255
    seen = numpy.rint(frame[..., :3] * cover + colour * (1 - cover))
    return seen.astype(numpy.uint8)


def rim_contrast(frame, water):
    """The share of the outline at which the ship's outermost two pixels hold a tone that stands
    out from the mean sea by 3:1: of her own colours, of what is seen with the water showing
    through, and of her own colours in the very outermost pixel."""
    sea = luminance(water).mean()
    body = ndimage.binary_fill_holes(hull(frame))
    outline = body & ~ndimage.binary_erosion(body)
    seen = on_water(frame, water[..., :3].reshape(-1, 3).mean(0))
    own, mixed = (numpy.where(body, contrast(luminance(colours), sea), 0)
                  for colours in (frame, seen))
    two = [ndimage.maximum_filter(ratio, size=3) for ratio in (own, mixed)]
    return [float((ratio[outline] >= 3).mean()) for ratio in (*two, own)]


def box_error(frame, phase):
    """The largest distance of the hull's bounds from the hit box."""
    width, height = WIDTHS[phase % 9], HEIGHTS[phase % 9]
    if phase // 9 % 2:
        width, height = height, width
    rows, columns = numpy.nonzero(hull(frame))
    left, top = 50 - width // 2, 50 - height // 2
    bounds = (columns.min(), columns.max() + 1, rows.min(), rows.max() + 1)
    return max(abs(int(one) - other)
               for one, other in zip(bounds, (left, left + width, top, top + height)))


def in_ships_axes(frame, phase):
    """Luma and coverage of a frame, turned back to heading 0."""
    return [ndimage.rotate(plane, 10 * phase, reshape=False, order=1)
            for plane in (luma(frame), solid(frame).astype(float))]


def light_directions(ships):
    """How far the light of each frame is turned from that of all of them, in degrees, and how
    strongly, in luma, the sides of the ship brighten and darken as she turns.

    In the ship's own axes the light goes round her once in 36 frames, so the luma of each of her
    points is a + b cos + c sin of the heading plus errors. A frame whose light is turned by a
    small angle differs from this by the angle times the derivative, over all points at once.
    """
    planes = [in_ships_axes(frame, phase) for phase, frame in enumerate(ships)]
    common = numpy.min([cover for _, cover in planes], 0) > 0.98
    values = numpy.array([plane[common] for plane, _ in planes])
    turn = numpy.radians(10 * numpy.arange(PHASES))
    basis = numpy.stack([numpy.ones(PHASES), numpy.cos(turn), numpy.sin(turn)], 1)
    (_, b, c), *_ = numpy.linalg.lstsq(basis, values, rcond=None)
    slope = numpy.outer(-numpy.sin(turn), b) + numpy.outer(numpy.cos(turn), c)
    rest = values - basis @ numpy.linalg.lstsq(basis, values, rcond=None)[0]
    angles = (rest * slope).sum(1) / (slope ** 2).sum(1)
    return numpy.degrees(angles), float(numpy.sqrt(numpy.hypot(b, c) ** 2).mean())


def shadow_direction(ships):
    """The mean direction in which the shadow lies, in degrees clockwise from right."""
    total = numpy.zeros(2)
    y, x = numpy.mgrid[0:100, 0:100]
    for frame in ships:
        weight = frame[..., 3] * (~hull(frame) & (luma(frame) < 90))
        total += ((x - 49.5) * weight).sum(), ((y - 49.5) * weight).sum()
    return float(numpy.degrees(numpy.arctan2(total[1], total[0])))


def spread(values, form="{:.1f}"):
    low, high = form.format(min(values)), form.format(max(values))
    return f"{low} to {high}"


def ship_bars(artwork):
    """(what, measured, bar, reached) for the ship's sheet."""
    ships = artwork.ships
    water = artwork.load("voda.png")
    values = [luma(frame)[solid(frame)] for frame in ships]
    deviation = [float(value.std()) for value in values]
    between = [float(numpy.subtract(*numpy.percentile(value, (95, 5)))) for value in values]
    colour = [float(saturation(frame)[solid(frame)].mean()) for frame in ships]
    soft = [100 * soft_edge(frame) for frame in ships]
    near, seen, outermost = zip(*[rim_contrast(frame, water) for frame in ships])
    errors = [box_error(frame, phase) for phase, frame in enumerate(ships)]
    angles, strength = light_directions(ships)
    return [
        ("luma, standard deviation", spread(deviation), "at least 50", min(deviation) >= 50),
        ("luma, 5th to 95th percentile", spread(between), "at least 160", min(between) >= 160),
        ("mean saturation", spread(colour, "{:.2f}"), "0.15 to 0.45",
         0.15 <= min(colour) and max(colour) <= 0.45),
        ("soft edge, % of the solid area", spread(soft), "5 to 22",
         5 <= min(soft) and max(soft) <= 22),
        ("outline at 3:1 from the sea, outer 2 pixels, %",
         spread([100 * share for share in near]), "at least 90", min(near) >= 0.9),
        ("the same, the water showing through, %",
         spread([100 * share for share in seen]), "at least 90", min(seen) >= 0.9),
        ("the first, outermost pixel alone, %",
         spread([100 * share for share in outermost]), "for information", None),
        ("light, turned from the mean, degrees", spread(list(angles)), "within 10",
         abs(angles).max() <= 10 and strength > 5),
        ("light, change of luma as she turns", f"{strength:.1f}", "above 5", strength > 5),
        ("shadow falls towards, degrees below right", f"{shadow_direction(ships):.0f}",
         "45 within 10", abs(shadow_direction(ships) - 45) <= 10),
        ("hull from hit box, pixels", spread(errors, "{}"), "at most 4", max(errors) <= 4),
    ]


def seam(pixels, axis):
    """The step across the tile's border in units of the mean step inside."""
    inside = numpy.abs(numpy.diff(pixels, axis=axis)).mean()
    return numpy.abs(pixels.take(0, axis) - pixels.take(-1, axis)).mean() / inside


def sea_bars(artwork):
    water = artwork.load("voda.png")[..., :3].astype(int)
    seams = [seam(water, axis) for axis in (0, 1)]
    calm = float((water @ LUMA).std())
    return [("sea, step across the seam / inside", spread(seams, "{:.2f}"), "at most 1.1",
             max(seams) <= 1.1),
            ("sea, luma, standard deviation", f"{calm:.1f}", "below 25 (calmer than a ship)",
             calm < 25)]


def file_bars(artwork):
    """Sizes, and the time one thread takes to decode all sixteen as the game does at its start."""
    files = [(artwork.directory / f"{name}.png").read_bytes() for name in PICTURES]
    start = time.process_time()
    for data in files:
        Image.open(io.BytesIO(data)).load()
    spent = 1000 * (time.process_time() - start)
    size = sum(map(len, files)) / 1e6
    return [("sixteen pictures, MB", f"{size:.2f}", "below 4", size < 4),
            ("decoding all of them, ms", f"{spent:.0f}", "below 150", spent < 150)]


def eye_bars(artwork):
    """Colour difference (CIE 1976) of what must not be mistaken, and of its lightness alone."""
    dials = artwork.dials
    disc = (dials[40][..., :3] != (255, 0, 255)).any(-1)
    strip = artwork.load("tlacitka.png")
    top = BUTTON_HEIGHT * BUTTON_TYPES[0]
    plates = [strip[y:y + BUTTON_HEIGHT] for y in (top, top + HIGHLIGHT_OFFSET)]
    plate = (plates[0][..., 3] > 200) & (plates[1][..., 3] > 200)
    pairs = (("dial, loaded from nearly loaded", dials[40], dials[39], disc),
             ("dial, loaded from empty", dials[40], dials[0], disc),
             ("button, focused from not", plates[1], plates[0], plate))
    rows = []
    for what, one, other, where in pairs:
        for deficiency in (None, *DEFICIENCIES):
            seen = [simulate(picture, deficiency) for picture in (one, other)]
            colour, light = difference(*seen, where)
            rows.append((f"{what}, {deficiency or 'full colour'}",
                         f"{colour:.0f} (lightness {light:.0f})", "at least 20", colour >= 20))
    return rows


def table(rows):
    """A Markdown table of figures."""
    lines = ["| measured | value | bar | |", "|---|---|---|---|"]
    for what, value, bar, reached in rows:
        word = {True: "reached", False: "**missed**", None: ""}[reached]
        lines.append(f"| {what} | {value} | {bar} | {word} |")
    return "\n".join(lines)


def all_bars(artwork):
    return [*ship_bars(artwork), *sea_bars(artwork), *file_bars(artwork), *eye_bars(artwork)]
