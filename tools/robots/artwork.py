# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The game's pictures, and its still screens composed from them as the display should show them."""

from functools import cached_property
from pathlib import Path

import numpy
from PIL import Image, ImageDraw, ImageFont

WIDTH, HEIGHT = 800, 600
PHASES = 36
DIAL_FRAMES = 41
BUTTON_TYPES = (2, 8, 9, 11)
BUTTON_WIDTH, BUTTON_HEIGHT = 200, 43
HIGHLIGHT_OFFSET = 559
FONT_SIZE = 29
# The results of blending differ by up to this much between the two SDL 1.2 libraries.
BLEND_TOLERANCE = 3


def pack(pixels):
    """Packs an array with 3 or 4 bytes for each pixel into 0xRRGGBB."""
    wide = pixels.astype(numpy.uint32)
    return wide[..., 0] << 16 | wide[..., 1] << 8 | wide[..., 2]


def unpack(picture):
    return numpy.stack([picture >> 16 & 255, picture >> 8 & 255, picture & 255], -1).astype(int)


def blend(canvas, picture, x, y):
    """Draws an RGBA picture onto an RGB canvas, clipped, in place."""
    height, width = canvas.shape[:2]
    left, top = max(x, 0), max(y, 0)
    right, bottom = min(x + picture.shape[1], width), min(y + picture.shape[0], height)
    if right <= left or bottom <= top:
        return
    source = picture[top - y:bottom - y, left - x:right - x].astype(int)
    alpha = source[..., 3:]
    place = canvas[top:bottom, left:right]
    place[...] = (source[..., :3] * alpha + place.astype(int) * (255 - alpha) + 127) // 255


def difference(picture, expected):
    """Mean difference of the channels, 0 to 255."""
    return float(numpy.abs(unpack(picture) - unpack(expected)).mean())


def likeness(picture, expected, tolerance=BLEND_TOLERANCE):
    """The share of pixels that agree."""
    far = numpy.abs(unpack(picture) - unpack(expected)).max(-1) > tolerance
    return 1 - float(far.mean())


class Artwork:
    """The pictures of the data directory below root, each loaded on first use."""

    def __init__(self, root):
        self.directory = Path(root) / "data"

    def load(self, name):
        with Image.open(self.directory / name) as image:
            return numpy.array(image.convert("RGBA"))

    @cached_property
    def water(self):
        return pack(self.load("voda.png"))

    @cached_property
    def barriers(self):
        return [self.load(f"prekazka{number}.png") for number in (1, 2, 3)]

    @cached_property
    def ships(self):
        sheet = self.load("lod1.png")
        return [cell(sheet, phase % 6, phase // 6, 100) for phase in range(PHASES)]

    @cached_property
    def ball(self):
        return self.load("cball.png")

    @cached_property
    def panels(self):
        return [pack(over_black(self.load(f"bar{number}.png"))) for number in (1, 2)]

    @cached_property
    def dials(self):
        sheet = self.load("kruh.png")
        return [cell(sheet, k // 5, k % 5, 69) for k in range(DIAL_FRAMES)]

    def centred(self, name):
        """A picture of the intro, centred on black."""
        picture = self.load(name)
        canvas = numpy.zeros((HEIGHT, WIDTH, 3), numpy.uint8)
        blend(canvas, picture, (WIDTH - picture.shape[1]) // 2, (HEIGHT - picture.shape[0]) // 2)
        return pack(canvas)

    @cached_property
    def _title(self):
        canvas = numpy.zeros((HEIGHT, WIDTH, 3), numpy.uint8)
        blend(canvas, self.load("pozadie-lode3.png"), 0, 0)
        logo = self.load("logo.png")
        blend(canvas, logo, (WIDTH - logo.shape[1]) // 2, 0)
        return canvas

    def title(self):
        return pack(self._title)

    @cached_property
    def button_places(self):
        """The top left corners of the four buttons."""
        logo_height = self.load("logo.png").shape[0]
        panel_height = self.load("menu.png").shape[0]
        x = (WIDTH - BUTTON_WIDTH) // 2
        return [(x, logo_height + (panel_height + (2 * i - 4) * BUTTON_HEIGHT) // 2)
                for i in range(4)]

    def menu(self, focus=None):
        """The menu at rest with the given button focused."""
        canvas = self._title.copy()
        panel = self.load("menu.png")
        blend(canvas, panel, (WIDTH - panel.shape[1]) // 2, self.load("logo.png").shape[0])
        strip = self.load("tlacitka.png")
        for button, (x, y) in enumerate(self.button_places):
            top = BUTTON_HEIGHT * BUTTON_TYPES[button]
            if button == focus:
                top += HIGHLIGHT_OFFSET
            blend(canvas, strip[top:top + BUTTON_HEIGHT, :BUTTON_WIDTH], x, y)
        return pack(canvas)

    @cached_property
    def _font(self):
        return ImageFont.truetype(str(self.directory / "papyrus.ttf"), FONT_SIZE,
                                  layout_engine=ImageFont.Layout.BASIC)

    def text(self, line):
        """The brightness of one line of white text, 0 to 255, cropped to the letters."""
        image = Image.new("L", (WIDTH, 3 * FONT_SIZE))
        ImageDraw.Draw(image).text((4, FONT_SIZE), line, fill=255, font=self._font)
        return cut_to_ink(numpy.array(image))


def cell(sheet, column, row, size):
    return sheet[size * row:size * (row + 1), size * column:size * (column + 1)]


def over_black(picture):
    canvas = numpy.zeros(picture.shape[:2] + (3,), numpy.uint8)
    blend(canvas, picture, 0, 0)
    return canvas


def cut_to_ink(grey, faintest=64):
    rows, columns = numpy.nonzero(grey >= faintest)
    if not len(rows):
        return grey[:0, :0]
    return grey[rows.min():rows.max() + 1, columns.min():columns.max() + 1]
