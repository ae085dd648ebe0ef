# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Contact sheets: pictures side by side with a caption below each."""

from PIL import Image, ImageDraw, ImageFont

from robots.artwork import Artwork

MARGIN, CAPTION = 10, 26
GROUND, INK = (52, 54, 58), (236, 232, 220)
CHECK = 8
# Good enough for judging a picture, and a quarter of the size of a lossless file.
QUALITY = 85


def checkered(size):
    """A checkerboard, the usual background for transparency."""
    ground = Image.new("RGB", size, (150, 150, 150))
    draw = ImageDraw.Draw(ground)
    for y in range(0, size[1], CHECK):
        for x in range(y // CHECK % 2 * CHECK, size[0], 2 * CHECK):
            draw.rectangle((x, y, x + CHECK - 1, y + CHECK - 1), (176, 176, 176))
    return ground


def flat(image, ground=None):
    """A picture on a background of the same size, or on a checkerboard."""
    ground = (ground or checkered(image.size)).convert("RGBA")
    ground.alpha_composite(image.convert("RGBA"))
    return ground.convert("RGB")


def tiled(tile, size):
    ground = Image.new("RGB", size)
    for y in range(0, size[1], tile.height):
        for x in range(0, size[0], tile.width):
            ground.paste(tile, (x, y))
    return ground


class Sheet:
    """Cells are added from left to right; a row is as high as its highest cell."""

    def __init__(self, root, columns):
        self.columns = columns
        self.cells = []
        font = Artwork(root).directory / "papyrus.ttf"
        self.font = ImageFont.truetype(str(font), 19)

    def add(self, image, caption):
        self.cells.append((image, caption))

    def rows(self):
        return [self.cells[i:i + self.columns] for i in range(0, len(self.cells), self.columns)]

    def width(self, image, caption):
        return max(image.width, int(self.font.getlength(caption)) + 1)

    def compose(self):
        rows = self.rows()
        widths = [max(self.width(*row[i]) for row in rows if i < len(row))
                  for i in range(len(rows[0]))]
        heights = [max(image.height for image, _ in row) for row in rows]
        size = (sum(widths) + MARGIN * (len(widths) + 1),
                sum(heights) + (CAPTION + MARGIN) * len(rows) + MARGIN)
        canvas = Image.new("RGB", size, GROUND)
        draw = ImageDraw.Draw(canvas)
        y = MARGIN
        for row, height in zip(rows, heights):
            x = MARGIN
            for (image, caption), width in zip(row, widths):
                canvas.paste(image, (x, y))
                draw.text((x, y + height + 2), caption, fill=INK, font=self.font)
                x += width + MARGIN
            y += height + CAPTION + MARGIN
        return canvas

    def save(self, path):
        self.compose().save(path, quality=QUALITY, optimize=True, subsampling=0)
        print(f"{path}: {path.stat().st_size // 1024} KB", flush=True)
