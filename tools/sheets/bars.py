# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Values measured on the pictures of data/, and the limits that they must meet."""

import io
import time
from pathlib import Path

import numpy
from PIL import Image
from scipy import ndimage

from robots.artwork import BUTTON_HEIGHT, BUTTON_TYPES, HIGHLIGHT_OFFSET, PHASES

from .vision import DEFICIENCIES, contrast, difference, luminance, simulate

LUMA = numpy.array((0.2126, 0.7152, 0.0722))
WIDTHS = (100, 95, 95, 90, 85, 75, 65, 60, 50)
HEIGHTS = (40, 50, 60, 65, 75, 85, 90, 95, 95)
SOLID = 250  # alpha; the densest foam stays below
CANVAS, BLANK = 150, 242  # a pixel above the first luma is canvas, above the second blown out
PICTURES = sorted(path.stem for path in (Path(__file__).parents[2] / "data").glob("*.png"))


def luma(frame):
    return frame[..., :3] @ LUMA


def saturation(frame):
    brightest = frame[..., :3].max(-1).astype(float)
    return (brightest - frame[..., :3].min(-1)) / numpy.maximum(brightest, 1)


def solid(frame):
    return frame[..., 3] >= SOLID


def hull(frame):
    """The ship without shadow and foam. Their colours are cold, those of wood and canvas warm."""
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
    """The share of the outline at which a pixel stands out from the mean sea by 3:1. Three values:
    for the ship's own colours in the two outermost pixels, for the same pixels with the water
    showing through, and for the ship's own colours in the outermost pixel alone."""
    sea = luminance(water).mean()
    body = ndimage.binary_fill_holes(hull(frame))
    outline = body & ~ndimage.binary_erosion(body)
    seen = on_water(frame, water[..., :3].reshape(-1, 3).mean(0))
    own, mixed = (numpy.where(body, contrast(luminance(colours), sea), 0)
                  for colours in (frame, seen))
    two = [ndimage.maximum_filter(ratio, size=3) for ratio in (own, mixed)]
    return [float((ratio[outline] >= 3).mean()) for ratio in (*two, own)]


def hit_box(phase):
    """Left, right, upper and lower bounds of the hit box in the cell."""
    width, height = WIDTHS[phase % 9], HEIGHTS[phase % 9]
    if phase // 9 % 2:
        width, height = height, width
    left, top = 50 - width // 2, 50 - height // 2
    return left, left + width, top, top + height


def bounds(mask):
    rows, columns = numpy.nonzero(mask)
    return [int(edge) for edge in (columns.min(), columns.max() + 1, rows.min(), rows.max() + 1)]


def box_errors(frame, phase):
    """The largest distance of the ship's left, right and lower bounds from those of the hit box,
    and the height by which the sails, which cannot be hit, rise above the box (negative if they
    end below its top)."""
    left, right, top, bottom = (one - other
                                for one, other in zip(bounds(hull(frame)), hit_box(phase)))
    return max(abs(left), abs(right), abs(bottom)), -top


def blown_out(frame):
    """The share of the sails' pixels that are too bright to show cloth."""
    values = luma(frame)
    sails = solid(frame) & (values > CANVAS)
    return float((values[sails] > BLANK).mean())


def wandering(ships):
    """How far the middle of the hull wanders as the ship turns, in pixels.

    Two opposite headings show the same hull turned round, so that its middle is half way between
    the left bound in one and the right bound in the other. In the vertical direction, sails hide
    the hull's upper bound, so the lower bound is compared with the left bound a quarter turn later.
    """
    left, right, _, lower = numpy.array([bounds(hull(frame)) for frame in ships]).T
    half, quarter = PHASES // 2, PHASES // 4
    sideways = (left + numpy.roll(right, -half)) / 2
    upwards = lower + numpy.roll(left, -quarter)
    upwards = (upwards + numpy.roll(upwards, -half)) / 2
    return max(float(numpy.abs(way - way.mean()).max()) for way in (sideways, upwards))


def in_ships_axes(frame, phase):
    """Luma and coverage of a frame, turned back to heading 0. The view is oblique, but the water is
    drawn as seen from above, and so are the decks, which are all at about the same height."""
    return [ndimage.rotate(plane, 10 * phase, reshape=False, order=1)
            for plane in (luma(frame), solid(frame).astype(float))]


def change_of_light(ships):
    """How much, in luma, the points of the ship brighten and darken while the light goes round it;
    0 if all frames are rotated copies of one picture."""
    planes = [in_ships_axes(frame, phase) for phase, frame in enumerate(ships)]
    common = numpy.min([cover for _, cover in planes], 0) > 0.98
    values = numpy.array([plane[common] for plane, _ in planes])
    turn = numpy.radians(10 * numpy.arange(PHASES))
    basis = numpy.stack([numpy.ones(PHASES), numpy.cos(turn), numpy.sin(turn)], 1)
    (_, b, c), *_ = numpy.linalg.lstsq(basis, values, rcond=None)
    return float(numpy.sqrt((b ** 2 + c ** 2).mean()))


