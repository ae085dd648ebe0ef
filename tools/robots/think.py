# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Decides which keys a pilot holds now, from what the chart remembers. No decision can fail.

Every decision weighs about two dozen headings. For each heading, the game's own rules of sailing
give the ship's places over the next 80 frames.
"""

import math
from collections import namedtuple

import numpy

from .chart import FRAME, GRAIN, STEP, TOP_SPEEDS, TURN, heading_of, turn_between
from .see import FULL_DIAL, LAST, SHIP

BALL_SPEEDS = (6, 7)
BALL = 20  # pixels
HEADINGS = 24
STRIDE = 4  # frames in one step of the calculated course
STEPS = 20
# The game's hit boxes in the first quarter turn. The third quarter is the same; in the second and
# the fourth, width and height are swapped.
HIT_WIDTHS = (100, 95, 95, 90, 85, 75, 65, 60, 50)
HIT_HEIGHTS = (40, 50, 60, 65, 75, 85, 90, 95, 95)
LOST_HITS = 3  # a pilot that is behind by this many hits teleports when it is hit
NEARLY_SUNK = 6  # from this many hits taken, it does so even if it is not behind
STUCK_AFTER = 0.7  # seconds without movement
FREEING = 0.8  # seconds for which a stuck ship tries to get free
BOXED_IN_AFTER = 3.0  # seconds within a small area, after which a ship teleports
UNDER_FIRE = 1.0  # seconds after a hit
SHOT_VALUE = 2.0  # added to the value of a heading on which a shot will hit
IMPATIENT_AFTER = 5.0  # seconds with a loaded cannon
# The value of a place astern of the enemy, by player. Only the faster ship can keep such a place;
# it has the slower cannonball.
STERN = (1.6, 0.5)
SPEED_STEP = 0.5  # pixels per frame that a ship gains with each frame

# ready: how many frames before the cannon is loaded a pilot begins to aim; spread: a pilot fires
# only if the shot would hit even with the heading off by this many radians either way, so a larger
# spread is stricter; patience: the longest flight of a shot in frames; distance: the fighting
# distance in pixels.
Style = namedtuple("Style", "ready spread patience distance")
BRISK = Style(ready=45, spread=0.06, patience=55, distance=210)
# The slower ship of player 2 turns in less room and has the faster ball. To keep duels even, its
# pilot aims only once the cannon is loaded, and fires only surer shots.
EVEN = (BRISK, BRISK._replace(ready=0, spread=0.15))

# keys: the actions to hold; turn: seconds after which left or right is to be released.
Wish = namedtuple("Wish", "keys turn")
REST = Wish(frozenset(), 0.0)


def hit_box(phase):
    """Width and height of the hit box."""
    i = phase % 9
    box = HIT_WIDTHS[i], HIT_HEIGHTS[i]
    return box[::-1] if phase // 9 % 2 == 1 else box


def sail(place, heading, speed, top, aims, blocked):
    """The places (steps x aims x 2) of a ship that turns towards each aim under full sail.

    blocked is the chart's grid of places where a ship cannot be.
    """
    turns = aims_turn(heading, aims)
    frames = STRIDE * numpy.arange(1, STEPS + 1)[:, None]
    headings = heading + numpy.clip(turns, -TURN * frames, TURN * frames)
    ways = STRIDE * numpy.minimum(top, speed + SPEED_STEP * frames)
    ways_x = (ways * numpy.sin(headings)).astype(int)
    ways_y = (ways * numpy.cos(headings)).astype(int)
    x, y = (numpy.full(len(aims), int(part)) for part in place)
    course = numpy.empty((STEPS, len(aims), 2))
    for step in range(STEPS):
        to_x = numpy.minimum(numpy.maximum(x + ways_x[step], 0), LAST)
        to_y = numpy.minimum(numpy.maximum(y + ways_y[step], 0), LAST)
        stopped = blocked[to_x // GRAIN, to_y // GRAIN]
        if stopped.any():
            # A ship against a shore slides along it, vertically if it can, else horizontally.
            down = stopped & ~blocked[x // GRAIN, to_y // GRAIN]
            across = stopped & ~down & ~blocked[to_x // GRAIN, y // GRAIN]
            to_x = numpy.where(stopped & ~across, x, to_x)
            to_y = numpy.where(stopped & ~down, y, to_y)
        x, y = to_x, to_y
        course[step, :, 0], course[step, :, 1] = x, y
    return course


def aims_turn(headings, aims):
    return (aims - headings + math.pi) % math.tau - math.pi


def flight(ship, place, speed, headings, enemy, patience, delay=0):
    """The frames until shots fired after a delay hit the enemy; infinite for a miss."""
    headings = numpy.asarray(headings)
    swift = BALL_SPEEDS[ship.player] + speed / 2
    step = numpy.trunc(swift * numpy.stack([numpy.sin(headings), numpy.cos(headings)], -1))
    frames = numpy.arange(1, patience + 1)
    start = numpy.array(place) + (SHIP - BALL) / 2
    balls = start + frames[:, None, None] * step
    targets = extrapolate(enemy, frames + delay) + SHIP / 2
    apart = numpy.abs(balls + BALL / 2 - targets[:, None])
    box = (numpy.array(hit_box(enemy.phase)) + BALL) / 2
    hits = (apart < box).all(-1)
    inside = (numpy.abs(numpy.array(place) - enemy.place) < (SHIP + BALL) / 2).all()
    return numpy.where(hits.any(0) & ~inside, hits.argmax(0) + 1.0, math.inf)


def extrapolate(ship, frames):
    """A ship's place after some frames if it turns for up to 12 of them, then sails straight."""
    frames = numpy.asarray(frames, float)
    course = math.atan2(*ship.velocity)
    turned = course + ship.turning * numpy.minimum(frames, 12) / 2
    way = ship.speed * frames
    return numpy.clip(numpy.stack([ship.place[0] + way * numpy.sin(turned),
                                   ship.place[1] + way * numpy.cos(turned)], -1), 0, LAST)


