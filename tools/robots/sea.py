# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The battlefield that a seed of the random generator leads to, and ways across it."""

import ctypes
import heapq
import math

import numpy

from .artwork import blend, pack, unpack

WORLD = 1300
SHIP = 100
LAST = WORLD - SHIP  # the largest coordinate of a ship
VIEW_WIDTH, VIEW_HEIGHT = 390, 490
BARRIER_TYPES = (0,) + (1,) * 3 + (2,) * 9
GRID = 20  # pixels between the knots of the net that courses are laid on


class Random:
    """The C library's own generator, with a state apart from that of this process."""

    def __init__(self, seed):
        self.library = ctypes.CDLL(None)
        self.library.initstate.restype = ctypes.c_void_p
        self.library.setstate.argtypes = [ctypes.c_void_p]
        self.library.setstate.restype = ctypes.c_void_p
        self.library.random.restype = ctypes.c_long
        # 128 bytes select the generator that rand() and random() use after srand().
        self.state = ctypes.create_string_buffer(128)
        before = self.library.initstate(ctypes.c_uint(seed), self.state, 128)
        self.library.setstate(before)

    def below(self, bound):
        before = self.library.setstate(ctypes.addressof(self.state))
        value = self.library.random() % bound
        self.library.setstate(before)
        return value


class Sea:
    """Barriers as (x, y, w, h), start places and headings of the first battle after srand(seed)."""

    def __init__(self, seed, artwork):
        self.seed = seed
        self.artwork = artwork
        self.random = Random(seed)
        self.random.below(2)  # the choice of the music
        self.barriers = []
        for kind in BARRIER_TYPES:
            self.barriers.append(self._place_barrier(artwork.barriers[kind].shape))
        self.starts, self.headings = [], []
        for _ in (1, 2):
            self.headings.append(self.random.below(20) / 5)
            self.starts.append(self.place_ship())
        (x1, y1), (x2, y2) = self.starts
        if x1 == x2 or y1 == y2:
            self.starts[1] = self.place_ship()

    def _place_barrier(self, shape):
        h, w = shape[:2]
        while True:
            x = self.random.below(WORLD - w)
            y = self.random.below(WORLD - h)
            if not any(overlap((x, y, w, h), other) for other in self.barriers):
                return x, y, w, h

    def place_ship(self):
        """Draws the next random place of a ship, as a teleport does."""
        while True:
            x = self.random.below(7) * 100 + 100
            y = self.random.below(7) * 100 + 100
            if self.is_free(x, y):
                return x, y

    def is_free(self, x, y, margin=0):
        wide = (x - margin, y - margin, SHIP + 2 * margin, SHIP + 2 * margin)
        return not any(overlap(wide, barrier) for barrier in self.barriers)

    def chart(self):
        """The whole sea without ships, as 0xRRGGBB."""
        water = unpack(self.artwork.water).astype(numpy.uint8)
        repeats = WORLD // water.shape[0] + 1, WORLD // water.shape[1] + 1, 1
        canvas = numpy.tile(water, repeats)[:WORLD, :WORLD].copy()
        for kind, (x, y, _, _) in zip(BARRIER_TYPES, self.barriers):
            blend(canvas, self.artwork.barriers[kind], x, y)
        return pack(canvas)

    def course(self, start, goals, margin=10):
        """The shortest course from start to any of the goals: its corners, or None."""
        knots = self._free_knots(margin)
        first = nearest_knot(start)
        targets = {nearest_knot(goal): goal for goal in goals}
        targets = {knot: goal for knot, goal in targets.items() if knots[knot]}
        distance, parent, queue = {first: 0.0}, {}, [(0.0, first)]
        while queue:
            so_far, knot = heapq.heappop(queue)
            if knot in targets:
                return self._corners(start, knot, parent, targets[knot], margin)
            if so_far > distance[knot]:
                continue
            for step, neighbour in neighbours(knot, knots):
                if so_far + step < distance.get(neighbour, math.inf):
                    distance[neighbour] = so_far + step
                    parent[neighbour] = knot
                    heapq.heappush(queue, (so_far + step, neighbour))
        return None

    def _free_knots(self, margin):
        count = LAST // GRID + 1
        places = numpy.arange(count) * GRID
        free = numpy.ones((count, count), bool)
        for x, y, w, h in self.barriers:
            columns = (places + SHIP + margin > x) & (places - margin < x + w)
            rows = (places + SHIP + margin > y) & (places - margin < y + h)
            free[numpy.ix_(columns, rows)] = False
        return free

    def _corners(self, start, knot, parent, goal, margin):
        knots = [goal]
        while knot in parent:
            knots.append((knot[0] * GRID, knot[1] * GRID))
            knot = parent[knot]
        knots.append(start)
        knots.reverse()
        corners, at = [], 0
        while at < len(knots) - 1:
            ahead = len(knots) - 1
            while ahead > at + 1 and not self.is_straight(knots[at], knots[ahead], margin - 4):
                ahead -= 1
            corners.append(knots[ahead])
            at = ahead
        return corners

    def is_straight(self, start, end, margin=0):
        """True when a ship can sail from start to end in a straight line."""
        steps = max(1, int(math.dist(start, end) // 8))
        return all(self.is_free(round(start[0] + (end[0] - start[0]) * i / steps),
                                round(start[1] + (end[1] - start[1]) * i / steps), margin)
                   for i in range(steps + 1))


def overlap(a, b):
    return a[1] + a[3] > b[1] and a[1] < b[1] + b[3] and a[0] + a[2] > b[0] and a[0] < b[0] + b[2]


def nearest_knot(place):
    return round(place[0] / GRID), round(place[1] / GRID)


def neighbours(knot, free):
    count = len(free)
    for dx in (-1, 0, 1):
        for dy in (-1, 0, 1):
            x, y = knot[0] + dx, knot[1] + dy
            if (dx or dy) and 0 <= x < count and 0 <= y < count and free[x, y]:
                yield math.hypot(dx, dy), (x, y)


def aim_viewport(x, y):
    """Where in the world the viewport of a ship at x, y looks."""
    return (clamp(x + SHIP // 2 - VIEW_WIDTH // 2, WORLD - VIEW_WIDTH - 1),
            clamp(y + SHIP // 2 - VIEW_HEIGHT // 2, WORLD - VIEW_HEIGHT - 1))


def clamp(value, most):
    return min(max(value, 0), most)
