# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""One robot player: what it knows of its ship, and how it steers with its keys.

The manoeuvres are generators. Each yields whenever it has done what the current picture called
for and wants the next one, so that two captains can sail at the same time.
"""

import math
import time

from .sea import SHIP, VIEW_HEIGHT, VIEW_WIDTH, WORLD, aim_viewport
from .sight import CENTRE, PHASES, bearing, phase_of

KEYS = (
    {"left": "a", "right": "d", "forward": "w", "fire": "Tab", "fire2": "space", "teleport": "z"},
    {"left": "Left", "right": "Right", "forward": "Up", "fire": "Return", "fire2": "Return",
     "teleport": "Delete"},
)
# Pixels that a ship needs from letting go of the forward key to rest, and the delay of the robot.
BRAKING = (48, 40)
SETTLING = 0.1  # seconds; longer than any delay between a key and the picture that shows it
STUCK_AFTER = 1.5


class Stuck(Exception):
    """A ship did not get on; a new course is needed."""


class Captain:
    """player is 0 or 1. place is the top left corner of the ship's square in the world."""

    def __init__(self, player, stage, lookout, place):
        self.player = player
        self.stage = stage
        self.lookout = lookout
        self.keys = KEYS[player]
        self.place = place
        self.look = aim_viewport(*place)
        self.phase = None
        self.in_view = None  # of the ship, as last seen; None while it is hidden
        self.water = None
        self.water_before_jump = None  # set while a teleport is expected

    # Seeing

    def observe(self, picture):
        view = self.lookout.view(picture, self.player)
        water = self.lookout.water_phase(view)
        if water is None:
            return
        self.water = water
        if self.water_before_jump not in (None, water) and self.lookout.start_places(water):
            self.water_before_jump = None
            self.place = self.lookout.start_places(water)[0]
            self.look = aim_viewport(*self.place)
        else:
            self.look = min(self.lookout.look_places(water),
                            key=lambda look: math.dist(look, self.look))
        self._find_ship(view)

    def _find_ship(self, view):
        expected = self._expected_in_view()
        left, top = max(0, expected[0] - 40), max(0, expected[1] - 40)
        part = view[top:expected[1] + SHIP + 40, left:expected[0] + SHIP + 40]
        phases = range(PHASES)
        if self.phase is not None:
            phases = [(self.phase + turn) % PHASES for turn in range(-3, 4)]
        found = self.lookout.find_ships(part, phases) or self.lookout.find_ships(part)
        if found:
            x, y, self.phase = min(found, key=lambda ship: math.dist(
                (ship[0] + left, ship[1] + top), expected))
            self.in_view = (x + left, y + top)
            self.place = (self.look[0] + self.in_view[0], self.look[1] + self.in_view[1])
        else:
            self.in_view = None
            self.place = (self.look[0] + expected[0], self.look[1] + expected[1])

    def _expected_in_view(self):
        """In the middle, except near the border of the world, where the viewport stops."""
        most = (WORLD - VIEW_WIDTH - 1, WORLD - VIEW_HEIGHT - 1)
        return tuple(CENTRE[axis] if 0 < self.look[axis] < most[axis]
                     else min(max(self.place[axis] - self.look[axis], 0), WORLD)
                     for axis in (0, 1))

    # Keys

    def hold(self, *actions):
        """Holds exactly the keys of these actions."""
        wanted = {self.keys[action] for action in actions}
        for key in set(self.keys.values()) - wanted:
            self.stage.release(key)
        for key in wanted:
            self.stage.press(key)

    def tap(self, action):
        self.stage.tap(self.keys[action])

    # Manoeuvres

    def pause(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            yield

    def rest(self):
        """Lets go of everything and waits until the ship neither moves nor turns."""
        self.hold()
        since, last = time.monotonic(), (self.place, self.phase)
        while time.monotonic() - since < SETTLING:
            yield
            if (self.place, self.phase) != last:
                since, last = time.monotonic(), (self.place, self.phase)

    def off_course(self, phase):
        """Sprite steps to the right (or, negative, to the left) to the wanted phase."""
        half = PHASES // 2
        return (phase - self.phase + half) % PHASES - half

    def turn_to(self, phase):
        """Turns on the spot until the ship shows this phase."""
        yield from self.rest()
        while self.off_course(phase) != 0:
            while abs(self.off_course(phase)) > 1:
                self.hold("right" if self.off_course(phase) > 0 else "left")
                yield
            yield from self.rest()
            if self.off_course(phase) != 0:
                self.tap("right" if self.off_course(phase) > 0 else "left")
                yield from self.pause(0.05)

    def sail(self, corners, near=16):
        """Follows a course and comes to rest within some pixels of its end."""
        for corner in corners[:-1]:
            yield from self._head_for(corner, 35)
        yield from self._head_for(corners[-1], BRAKING[self.player])
        yield from self.rest()
        while math.dist(self.place, corners[-1]) > near:
            yield from self._approach(corners[-1])

    def sail_ahead(self, distance):
        """Sails straight on for some pixels and comes to rest."""
        start, deadline = self.place, time.monotonic() + 20
        self.hold("forward")
        while math.dist(self.place, start) < distance:
            if time.monotonic() > deadline:
                raise Stuck(f"player {self.player + 1} at {self.place}")
            yield
        yield from self.rest()

    def jump(self):
        """Teleports a ship at rest and waits until the new place is seen."""
        yield from self.rest()
        self.water_before_jump = self.water
        deadline = time.monotonic() + 20
        self.tap("teleport")
        while self.water_before_jump is not None:
            if time.monotonic() > deadline:
                raise Stuck(f"player {self.player + 1} was not teleported from {self.place}")
            yield

    def _head_for(self, goal, reach):
        moved, last = time.monotonic(), self.place
        while math.dist(self.place, goal) > reach:
            off = self.off_course(phase_of(bearing(self.place, goal)))
            actions = ["forward"] if abs(off) <= 2 else []
            if off:
                actions.append("right" if off > 0 else "left")
            self.hold(*actions)
            if math.dist(self.place, last) > 8 or not actions or abs(off) > 2:
                moved, last = time.monotonic(), self.place
            if time.monotonic() - moved > STUCK_AFTER:
                raise Stuck(f"player {self.player + 1} at {self.place} on the way to {goal}")
            yield

    def _approach(self, goal):
        """One short push towards a goal nearer than the braking distance."""
        distance = math.dist(self.place, goal)
        if distance > 1.5 * BRAKING[self.player]:
            yield from self._head_for(goal, BRAKING[self.player])
            yield from self.rest()
            return
        before = self.place
        yield from self.turn_to(phase_of(bearing(self.place, goal)))
        self.hold("forward")
        # Speeding up for t seconds and coasting covers about 60 (60 t)^2 / 120 pixels.
        yield from self.pause(math.sqrt(distance * 2) / 62.5)
        yield from self.rest()
        if self.place == before:
            raise Stuck(f"player {self.player + 1} at {before}, {distance:.0f} short of {goal}")