def shadow_direction(frame):
    """The direction of the dark water beside the ship, in degrees clockwise from right."""
    body = ndimage.binary_fill_holes(hull(frame))
    dark = (frame[..., 3] > 60) & ~body & (luma(frame) < 90)
    down, right = numpy.subtract(ndimage.center_of_mass(dark), ndimage.center_of_mass(body))
    return float(numpy.degrees(numpy.arctan2(down, right)))


def spread(values, form="{:.1f}"):
    low, high = form.format(min(values)), form.format(max(values))
    return f"{low} to {high}"


def ship_bars(artwork):
    """(what, value, limit, whether it is met) for the ship's sheet."""
    ships = artwork.ships
    water = artwork.load("voda.png")
    values = [luma(frame)[solid(frame)] for frame in ships]
    deviation = [float(value.std()) for value in values]
    between = [float(numpy.subtract(*numpy.percentile(value, (95, 5)))) for value in values]
    colour = [float(saturation(frame)[solid(frame)].mean()) for frame in ships]
    soft = [100 * soft_edge(frame) for frame in ships]
    near, seen, outermost = zip(*[rim_contrast(frame, water) for frame in ships])
    misses, rises = zip(*[box_errors(frame, phase) for phase, frame in enumerate(ships)])
    blank = [100 * blown_out(frame) for frame in ships]
    falls = numpy.array([shadow_direction(frame) for frame in ships])
    change, wander = change_of_light(ships), wandering(ships)
    return [
        ("luma, standard deviation", spread(deviation), "at least 50", min(deviation) >= 50),
        ("luma, 5th to 95th percentile", spread(between), "at least 160", min(between) >= 160),
        ("mean saturation", spread(colour, "{:.2f}"), "0.15 to 0.45",
         0.15 <= min(colour) and max(colour) <= 0.45),
        ("blown-out pixels of the sails, %", spread(blank, "{:.0f}"), "at most 22",
         max(blank) <= 22),
        ("soft edge, % of the solid area", spread(soft), "5 to 22",
         5 <= min(soft) and max(soft) <= 22),
        ("outline at 3:1 from the sea, outer 2 pixels, %",
         spread([100 * share for share in near]), "at least 90", min(near) >= 0.9),
        ("the same with the water showing through, %",
         spread([100 * share for share in seen]), "at least 90", min(seen) >= 0.9),
        ("outline at 3:1, outermost pixel alone, %",
         spread([100 * share for share in outermost]), "for information", None),
        ("light, change of luma as the ship turns", f"{change:.1f}", "above 5", change > 5),
        ("direction of the shadow, degrees below right", f"{falls.mean():.0f}", "45 within 10",
         abs(falls.mean() - 45) <= 10),
        ("the same at each heading, degrees from the mean", spread(list(falls - falls.mean())),
         "within 10", abs(falls - falls.mean()).max() <= 10),
        ("distance of the hull from the hit box, pixels", spread(misses, "{}"), "at most 4",
         max(misses) <= 4),
        ("sails above the hit box, pixels", spread(rises, "{}"), "-4 to 33",
         min(rises) >= -4 and max(rises) <= 33),
        ("middle of the hull, wandering as the ship turns, pixels", f"{wander:.1f}", "at most 1",
         wander <= 1),
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
    """File sizes, and the time in which one thread decodes all sixteen, as the game does."""
    files = [(artwork.directory / f"{name}.png").read_bytes() for name in PICTURES]
    start = time.process_time()
    for data in files:
        Image.open(io.BytesIO(data)).load()
    spent = 1000 * (time.process_time() - start)
    size = sum(map(len, files)) / 1e6
    return [("sixteen pictures, MB", f"{size:.2f}", "below 4", size < 4),
            ("decoding all of them, ms", f"{spent:.0f}", "below 150", spent < 150)]


def eye_bars(artwork):
    """The colour and lightness differences (CIE 1976) of pictures that must not be confused."""
    dials = artwork.dials
    disc = (dials[40][..., :3] != (255, 0, 255)).any(-1)
    strip = artwork.load("tlacitka.png")
    top = BUTTON_HEIGHT * BUTTON_TYPES[0]
    plates = [strip[y:y + BUTTON_HEIGHT] for y in (top, top + HIGHLIGHT_OFFSET)]
    plate = (plates[0][..., 3] > 200) & (plates[1][..., 3] > 200)
    pairs = (("dial, loaded against nearly loaded", dials[40], dials[39], disc),
             ("dial, loaded against empty", dials[40], dials[0], disc),
             ("button, focused against unfocused", plates[1], plates[0], plate))
    rows = []
    for what, one, other, where in pairs:
        for deficiency in (None, *DEFICIENCIES):
            seen = [simulate(picture, deficiency) for picture in (one, other)]
            colour, light = difference(*seen, where)
            rows.append((f"{what}, {deficiency or 'full colour'}",
                         f"{colour:.0f} (lightness {light:.0f})", "at least 20", colour >= 20))
    return rows


def table(rows):
    """A Markdown table of the rows."""
    lines = ["| measured | value | limit | |", "|---|---|---|---|"]
    for what, value, bar, reached in rows:
        word = {True: "met", False: "**missed**", None: ""}[reached]
        lines.append(f"| {what} | {value} | {bar} | {word} |")
    return "\n".join(lines)


def all_bars(artwork):
    return [*ship_bars(artwork), *sea_bars(artwork), *file_bars(artwork), *eye_bars(artwork)]
