# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Remembers what the pictures have shown of the sea, both ships and the cannonballs.

Places are top left corners in world pixels. Headings are radians; 0 points down the display, and a
turn to the left increases the heading. Speeds are pixels per frame. Times are seconds. A frame of
the game takes 16 ms at full pace; the chart measures how long it takes at present.
"""

import math
from collections import deque

import numpy

from .artwork import PHASES
from .see import (BAR_WIDTH, CENTRE, FULL_DIAL, LAST, LAST_LOOK, SHIP, VIEW_HEIGHT,
                  VIEW_WIDTH, aim_viewport)

FRAME = 0.016  # seconds
SLOWEST_FRAME = 0.06  # seconds, on a very busy machine
TOP_SPEEDS = (6, 5)
TURN = 0.05  # radians per frame
FULL_TURN = 6.282
HEADING_OF_PHASE_0 = 4.911
STEP = FULL_TURN / PHASES
BARRIERS_OF_TYPE = (1, 3, 9)
PACE_STEPS = 8  # steps of the dial over which the pace is measured
HITS = 10  # to sink a ship
RELOAD, TELEPORT_RELOAD = 120, 300  # frames
RECENT = 0.12  # seconds over which speeds are measured, at least
UNDER_WAY = 1.0  # pixels per frame from which a ship counts as under way
GRAIN = 4  # width and height, in pixels, of a cell in the grid of blocked places
SURE = 3  # sightings after which a barrier is certain
LOST_AFTER = 1.0  # seconds without being seen where it should be, after which a ship is lost
STRAIN = 12  # pixels by which a ship against a shore may be off the middle of its viewport


def phase_of(heading):
    """The sprite that the game shows for a heading."""
    return int((HEADING_OF_PHASE_0 - heading) % FULL_TURN * PHASES / FULL_TURN)


def heading_of(phase):
    """The middle of the headings that one sprite stands for."""
    return HEADING_OF_PHASE_0 - (phase + 0.5) * STEP


def turn_between(start, end):
    """The shortest turn from one heading to another, positive to the left."""
    return math.remainder(end - start, math.tau)


def phases_apart(first, second):
    return abs((first - second + PHASES // 2) % PHASES - PHASES // 2)


def overlap(a, b):
    return a[1] + a[3] > b[1] and a[1] < b[1] + b[3] and a[0] + a[2] > b[0] and a[0] < b[0] + b[2]


class Track:
    """What is known about one ship."""

    def __init__(self, player):
        self.player = player
        self.look = None  # the top left corner of its viewport in the world
        self.in_view = None  # the place in its viewport where it was seen, None while it is hidden
        self.place = None
        self.phase = None
        self.seen = 0.0  # when the ship was last seen
        self.frame = FRAME  # seconds that a frame of the game takes at present
        self.hits = 0  # hits taken
        self.bar = None  # width of the hit-point bar, None if it could not be read
        self.dial = FULL_DIAL
        self.emptied = None  # (time, dial) at which the measurement of the pace began
        self.reload = RELOAD  # frames that the whole dial stands for
        self.jumped = -math.inf  # when it last teleported
        self.hit = -math.inf  # when it was last hit
        self.fired_at = 0.0  # the speed at which it fired its last shot
        self.trail = deque(maxlen=60)  # (time, place, phase)

    def since(self, seconds):
        """The newest entry of the trail that is at least as old as this, or the oldest."""
        now = self.trail[-1][0]
        return next((entry for entry in reversed(self.trail) if now - entry[0] >= seconds),
                    self.trail[0])

    @property
    def velocity(self):
        (then, (x1, y1), _), (now, (x2, y2), _) = self.since(RECENT), self.trail[-1]
        frames = max(now - then, self.frame) / self.frame
        most = TOP_SPEEDS[self.player]
        return tuple(max(-most, min(most, way / frames)) for way in (x2 - x1, y2 - y1))

    @property
    def speed(self):
        return math.hypot(*self.velocity)

    @property
    def turning(self):
        """Radians per frame, positive to the left."""
        (then, _, first), (now, _, last) = self.since(RECENT), self.trail[-1]
        if first is None or last is None or now == then:
            return 0.0
        turned = ((first - last + PHASES // 2) % PHASES - PHASES // 2) * STEP
        return max(-TURN, min(TURN, turned * self.frame / (now - then)))

    @property
    def heading(self):
        return heading_of(self.phase)

    @property
    def loaded_in(self):
        """Frames until the cannon can fire."""
        return (FULL_DIAL - self.dial) * self.reload / FULL_DIAL


class Chart:
    """The memory of a duel. update() expects every picture that was read."""

    def __init__(self, lookout):
        self.lookout = lookout
        self.ships = (Track(0), Track(1))
        self.barriers = {}  # (type, x, y) in the world: how often it was seen
        self.blocked = self._find_blocked()  # by column and row: True where no ship can be
        self.balls = []  # places of the cannonballs in the last picture
        self.time = -math.inf
        self.frame = FRAME  # seconds that a frame of the game takes at present
        self.doubts = 0

    @property
    def is_complete(self):
        """True when both ships have been found."""
        return all(ship.phase is not None for ship in self.ships)

    @property
    def distance(self):
        return math.dist(self.ships[0].place, self.ships[1].place)

    def rectangles(self):
        """The barriers as (x, y, w, h)."""
        sizes = self.lookout.barrier_sizes
        return [(x, y, *sizes[kind]) for kind, x, y in self.barriers]

    def update(self, time, halves):
        elapsed, self.time = time - self.time, time
        balls = set()
        for ship, half in zip(self.ships, halves):
            if half.water is not None:
                self._locate(ship, half, elapsed)
                balls.update((ship.look[0] + x, ship.look[1] + y) for x, y in half.balls)
            self._read_gauges(ship, half)
        self.balls = sorted(balls)

    def _locate(self, ship, half, elapsed):
        looks = self.lookout.looks(half.water)
        values = {look: self._agreement(look, half.barriers) for look in looks}
        jumped = ship.look is None
        if not jumped:
            look = self._follow(ship, half.ships, values, elapsed)
            jumped = look is None
            if jumped:
                ship.jumped, ship.reload, ship.emptied = self.time, TELEPORT_RELOAD, None
        if jumped:
            # At each place where a ship can start, its viewport shows different water.
            look = max(looks, key=lambda look: values[look] - from_start(look) / 20)
            ship.trail.clear()
        ship.look = look
        self._find(ship, half.ships, jumped)
        self._note_barriers(look, half.barriers)

    def _follow(self, ship, seen, values, elapsed):
        """The viewport's new place near its old one, or None when the ship has teleported."""
        if self.time - ship.seen > LOST_AFTER:
            # The viewport was not there: pick a place at which a ship is where the viewport would
            # keep it.
            return max(values, key=lambda look: values[look] + 3 * any(
                may_be_of(look, other) for other in seen) - math.dist(look, ship.look) / 10000)
        reach = 20 + min(1.2 * TOP_SPEEDS[ship.player] * elapsed / FRAME, 140)
        look = max(values, key=lambda look: values[look]
                   - 0.6 * (math.dist(look, ship.look) > reach)
                   - math.dist(look, ship.look) / 10000)
        return look if math.dist(look, ship.look) <= reach else None

    def _find(self, ship, seen, jumped):
        """Finds the ship in its viewport: in the middle, except along the world's border."""
        expected, slack = [], []
        for axis in (0, 1):
            is_free = 0 < ship.look[axis] < LAST_LOOK[axis]
            known = ship.place and not jumped
            expected.append(CENTRE[axis] if is_free
                            else ship.place[axis] - ship.look[axis] if known else 100)
            slack.append(STRAIN if is_free else LAST)
        since = (self.time - ship.seen) / self.frame
        near = [((x, y), phase) for x, y, phase in seen
                if abs(x - expected[0]) <= slack[0] and abs(y - expected[1]) <= slack[1]
                and (ship.phase is None or jumped
                     or phases_apart(phase, ship.phase) <= 3 + since * TURN / STEP)]
        ship.in_view = None
        if near:
            ship.in_view, ship.phase = min(near, key=lambda found: (
                math.dist(found[0], expected)))
            ship.seen = self.time
            expected = ship.in_view
        ship.place = tuple(min(max(ship.look[axis] + expected[axis], 0), LAST)
                           for axis in (0, 1))
        ship.trail.append((self.time, ship.place, ship.phase))

    def _agreement(self, look, barriers):
        """The number of barriers that agree with the known ones here, less those that do not."""
        total = 0
        seen = self._in_world(look, barriers)
        for barrier in seen:
            if barrier in self.barriers:
                total += 1
            elif not self._is_possible(barrier):
                total -= 1
        return total - sum(known not in seen and self._is_in_view(look, known)
                           for known, times in self.barriers.items() if times >= SURE)

    def _is_in_view(self, look, barrier):
        """True when a viewport at look contains the whole barrier."""
        kind, x, y = barrier
        w, h = self.lookout.barrier_sizes[kind]
        return (look[0] <= x and x + w <= look[0] + VIEW_WIDTH
                and look[1] <= y and y + h <= look[1] + VIEW_HEIGHT)

    @staticmethod
    def _in_world(look, barriers):
        return [(kind, look[0] + x, look[1] + y) for kind, x, y in barriers]

    def _is_possible(self, barrier):
        kind = barrier[0]
        if sum(known[0] == kind for known in self.barriers) >= BARRIERS_OF_TYPE[kind]:
            return False
        place = (*barrier[1:], *self.lookout.barrier_sizes[kind])
        return not any(overlap(place, known) for known in self.rectangles())

    def _note_barriers(self, look, barriers):
        wrong = 0
        for barrier in self._in_world(look, barriers):
            if barrier in self.barriers or self._is_possible(barrier):
                self.barriers[barrier] = self.barriers.get(barrier, 0) + 1
                if self.barriers[barrier] == 1:
                    self.blocked = self._find_blocked()
            else:
                wrong += 1
        self.doubts = self.doubts + 1 if wrong else max(0, self.doubts - 1)
        if self.doubts > 20:
            self.barriers.clear()
            self.blocked = self._find_blocked()
            self.doubts = 0

    def _find_blocked(self):
        grid = numpy.zeros((LAST // GRAIN + 1,) * 2, bool)
        for x, y, w, h in self.rectangles():
            grid[max(x - SHIP + GRAIN, 0) // GRAIN:(x + w - 1) // GRAIN + 1,
                 max(y - SHIP + GRAIN, 0) // GRAIN:(y + h - 1) // GRAIN + 1] = True
        return grid

    def _read_gauges(self, ship, half):
        if half.bar is not None:
            hits = HITS - round(half.bar / BAR_WIDTH * HITS)
            if hits > ship.hits:
                ship.hit = self.time
            ship.hits = max(ship.hits, hits)
        ship.bar = half.bar
        if half.dial < ship.dial - 1 and ship.trail:
            ship.fired_at = ship.speed
            ship.reload = TELEPORT_RELOAD if self.time - ship.jumped < 0.5 else RELOAD
            ship.emptied = self.time, half.dial
        ship.dial = half.dial
        self._measure_pace(ship)
        ship.frame = self.frame

    def _measure_pace(self, ship):
        """Measures how long a frame takes: the dial advances with the frames of the game."""
        if ship.dial == FULL_DIAL or ship.emptied is None:
            return
        time, dial = ship.emptied
        if ship.dial - dial >= PACE_STEPS:
            frame = (self.time - time) / ((ship.dial - dial) * ship.reload / FULL_DIAL)
            self.frame = (self.frame + min(max(frame, FRAME), SLOWEST_FRAME)) / 2
            ship.emptied = self.time, ship.dial


def may_be_of(look, seen):
    """True when a ship seen at this place can be the one that the viewport follows."""
    return all(abs(seen[axis] - CENTRE[axis]) <= STRAIN or not 0 < look[axis] < LAST_LOOK[axis]
               for axis in (0, 1))


START_LOOKS = [aim_viewport(x, y) for x in range(100, 701, 100) for y in range(100, 701, 100)]


def from_start(look):
    """The distance of a viewport from the nearest place that it can have at a start or teleport."""
    return min(math.dist(look, start) for start in START_LOOKS)
