# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What a player can read off the battle's display: places, headings, balls, bars and dials."""

import math

import numpy

from .artwork import DIAL_FRAMES, PHASES, blend, likeness, pack, unpack
from .sea import LAST, SHIP, VIEW_HEIGHT, VIEW_WIDTH, WORLD, aim_viewport

VIEWPORTS = ((5, 5), (405, 5))
CENTRE = (VIEW_WIDTH // 2 - SHIP // 2, VIEW_HEIGHT // 2 - SHIP // 2)
PANELS = ((0, 500), (400, 500))
BARS = ((0, 578), (404, 578))
BAR_WIDTH, BAR_HEIGHT = 396, 22
DIALS = ((308, 508), (712, 508))
DIAL_SIZE = 69
FULL_DIAL = DIAL_FRAMES - 1
RUN = 6  # pixels of a row that together are rare enough to know a picture by


class RowIndex:
    """Finds rows of pixels of an endlessly repeated tile."""

    def __init__(self, tile):
        self.tile = tile
        self.height, self.width = tile.shape
        flat = tile.ravel()
        self.order = numpy.argsort(flat, kind="stable")
        self.sorted = flat[self.order]

    def find(self, row):
        """All (x, y) of the tile where the row begins."""
        first = numpy.searchsorted(self.sorted, row[0], "left")
        last = numpy.searchsorted(self.sorted, row[0], "right")
        y, x = numpy.divmod(self.order[first:last], self.width)
        for i in range(1, len(row)):
            fits = self.tile[y, (x + i) % self.width] == row[i]
            x, y = x[fits], y[fits]
        return list(zip(x.tolist(), y.tolist()))


class Sprite:
    """A picture with transparency that is found by runs of its opaque pixels."""

    def __init__(self, picture):
        self.opaque = picture[..., 3] == 255
        self.colours = pack(picture)
        self.anchors = self._choose_anchors()
        ys, xs = numpy.nonzero(self.opaque)
        some = slice(None, None, max(1, len(xs) // 300))
        self.sample = xs[some], ys[some]

    def _choose_anchors(self):
        """Varied runs in the upper, middle and lower part, as another ship may hide the rest."""
        height = self.opaque.shape[0]
        anchors = []
        for part in range(3):
            runs = self._most_varied(height * part // 3, height * (part + 1) // 3)
            anchors += runs[::max(1, len(runs) // 2)][:2]
        return anchors

    def _most_varied(self, top, bottom):
        best, variety = [], 2
        for y in range(top, bottom):
            for x in range(self.opaque.shape[1] - RUN + 1):
                if self.opaque[y, x:x + RUN].all():
                    colours = len(set(self.colours[y, x:x + RUN].tolist()))
                    if colours > variety:
                        best, variety = [(x, y)], colours
        return best

    def find(self, view):
        """All (x, y) in the view where most of the picture is seen."""
        found = set()
        for x, y in self.anchors:
            run = self.colours[y, x:x + RUN]
            rows, columns = numpy.nonzero(view[:, :1 - RUN] == run[0])
            for i in range(1, RUN):
                fits = view[rows, columns + i] == run[i]
                rows, columns = rows[fits], columns[fits]
            found.update((int(c) - x, int(r) - y) for r, c in zip(rows, columns))
        return [place for place in found if self.share(view, *place) > 0.6]

    def share(self, view, x, y):
        """The share of the picture's opaque pixels inside the view that are seen at x, y."""
        xs, ys = self.sample[0] + x, self.sample[1] + y
        inside = (xs >= 0) & (ys >= 0) & (xs < view.shape[1]) & (ys < view.shape[0])
        if inside.sum() < len(xs) // 3:
            return 0.0
        seen = view[ys[inside], xs[inside]]
        meant = self.colours[self.sample[1][inside], self.sample[0][inside]]
        return float((seen == meant).mean())


class Lookout:
    """Reads battle pictures. It keeps no memory, apart from the pictures it compares with."""

    def __init__(self, artwork):
        self.artwork = artwork
        self.water = RowIndex(artwork.water)
        self.ships = [Sprite(frame) for frame in artwork.ships]
        self.ball = Sprite(artwork.ball)
        self.dials = self._compose_dials()

    def _compose_dials(self):
        dials = []
        for player in (0, 1):
            panel = unpack(self.artwork.panels[player]).astype(numpy.uint8)
            x, y = (DIALS[player][i] - PANELS[player][i] for i in (0, 1))
            frames = []
            for dial in self.artwork.dials:
                canvas = panel.copy()
                blend(canvas, dial, x, y)
                frames.append(canvas[y:y + DIAL_SIZE, x:x + DIAL_SIZE].astype(int))
            dials.append(numpy.stack(frames))
        return dials

    @staticmethod
    def view(picture, player):
        x, y = VIEWPORTS[player]
        return picture[y:y + VIEW_HEIGHT, x:x + VIEW_WIDTH]

    def is_battle(self, picture):
        """True when both panels stand below the viewports."""
        return all(likeness(picture[y:y + 70:5, x:x + 300:5], panel[:70:5, :300:5]) > 0.98
                   for (x, y), panel in zip(PANELS, self.artwork.panels))

    def water_phase(self, view):
        """Where the view looks, modulo the water tile, or None when too little sea is seen."""
        votes = {}
        for y in range(7, VIEW_HEIGHT, 67):
            for x in range(9, VIEW_WIDTH - RUN, 61):
                for tile_x, tile_y in self.water.find(view[y, x:x + RUN]):
                    place = (tile_x - x) % self.water.width, (tile_y - y) % self.water.height
                    votes[place] = votes.get(place, 0) + 1
                    if votes[place] == 6:
                        return place
        return None

    def look_places(self, phase):
        """All places in the world that a viewport with this water phase can look at."""
        return [(x, y)
                for x in range(phase[0], WORLD - VIEW_WIDTH, self.water.width)
                for y in range(phase[1], WORLD - VIEW_HEIGHT, self.water.height)]

    def start_places(self, phase):
        """The start and teleport places whose viewport has this water phase."""
        grid = range(100, 701, 100)
        look = self.look_places(phase)
        return [(x, y) for x in grid for y in grid if aim_viewport(x, y) in look]

    def find_ships(self, view, phases=range(PHASES)):
        """All ships in the view as (x, y, phase), the top left corner of their squares."""
        return [(x, y, phase) for phase in phases for x, y in self.ships[phase].find(view)]

    def ship_at(self, view, x, y, phases):
        """The phase of the ship at this place of the view, or None."""
        shares = [(self.ships[phase].share(view, x, y), phase) for phase in phases]
        share, phase = max(shares)
        return phase if share > 0.9 else None

    def find_balls(self, view):
        return self.ball.find(view)

    def bar(self, picture, player):
        """The width of the hit-point bar, or None when it is not a bar with a black end."""
        x, y = BARS[player]
        seen = picture[y:y + BAR_HEIGHT, x:x + BAR_WIDTH]
        panel = self.artwork.panels[player]
        left, top = x - PANELS[player][0], y - PANELS[player][1]
        full = panel[top:top + BAR_HEIGHT, left:left + BAR_WIDTH]
        black = (seen == 0).all(0)
        whole = (numpy.abs(unpack(seen) - unpack(full)) <= 3).all((0, 2))
        lost = int(numpy.argmin(black[::-1])) if not black.all() else BAR_WIDTH
        width = BAR_WIDTH - lost
        return width if whole[:width].all() else None

    def dial(self, picture, player):
        """The number of the dial's picture, 0 just fired to 40 loaded."""
        x, y = DIALS[player]
        seen = unpack(picture[y:y + DIAL_SIZE, x:x + DIAL_SIZE])
        return int(numpy.abs(self.dials[player] - seen).mean((1, 2, 3)).argmin())


def phase_of(heading):
    """The sprite that the game shows for a heading in radians."""
    turned = (4.911 - heading) % 6.282
    return int(turned * PHASES / 6.282)


def headings_of(phase, count=7):
    """Headings spread over all that one sprite stands for, without the very edges."""
    return [4.911 - (phase + (i + 0.5) / count) * 6.282 / PHASES for i in range(count)]


def heading_of(phase):
    return 4.911 - (phase + 0.5) * 6.282 / PHASES


def bearing(start, end):
    """The heading from one place to another."""
    return math.atan2(end[0] - start[0], end[1] - start[1])


def is_in_world(x, y):
    return 0 <= x <= LAST and 0 <= y <= LAST
