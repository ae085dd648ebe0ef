# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The files in data/ have the layouts on which the game relies."""
from pathlib import Path

import numpy
import pytest
from fontTools.ttLib import TTFont
from PIL import Image, ImageDraw

from smalldata import FILES, PICTURES

ROOT = Path(__file__).resolve().parents[2]
DATA = ROOT / 'data'

# The pictures whose size the layout of a screen or of a sheet fixes.
FIXED = {'tlacitka.png', 'pozadie-lode3.png', 'bar1.png', 'bar2.png', 'kruh.png', 'lod1.png',
         'cball.png'}

# Drawn whole in every frame, and with a solid alpha channel packed into runs by SDL 1.2.
PACKED = {'pozadie-lode3.png', 'bar1.png', 'bar2.png'}

HIT_BOX = [(100, 40), (95, 50), (95, 60), (90, 65), (85, 75), (75, 85), (65, 90), (60, 95),
           (50, 95)]


def picture(name):
    return Image.open(DATA / name)


def pixels(name):
    return numpy.asarray(picture(name).convert('RGBA')).astype(int)


def magenta(area):
    return (area[..., 0] == 255) & (area[..., 1] == 0) & (area[..., 2] == 255)


def test_nothing_is_missing_or_left_over():
    assert {path.name for path in DATA.iterdir()} == set(FILES)


@pytest.mark.parametrize('name', PICTURES)
def test_picture_has_its_size_and_transparency(name):
    size, has_alpha = PICTURES[name]
    if name in FIXED:
        assert picture(name).size == size
    assert picture(name).mode == ('RGBA' if has_alpha or name in PACKED else 'RGB')


@pytest.mark.parametrize('name', [name for name, (_, alpha) in PICTURES.items()
                                  if not alpha and name != 'kruh.png'])
def test_picture_without_alpha_has_no_hole(name):
    assert not magenta(pixels(name)).any()