class Pilot:
    """Decides for one ship. Remembers its last decision, and since when its ship has been stuck."""

    def __init__(self, player, style=BRISK):
        self.player = player
        self.style = style
        self.wish = REST
        self.seen = None  # the heading in the picture, estimated more finely than the sprites show
        self.heading = self.turned_from = 0.0  # the heading when new keys take effect
        self.lag = 0.0  # frames until new keys take effect
        self.frame = FRAME
        self.aim = None
        self.time = None
        self.moved = self.left = None  # (time, place) of the last movement by 6 and by 60 pixels
        self.free_until = -math.inf
        self.loaded = None  # the last time at which the cannon was not loaded
        self.is_impatient = False

    def decide(self, chart, lag=0.04):
        """The wish that follows from the newest picture; keys take effect lag seconds after it."""
        me, enemy = chart.ships[self.player], chart.ships[1 - self.player]
        if not chart.is_complete:
            return self.wish
        self.frame = chart.frame
        self._estimate_heading(chart.time, me, lag)
        self._notice_standstill(chart.time, me)
        is_freeing = chart.time < self.free_until
        self._notice_waiting(chart.time, me)
        aims = self.heading + numpy.arange(HEADINGS) * math.tau / HEADINGS
        shot = self._find_shot(me, enemy)
        if shot is not None and not is_freeing:
            aims = numpy.append(aims, shot)
        course = sail(extrapolate(me, self.lag), aims if is_freeing else self.heading, me.speed,
                      TOP_SPEEDS[self.player], aims, chart.blocked)
        way = self._way(course, me)
        values = self._weigh(me, enemy, aims, course, way)
        if is_freeing:
            values = way - 0.1 * numpy.abs(aims_turn(self.heading, aims))
        elif shot is not None:
            values[-1] += SHOT_VALUE * (3 if self.is_impatient else 1)
        best = int(values.argmax())
        self.aim, self.time = aims[best], chart.time
        waits = self.is_impatient and chart.distance < 2 * self.style.distance
        self.wish = self._choose_keys(chart, me, enemy, 0 if waits else way[best])
        return self.wish

    def _estimate_heading(self, time, me, lag):
        """The heading when new keys take effect, estimated from the one in the picture."""
        seen = heading_of(me.phase)
        if self.seen is None:
            self.seen, self.time = seen, time
        way = ("left" in self.wish.keys) - ("right" in self.wish.keys)
        # Every wish takes effect one lag after its picture.
        turned = max(0.0, min(time - self.time - lag, self.wish.turn))
        off = turn_between(seen, self.turned_from + way * TURN * turned / self.frame)
        if me.in_view is None:
            self.seen = seen + off
        else:
            self.seen = seen + max(-STEP / 2, min(STEP / 2, off))
        remaining = min(lag, self.wish.turn - turned)
        self.heading = self.seen + way * TURN * max(0.0, remaining) / self.frame
        self.turned_from = self.heading
        self.lag = lag / self.frame

    def _notice_standstill(self, time, me):
        if self.moved is None or math.dist(me.place, self.moved[1]) > 6:
            self.moved = time, me.place
        if self.left is None or math.dist(me.place, self.left[1]) > 60:
            self.left = time, me.place
        if time - self.moved[0] > STUCK_AFTER * self.frame / FRAME:
            self.moved = time, me.place
            self.free_until = time + FREEING * self.frame / FRAME

    def _notice_waiting(self, time, me):
        """A long wait makes the pilot impatient.

        Two ships that each try to stay astern of the other, or that have an island between them,
        could otherwise wait for ever.
        """
        if self.loaded is None or me.dial < FULL_DIAL:
            self.loaded = time
        self.is_impatient = time - self.loaded > IMPATIENT_AFTER * self.frame / FRAME

    @staticmethod
    def _bearing(me, enemy):
        return math.atan2(enemy.place[0] - me.place[0], enemy.place[1] - me.place[1])

    @staticmethod
    def _way(course, me):
        """The distance that the ship covers on each course, as a share of that at full speed."""
        start = numpy.full((1, *course.shape[1:]), me.place, float)
        steps = numpy.diff(numpy.concatenate([start, course]), axis=0)
        return numpy.hypot(steps[..., 0], steps[..., 1]).sum(0) / (
            TOP_SPEEDS[me.player] * STRIDE * STEPS)

    def _weigh(self, me, enemy, aims, course, way):
        """The value of each aim: room to sail, the distance to the enemy, little turning."""
        values = 4 * numpy.minimum(way, 0.85)
        for step in (STEPS // 2, STEPS - 1):
            there = extrapolate(enemy, STRIDE * (step + 1))
            apart = numpy.hypot(*(course[step] - there).T)
            values -= numpy.abs(apart - self.style.distance) / 200
        bearing = self._bearing(me, enemy)
        values += 0.3 * numpy.abs(numpy.sin(aims - bearing))
        # Astern of the enemy is the best place, because its guns fire ahead.
        there = extrapolate(enemy, STRIDE * STEPS) - course[-1]
        values += STERN[self.player] * numpy.cos(
            numpy.arctan2(there[:, 0], there[:, 1]) - enemy.heading)
        values -= 0.2 * numpy.abs(aims_turn(self.heading, aims))
        if self.aim is not None:
            values -= 0.2 * numpy.abs(aims_turn(self.aim, aims))
        return values

    def _find_shot(self, me, enemy):
        """The middle of the widest range of headings on which a shot will hit, or None."""
        if me.loaded_in > self.style.ready:
            return None
        bearing = self._bearing(me, enemy)
        headings = bearing + numpy.linspace(-1, 1, 41)
        delay = me.loaded_in + numpy.abs(aims_turn(self.heading, bearing)) / TURN
        place = extrapolate(me, delay)
        frames = flight(me, place, me.speed, headings, enemy, self.style.patience, delay)
        hits = numpy.isfinite(frames)
        if not hits.any():
            return None
        edges = numpy.flatnonzero(numpy.diff(numpy.concatenate([[0], hits, [0]])))
        first, last = max(zip(edges[::2], edges[1::2]), key=lambda run: run[1] - run[0])
        return headings[(first + last - 1) // 2]

    def _choose_keys(self, chart, me, enemy, way):
        off = turn_between(self.heading, self.aim)
        keys = set()
        if abs(off) > TURN / 2:
            keys.add("left" if off > 0 else "right")
        if chart.time < self.free_until:
            if abs(off) < 0.5:
                keys.add("forward")
        elif way > 0.35 or abs(off) < 0.5:
            keys.add("forward")
        if self._would_hit(me, enemy):
            keys.add("fire")
        if self._must_escape(chart, me, enemy):
            keys.add("teleport")
        return Wish(frozenset(keys), abs(off) / TURN * self.frame)

    def _would_hit(self, me, enemy):
        if me.dial < FULL_DIAL:
            return False
        spread = 0 if self.is_impatient else self.style.spread
        frames = flight(me, extrapolate(me, self.lag), me.speed,
                        self.heading + numpy.array([-spread, 0, spread]), enemy,
                        self.style.patience, self.lag)
        return bool(numpy.isfinite(frames).all())

    def _must_escape(self, chart, me, enemy):
        if chart.time - self.left[0] > BOXED_IN_AFTER * self.frame / FRAME:
            return True
        loses = me.hits - enemy.hits >= LOST_HITS or me.hits >= NEARLY_SUNK
        return loses and chart.time - me.hit < UNDER_FIRE
