# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Reads from one picture of the battle what a player can see in it. Remembers nothing."""

from collections import Counter, namedtuple

import numpy

from .artwork import DIAL_FRAMES, PHASES, blend, likeness, pack, unpack

WORLD = 1300
SHIP = 100
LAST = WORLD - SHIP  # the largest coordinate of a ship
VIEW_WIDTH, VIEW_HEIGHT = 390, 490
LAST_LOOK = (WORLD - VIEW_WIDTH - 1, WORLD - VIEW_HEIGHT - 1)
VIEWPORTS = ((5, 5), (405, 5))
CENTRE = (VIEW_WIDTH // 2 - SHIP // 2, VIEW_HEIGHT // 2 - SHIP // 2)  # of a ship in its view
PANELS = ((0, 500), (400, 500))
BARS = ((0, 578), (404, 578))
BAR_WIDTH, BAR_HEIGHT = 396, 22
DIALS = ((308, 508), (712, 508))
DIAL_SIZE = 69
DIAL_GRAIN = 4  # every fourth pixel is enough to distinguish the dial's pictures
FULL_DIAL = DIAL_FRAMES - 1
BALL = PHASES
FIRST_BARRIER = PHASES + 1  # barriers are numbered by type from here on

# One player's half of a picture. water: the view's place in the world, modulo the water tile, or
# None; ships: (x, y, phase), top left corners in the view; balls: (x, y); barriers: (type, x, y);
# bar: width of the hit-point bar, None when it cannot be read; dial: from 0, just fired, to 40,
# loaded.
Half = namedtuple("Half", "water ships balls barriers bar dial")


class Runs:
    """Finds short runs of pixels with a table of their hash values."""

    LENGTH = 4
    FACTORS = (0x9E3779B1, 0x85EBCA77, 0xC2B2AE3D, 0x27D4EB2F)

    def __init__(self, bits, kind):
        self.shift = numpy.uint32(32 - bits)
        self.table = numpy.full(1 << bits, -1, kind)

    def keys(self, pixels):
        """The hash value of the run that begins at each pixel, except the last three of a row."""
        width = pixels.shape[-1] - self.LENGTH + 1
        total = numpy.zeros(pixels.shape[:-1] + (width,), numpy.uint32)
        for i, factor in enumerate(self.FACTORS):
            total += pixels[..., i:i + width] * numpy.uint32(factor)
        return total >> self.shift

    def find(self, pixels):
        """The table's entry for the run at each pixel, -1 for none."""
        return self.table[self.keys(pixels)]


class Water:
    """The repeated water tile. Each run that occurs in it only once shows where a view is."""

    def __init__(self, tile):
        self.height, self.width = tile.shape
        self.runs = Runs(21, numpy.int32)
        wrapped = numpy.concatenate([tile, tile[:, :Runs.LENGTH - 1]], 1)
        keys = self.runs.keys(wrapped).ravel()
        values, first, counts = numpy.unique(keys, return_index=True, return_counts=True)
        once = counts == 1
        self.runs.table[values[once]] = first[once]

    def phase(self, view):
        """The view's place in the world, modulo the tile, or None when it shows too little sea."""
        rows = view[7::41]
        found = self.runs.find(rows)
        lines, columns = numpy.nonzero(found >= 0)
        if len(lines) < 30:
            return None
        y, x = numpy.divmod(found[lines, columns], self.width)
        place = ((x - columns) % self.width + (y - 7 - 41 * lines) % self.height * self.width)
        values, counts = numpy.unique(place, return_counts=True)
        best = counts.argmax()
        if counts[best] < 30:
            return None
        y, x = divmod(int(values[best]), self.width)
        return x, y


class Sprites:
    """The pictures with transparency, which are found by runs of their opaque pixels."""

    BLOCK = 16  # pixels; every block has its own runs, because other blocks may be covered
    RUNS_PER_BLOCK = 6
    ROWS = 4  # only every fourth row of a view is searched

    def __init__(self, pictures, water):
        self.pictures = pictures
        self.water = water
        self.runs = Runs(19, numpy.int16)  # small enough for the processor's cache
        self.anchors = []
        self.samples = []
        for number, picture in enumerate(pictures):
            self._add(number, picture)
        self.anchors = numpy.array(self.anchors)

    def _add(self, number, picture):
        opaque = picture[..., 3] == 255
        colours = pack(picture)
        keys = self.runs.keys(colours)
        whole = numpy.ones(keys.shape, bool)
        varied = numpy.zeros(keys.shape, int)
        for i in range(Runs.LENGTH):
            part = slice(i, i + keys.shape[1])
            whole &= opaque[:, part]
            varied += colours[:, part] != colours[:, :keys.shape[1]]
        usable = whole & (varied >= 2) & (self.water.runs.table[keys] < 0)
        for top in range(0, picture.shape[0], self.BLOCK):
            for left in range(0, picture.shape[1], self.BLOCK):
                block = usable[top:top + self.BLOCK, left:left + self.BLOCK]
                ys, xs = numpy.nonzero(block)
                for pick in range(0, len(xs), max(1, len(xs) // self.RUNS_PER_BLOCK)):
                    x, y = int(xs[pick]) + left, int(ys[pick]) + top
                    self.runs.table[keys[y, x]] = len(self.anchors)
                    self.anchors.append((number, x, y))
        ys, xs = numpy.nonzero(opaque)
        some = slice(None, None, max(1, len(xs) // 200))
        self.samples.append((xs[some], ys[some], colours[ys[some], xs[some]]))

    def find(self, view):
        """All (number, x, y) in the view, the best match first, at most one ship at a place."""
        found = self.runs.find(view[::self.ROWS])
        rows, columns = numpy.nonzero(found >= 0)
        numbers, xs, ys = self.anchors[found[rows, columns]].T
        places = Counter(zip(numbers.tolist(), (columns - xs).tolist(),
                             (rows * self.ROWS - ys).tolist()))
        seen = sorted(((self.share(view, *place), place) for place, votes in places.items()
                       if votes >= 2 or place[0] == BALL), reverse=True)
        kept = []
        for share, (number, x, y) in seen:
            if share > (0.3 if number < BALL else 0.6) and not any(
                    number < BALL and other < BALL and abs(x - x2) < 8 and abs(y - y2) < 8
                    for other, x2, y2 in kept):
                kept.append((number, x, y))
        return kept

    def share(self, view, number, x, y):
        """The share of the picture's opaque pixels inside the view that match it at x, y."""
        xs, ys, colours = self.samples[number]
        xs, ys = xs + x, ys + y
        inside = (xs >= 0) & (ys >= 0) & (xs < view.shape[1]) & (ys < view.shape[0])
        count = numpy.count_nonzero(inside)
        if count < 25:
            return 0.0
        fits = view[ys[inside], xs[inside]] == colours[inside]
        return numpy.count_nonzero(fits) / count


class Lookout:
    """Reads battle pictures."""

    def __init__(self, artwork):
        self.artwork = artwork
        self.water = Water(artwork.water)
        self.barrier_sizes = [(picture.shape[1], picture.shape[0])
                              for picture in artwork.barriers]
        self.sprites = Sprites([*artwork.ships, artwork.ball, *artwork.barriers], self.water)
        self.dials = [self._compose_dials(player) for player in (0, 1)]

    def _compose_dials(self, player):
        x, y = (DIALS[player][i] - PANELS[player][i] for i in (0, 1))
        panel = unpack(self.artwork.panels[player][y:y + DIAL_SIZE, x:x + DIAL_SIZE])
        frames = []
        for dial in self.artwork.dials:
            canvas = panel.astype(numpy.uint8)
            blend(canvas, dial, 0, 0)
            frames.append(canvas[::DIAL_GRAIN, ::DIAL_GRAIN].astype(int))
        return numpy.stack(frames)

    @staticmethod
    def view(picture, player):
        x, y = VIEWPORTS[player]
        return picture[y:y + VIEW_HEIGHT, x:x + VIEW_WIDTH]

    def is_battle(self, picture):
        """True when both panels are below the viewports."""
        return all(likeness(picture[y:y + 70:5, x:x + 300:5], panel[:70:5, :300:5]) > 0.98
                   for (x, y), panel in zip(PANELS, self.artwork.panels))

    def read(self, picture):
        """Both players' halves of a battle picture, or None when it shows no battle."""
        if not self.is_battle(picture):
            return None
        return [self._read_half(picture, player) for player in (0, 1)]

    def _read_half(self, picture, player):
        view = self.view(picture, player)
        found = self.sprites.find(view)
        return Half(self.water.phase(view),
                    [(x, y, number) for number, x, y in found if number < BALL],
                    [(x, y) for number, x, y in found if number == BALL],
                    [(number - FIRST_BARRIER, x, y) for number, x, y in found if number > BALL],
                    self.bar(picture, player), self.dial(picture, player))

    def bar(self, picture, player):
        """The width of the hit-point bar, or None when it does not look like a bar."""
        x, y = BARS[player]
        seen = picture[y:y + BAR_HEIGHT:4, x:x + BAR_WIDTH]
        panel = self.artwork.panels[player]
        left, top = x - PANELS[player][0], y - PANELS[player][1]
        full = panel[top:top + BAR_HEIGHT:4, left:left + BAR_WIDTH]
        black = (seen == 0).all(0)
        whole = (numpy.abs(unpack(seen) - unpack(full)) <= 3).all((0, 2))
        lost = int(numpy.argmin(black[::-1])) if not black.all() else BAR_WIDTH
        width = BAR_WIDTH - lost
        return width if whole[:width].all() else None

    def dial(self, picture, player):
        """The number of the dial's picture, from 0, just fired, to 40, loaded."""
        x, y = DIALS[player]
        seen = unpack(picture[y:y + DIAL_SIZE:DIAL_GRAIN, x:x + DIAL_SIZE:DIAL_GRAIN])
        return int(numpy.abs(self.dials[player] - seen).mean((1, 2, 3)).argmin())

    def looks(self, phase):
        """All places in the world that a viewport with this water phase can have."""
        return [(x, y)
                for x in range(phase[0], LAST_LOOK[0] + 1, self.water.width)
                for y in range(phase[1], LAST_LOOK[1] + 1, self.water.height)]


def aim_viewport(x, y):
    """The top left corner, in the world, of the viewport of a ship at x, y."""
    return (min(max(x + SHIP // 2 - VIEW_WIDTH // 2, 0), LAST_LOOK[0]),
            min(max(y + SHIP // 2 - VIEW_HEIGHT // 2, 0), LAST_LOOK[1]))