def test_dial_frames_are_keyed_round_and_differ_from_each_other():
    dial = pixels('kruh.png')
    frames = [dial[k % 5 * 69:k % 5 * 69 + 69, k // 5 * 69:k // 5 * 69 + 69] for k in range(41)]
    for frame in frames:
        assert magenta(frame)[0, 0] and not magenta(frame)[34, 34]
    for earlier, later in zip(frames, frames[1:]):
        assert (numpy.abs(earlier - later).sum(axis=2) > 30).sum() >= 20


def lightness(area):
    return area[..., :3] @ numpy.array([0.2126, 0.7152, 0.0722])


def test_loaded_dial_needs_no_eye_for_hues():
    dial = pixels('kruh.png')
    loaded, nearly = dial[0:69, 8 * 69:9 * 69], dial[4 * 69:5 * 69, 7 * 69:8 * 69]
    face = ~magenta(loaded)
    assert numpy.abs(lightness(loaded) - lightness(nearly))[face].mean() > 30


def test_focused_button_needs_no_eye_for_hues():
    strip = pixels('tlacitka.png')
    for row in (2, 8, 9, 11):
        normal, focused = (strip[top:top + 43] for top in (43 * row, 559 + 43 * row))
        plate = (normal[..., 3] > 200) & (focused[..., 3] > 200)
        assert (lightness(focused) - lightness(normal))[plate].mean() > 60


def test_menu_fits_the_display():
    assert picture('logo.png').height + picture('menu.png').height <= 600
    # The four buttons lie inside the panel.
    assert picture('menu.png').width >= 200 and picture('menu.png').height >= 4 * 43


def test_every_button_row_holds_a_plate_and_the_highlight_differs():
    strip = pixels('tlacitka.png')
    for row in range(13):
        # The plate carries words or an emblem: gold on dark wood, ink on lit wood.
        assert lightness(strip[43 * row + 12:43 * row + 30, 30:170]).std() > 20
        normal = strip[43 * row:43 * row + 43]
        highlighted = strip[559 + 43 * row:559 + 43 * row + 43]
        assert (normal[..., 3] > 200).mean() > 0.5
        assert (highlighted[..., 3] > 200).mean() > 0.5
        assert numpy.abs(normal - highlighted).mean() > 8


@pytest.mark.parametrize('name, left, colour', [('bar1.png', 0, 0), ('bar2.png', 4, 2)])
def test_panel_carries_a_full_bar_in_its_players_colour(name, left, colour):
    bar = pixels(name)[78:, left:left + 396]
    # Red or blue everywhere but on the rims and wires, up to both ends.
    others = numpy.delete(bar[..., :3], colour, axis=2).max(axis=2)
    own = bar[..., colour] > 1.4 * others
    assert own.mean() > 0.8
    assert own[:, :8].mean() > 0.5 and own[:, -8:].mean() > 0.5


@pytest.mark.parametrize('name, left', [('bar1.png', 396), ('bar2.png', 0)])
def test_gap_beside_a_bar_is_as_black_as_lost_hit_points(name, left):
    assert not pixels(name)[78:, left:left + 4, :3].any()


@pytest.mark.parametrize('name, left', [('bar1.png', 0), ('bar2.png', 4)])
def test_bar_stands_out_from_lost_hit_points_by_brightness_alone(name, left):
    bar = pixels(name)[78:, left:left + 396, :3]
    assert (luminance(bar.mean((0, 1))) + 0.05) / 0.05 > 2


@pytest.mark.parametrize('name', ['bar1.png', 'bar2.png'])
def test_pointer_marks_the_middle_of_the_view(name):
    strip = lightness(pixels(name)[5:11])
    pointer, beside = strip[:, 196:204], strip[:, [*range(170, 186), *range(214, 230)]]
    assert pointer.mean() > beside.mean() + 60


def test_dial_glass_is_not_taken_for_a_filled_part():
    empty = lightness(pixels('kruh.png')[0:69, 0:69])
    y, x = numpy.mgrid[-34:35, -34:35]
    face = (numpy.hypot(x, y) > 12) & (numpy.hypot(x, y) < 22)
    quarters = [empty[face & (x * i > 0) & (y * j > 0)].mean() for i in (-1, 1) for j in (-1, 1)]
    assert max(quarters) - min(quarters) < 15


def test_compass_rose_goes_round():
    chart = lightness(pixels('menu.png')[90 - 18:90 + 18, 148 - 18:148 + 18])
    alike = [numpy.corrcoef(chart.ravel(), numpy.rot90(chart, turns).ravel())[0, 1]
             for turns in (1, 2, 3)]
    mirrored = numpy.corrcoef(chart.ravel(), chart[:, ::-1].ravel())[0, 1]
    assert min(alike) > 0.6 > mirrored


def test_water_covers_the_whole_sea_without_a_seam():
    sea = pixels('voda.png')[..., :3]
    assert sea.shape[0] >= sea.shape[1]
    for axis in (0, 1):
        inner = numpy.abs(numpy.diff(sea, axis=axis)).mean()
        seam = numpy.abs(sea.take(0, axis=axis) - sea.take(-1, axis=axis)).mean()
        assert seam < 1.5 * inner


def ship(phase):
    x, y = phase % 6 * 100, phase // 6 * 100
    return pixels('lod1.png')[y:y + 100, x:x + 100]


def wood_and_canvas(frame):
    """These are warm; foam and shadow, which cannot be hit, are cold."""
    return (frame[..., 3] > 127) & (frame[..., 0] > frame[..., 2])


@pytest.mark.parametrize('phase', range(36))
def test_ship_is_hit_where_its_hull_is_seen(phase):
    rows, columns = numpy.nonzero(wood_and_canvas(ship(phase)))
    width, height = HIT_BOX[phase % 9]
    if phase // 9 % 2 == 1:
        width, height = height, width
    left, top = 50 - width // 2, 50 - height // 2
    assert abs(columns.min() - left) <= 4 and abs(columns.max() + 1 - left - width) <= 4
    assert abs(rows.max() + 1 - top - height) <= 4
    # Seen obliquely, masts and sails rise above the box. They are not hit, so they must not rise
    # further than a third of the ship's length.
    assert -4 <= top - rows.min() <= 33


def test_ship_turns_on_the_spot():
    # Two opposite headings show the same hull turned round: its middle lies between their bounds.
    left, right, lower = (numpy.array([find(numpy.nonzero(wood_and_canvas(ship(phase))))
                                       for phase in range(36)])
                          for find in (lambda at: at[1].min(), lambda at: at[1].max() + 1,
                                       lambda at: at[0].max() + 1))
    sideways = (left + numpy.roll(right, 18)) / 2
    assert numpy.abs(sideways - 50).max() <= 1
    # Sails hide the upper bound of the hull, so the lower one is compared with a quarter turn's.
    upwards = lower + numpy.roll(left, -9)
    upwards = (upwards + numpy.roll(upwards, 18)) / 2
    assert numpy.abs(upwards - upwards.mean()).max() <= 1


def shadow_direction(frame):
    """Where the dark water beside the ship lies, in degrees clockwise from right."""
    y, x = numpy.indices(frame.shape[:2])
    body = without_holes(wood_and_canvas(frame))
    dark = (frame[..., 3] > 60) & ~body & (lightness(frame) < 90)
    return numpy.degrees(numpy.arctan2(y[dark].mean() - y[body].mean(),
                                       x[dark].mean() - x[body].mean()))


@pytest.mark.parametrize('phase', range(36))
def test_ships_shadow_falls_to_the_lower_right(phase):
    # If the picture were merely turned, the shadow would turn with the ship.
    assert abs(shadow_direction(ship(phase)) - 50) <= 15


@pytest.mark.parametrize('phase', range(36))
def test_sails_show_cloth_rather_than_blank_paper(phase):
    frame = ship(phase)
    values = lightness(frame)[(frame[..., 3] >= 250)]
    assert (values[values > 150] > 242).mean() <= 0.22


def luminance(colours):
    value = colours / 255
    linear = numpy.where(value <= 0.04045, value / 12.92, ((value + 0.055) / 1.055) ** 2.4)
    return linear @ numpy.array([0.2126, 0.7152, 0.0722])


def without_holes(mask):
    """The mask with its holes filled."""
    ground = Image.fromarray(numpy.pad(mask, 1).astype(numpy.uint8)).copy()
    ImageDraw.floodfill(ground, (0, 0), 2)
    return numpy.asarray(ground)[1:-1, 1:-1] != 2


def neighbours(mask, beyond):
    """The mask moved by -1, 0 and 1 along both axes, as an array of 3 x 3 masks."""
    wide = numpy.pad(mask, 1, constant_values=beyond)
    height, width = mask.shape
    return numpy.array([[wide[y:y + height, x:x + width] for x in range(3)] for y in range(3)])


@pytest.mark.parametrize('phase', range(36))
def test_ships_outline_stands_out_from_the_sea(phase):
    frame = ship(phase)
    water = pixels('voda.png')[..., :3]
    sea = luminance(water).mean()
    cover = frame[..., 3:] / 255
    seen = luminance(frame[..., :3] * cover + water.mean((0, 1)) * (1 - cover))
    body = without_holes(wood_and_canvas(frame))
    lighter, darker = numpy.maximum(seen, sea), numpy.minimum(seen, sea)
    clear = body & ((lighter + 0.05) / (darker + 0.05) >= 3)
    beside = neighbours(~body, True)
    outline = body & (beside[0, 1] | beside[1, 0] | beside[1, 2] | beside[2, 1])
    # A clear tone on the outermost pixel or its neighbour.
    assert neighbours(clear, False).any((0, 1))[outline].mean() >= 0.9


@pytest.mark.parametrize('name', sorted(PACKED))
def test_packed_picture_is_solid(name):
    assert (pixels(name)[..., 3] == 255).all()


@pytest.mark.parametrize('name', [name for name, (_, alpha) in PICTURES.items() if alpha])
def test_alpha_is_none_or_all_where_nobody_could_tell(name):
    # The game has to blend every half-transparent pixel in every frame.
    alpha = pixels(name)[..., 3]
    assert not ((alpha > 0) & (alpha <= 4)).any()
    assert not ((alpha >= 251) & (alpha < 255)).any()


def test_no_crest_of_the_sea_is_striking():
    # A view shows the tile more than once, so a bright crest would be seen to repeat.
    sea = lightness(pixels('voda.png'))
    wide = numpy.pad(sea, ((0, 8), (0, 8)), mode='wrap').cumsum(0).cumsum(1)
    wide = numpy.pad(wide, ((1, 0), (1, 0)))
    around = (wide[9:, 9:] - wide[9:, :-9] - wide[:-9, 9:] + wide[:-9, :-9]) / 81
    assert around.max() < sea.mean() + 32
    assert around.max() < numpy.percentile(around, 99) + 10


def rims(solid):
    """The distance of the picture from each side of the rectangle, without the corners."""
    for side in (solid, solid[::-1], solid.T, solid.T[::-1]):
        away = numpy.where(side.any(axis=0), side.argmax(axis=0), len(side))
        yield away[len(away) // 8:-(len(away) // 8)]


BARRIERS = ['prekazka1.png', 'prekazka2.png', 'prekazka3.png']


@pytest.mark.parametrize('name', BARRIERS)
def test_barrier_does_not_show_its_rectangle(name):
    wander = [numpy.subtract(*numpy.percentile(rim, (95, 5)))
              for rim in rims(pixels(name)[..., 3] > 127)]
    # In pixels; three sides are enough to break the rectangle.
    assert sorted(wander)[1] >= 6


@pytest.mark.parametrize('name', ['prekazka2.png', 'prekazka3.png'])
def test_no_bright_ring_runs_along_the_rim_of_stones(name):
    barrier, sea = pixels(name), pixels('voda.png')[..., :3].mean((0, 1))
    body = without_holes(barrier[..., 3] > 127)
    inner = body
    for _ in range(3):
        beside = neighbours(inner, False)
        inner = inner & beside[0, 1] & beside[1, 0] & beside[1, 2] & beside[2, 1]
    cover = barrier[..., 3:] / 255
    seen = lightness(barrier[..., :3] * cover + sea * (1 - cover))
    assert (seen > lightness(sea) + 25)[body & ~inner].mean() < 0.7


@pytest.mark.parametrize('name', BARRIERS)
def test_no_ship_is_stopped_where_the_water_looks_open(name):
    alpha = pixels(name)[..., 3]
    for rim in rims(alpha > 127):
        assert rim[len(rim) // 8:-(len(rim) // 8)].mean() < 8
    for corner in (alpha, alpha[::-1], alpha[:, ::-1], alpha[::-1, ::-1]):
        assert (corner.diagonal() > 40).argmax() < 18


@pytest.mark.parametrize('name', BARRIERS)
def test_barrier_fills_its_rectangle(name):
    alpha = pixels(name)[..., 3] > 40
    for edge in (alpha[:4], alpha[-4:], alpha[:, :4], alpha[:, -4:]):
        assert edge.any()
    assert alpha.mean() > 0.75


def test_typeface_has_every_character():
    characters = set(TTFont(DATA / 'papyrus.ttf').getBestCmap())
    assert characters >= {*range(32, 127), *range(160, 256)}


def test_ship_of_the_night_picture_is_a_silhouette_before_the_moon():
    red, green, blue = (pixels('presentsscreen1.png')[..., i] for i in range(3))
    luma = .2126 * red + .7152 * green + .0722 * blue
    moon = numpy.quantile(luma, .99)
    rows, columns = numpy.nonzero(luma[:luma.shape[0] // 2] > .8 * moon)
    middle, radius = (columns.min() + columns.max()) / 2, (columns.max() - columns.min()) / 2
    y, x = numpy.mgrid[0:luma.shape[0], 0:luma.shape[1]]
    disc = numpy.hypot(x - middle, y - rows.min() - radius) < .9 * radius
    share = [((low * moon <= luma) & (luma < high * moon) & disc).sum() / disc.sum()
             for low, high in ((0, .5), (.5, .8), (.8, 2))]
    # Mostly a dark ship and a bright moon, and few tones in between.
    assert share[0] > .25 and share[1] < .08 and share[2] > .25, share
