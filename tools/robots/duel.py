# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A duel between two captains: looking, planning, and the manoeuvres that take both ships."""

import math
import time
from collections import namedtuple

from .captain import Captain, Stuck
from .sea import LAST, SHIP, Sea, aim_viewport
from .sight import FULL_DIAL, bearing, phase_of
from .stage import LOOK_INTERVAL, StageError
from .artwork import likeness

# What one picture of a battle showed of one player.
Sight = namedtuple("Sight", "time place look in_view phase bar dial")
# A slide: where it starts and ends, the phase to hold, the blocked axis (0 x, 1 y) and the sign
# of the way into the barrier and along it.
Slide = namedtuple("Slide", "start end phase axis into along barrier")

RELOAD = 120 * 0.016  # seconds at the game's full pace
TRIES = 6


class BattleOver(Exception):
    """The display no longer shows the battle."""


class Duel:
    """The battle on a stage, from its first picture on; sea is what lies in it."""

    def __init__(self, stage, lookout, sea, firing_places):
        self.stage = stage
        self.lookout = lookout
        self.sea = sea
        self.firing_places = firing_places
        self.captains = [Captain(player, stage, lookout, sea.starts[player])
                         for player in (0, 1)]
        self.log = ([], [])
        self.watchers = []  # called with each picture, after it has been read

    # Looking

    def look(self):
        picture = self.stage.picture()
        if not self.lookout.is_battle(picture):
            raise BattleOver
        for captain, log in zip(self.captains, self.log):
            captain.observe(picture)
            log.append(Sight(time.monotonic(), captain.place, captain.look, captain.in_view,
                             captain.phase, self.lookout.bar(picture, captain.player),
                             self.lookout.dial(picture, captain.player)))
        for watcher in self.watchers:
            watcher(picture)
        return picture

    def run(self, *manoeuvres, timeout=300):
        """Lets manoeuvres take turns, picture by picture, until all have ended."""
        deadline = time.monotonic() + timeout
        active = list(manoeuvres)
        while active:
            self.look()
            active = [manoeuvre for manoeuvre in active if advance(manoeuvre)]
            if self.stage.game.poll() is not None:
                raise StageError("the game ended in battle: " + self.stage.messages())
            if time.monotonic() > deadline:
                raise StageError(f"a manoeuvre took more than {timeout} s")
            time.sleep(LOOK_INTERVAL)

    def bars(self, player):
        """The widths of a player's bar in the order in which they were seen."""
        return without_repeats(sight.bar for sight in self.log[player] if sight.bar is not None)

    # Sailing

    def sail_to(self, captain, find_goals, near=16):
        """Sails to the best of the goals, on a new course whenever the ship gets stuck."""
        for margin in (12, 6, 16, 2, 12, 6)[:TRIES]:
            course = self.sea.course(captain.place, find_goals(), margin)
            if course is None:
                continue
            try:
                yield from captain.sail(course, near)
                return
            except Stuck:
                yield from captain.rest()
        raise StageError(f"player {captain.player + 1} found no way from {captain.place}")

    def slides(self, player, start=None):
        """Slides along barriers, the one that is reached soonest first, with the way to it."""
        start = start or self.captains[player].place
        plans = sorted((plan for plan in self._all_slides()),
                       key=lambda plan: math.dist(plan.start, start))
        for plan in plans[:12]:
            course = self.sea.course(start, [plan.start])
            if course:
                yield length([start] + course), plan

    def _all_slides(self):
        for barrier in self.sea.barriers:
            for axis in (0, 1):
                for into in (-1, 1):
                    for along in (-1, 1):
                        plan = plan_slide(barrier, axis, into, along)
                        if self._is_open(plan):
                            yield plan

    def _is_open(self, plan):
        contact = list(plan.end)
        contact[1 - plan.axis] = plan.start[1 - plan.axis]
        places = [plan.start, tuple(contact), plan.end]
        return (all(0 <= p[0] <= LAST and 0 <= p[1] <= LAST and is_centred(p) for p in places)
                and self.sea.is_free(*plan.start, 12)
                and self.sea.is_straight(tuple(contact), plan.end)
                and self.sea.is_straight(plan.start, tuple(contact)))

    def slide(self, captain, plan):
        """Sails to a barrier and along it; returns nothing, the log shows how it went."""
        yield from self.sail_to(captain, lambda: [plan.start], 20)
        yield from captain.turn_to(plan.phase)
        captain.hold("forward")
        along = 1 - plan.axis
        deadline = time.monotonic() + 20
        while (plan.end[along] - captain.place[along]) * plan.along > 0:
            if time.monotonic() > deadline:
                raise StageError(f"player {captain.player + 1} did not slide: {plan}")
            yield
        yield from captain.rest()

    # Fighting

    def close_in(self, mover):
        """Brings one ship to where both can hit; the other one has to lie still."""
        yield from self.uncover()
        captain, target = self.captains[mover], self.captains[1 - mover]
        if self.can_hit(mover) and self.can_hit(1 - mover):
            return
        yield from self.sail_to(captain, lambda: [
            place for place in self.firing_places.around(target.place, mover)
            if 0 <= place[0] <= LAST and 0 <= place[1] <= LAST and self.sea.is_free(*place, 2)])
        yield from captain.rest()

    def uncover(self):
        """Player 2's ship is drawn over the other one; where it hides that, it sails away."""
        hidden, captain = self.captains
        if math.dist(hidden.place, captain.place) > SHIP / 2:
            return
        x, y = captain.place
        around = [(x + dx, y + dy) for dx in (-150, 0, 150) for dy in (-150, 0, 150) if dx or dy]
        yield from self.sail_to(captain, lambda: [
            place for place in around
            if max(place) <= LAST and min(place) >= 0 and self.sea.is_free(*place, 12)])
        yield from hidden.rest()

    def can_hit(self, player):
        """The phases in which the player's ship is sure to hit the other one."""
        shooter, target = self.captains[player].place, self.captains[1 - player].place
        return self.firing_places.tables[player].phases(shooter, target)

    def aim(self, player):
        """Turns to where the shots hit; sails nearer first, if need be."""
        if not self.can_hit(player):
            yield from self.close_in(player)
        captain, target = self.captains[player], self.captains[1 - player].place
        sure = self.can_hit(player)
        if not sure:
            raise StageError(f"player {player + 1} at {captain.place} cannot hit {target}")
        straight = phase_of(bearing(captain.place, target))
        middle = min(sure, key=lambda phase: abs((phase - straight + 18) % 36 - 18))
        yield from captain.turn_to(middle)

    def wait_loaded(self, player):
        while self.log[player][-1].dial < FULL_DIAL:
            yield

    def hit(self, player, times, key="fire"):
        """Holds the fire key until the enemy's bar has shrunk some times."""
        for _ in range(times):
            width = self.bars(1 - player)[-1]
            for _ in range(TRIES):
                self.captains[player].hold(key)
                yield from self._await_hit(player, width)
                if self.is_hit(1 - player, width):
                    break
                yield from self.aim(player)
            else:
                raise StageError(f"player {player + 1} fired and did not hit")
        self.captains[player].hold()

    def _await_hit(self, player, width):
        """Until the enemy's bar is smaller than width, or several shots must have missed."""
        deadline = time.monotonic() + 5 * RELOAD
        while not self.is_hit(1 - player, width) and time.monotonic() < deadline:
            yield

    def is_hit(self, player, width):
        """True when the player's bar was just seen to be smaller than width."""
        bar = self.log[player][-1].bar
        return bar is not None and bar < width


def advance(manoeuvre):
    try:
        next(manoeuvre)
        return True
    except StopIteration:
        return False


def plan_slide(barrier, axis, into, along):
    """A slide with the ship pressing along one axis while it moves along the other."""
    corner, size = barrier[:2], barrier[2:]
    across = corner[axis] - SHIP if into > 0 else corner[axis] + size[axis]
    other = 1 - axis
    first, last = corner[other] - SHIP, corner[other] + size[other]
    if along < 0:
        first, last = last, first
    begin, end = [0, 0], [0, 0]
    begin[axis], begin[other] = across - 40 * into, first
    # Enough of the edge to see the slide; the rest would only take time.
    run = min(abs(last - first) - 10, 150)
    end[axis], end[other] = across, first + along * run
    aim = [0, 0]
    aim[axis], aim[other] = into, along
    return Slide(tuple(begin), tuple(end), phase_of(bearing((0, 0), aim)), axis, into, along,
                 barrier)


def is_centred(place):
    """True when the viewport of a ship at this place is not stopped by the world's border."""
    look = aim_viewport(*place)
    return look[0] == place[0] - 145 and look[1] == place[1] - 195 and min(look) > 8


def length(course):
    return sum(math.dist(a, b) for a, b in zip(course, course[1:]))


def without_repeats(values):
    kept = []
    for value in values:
        if not kept or kept[-1] != value:
            kept.append(value)
    return kept


def begin_duel(guide, firing_places, seeds):
    """From the menu into a battle on the sea of one of the seeds, with both ships seen."""
    stage, lookout, artwork = guide.stage, guide.lookout, guide.artwork
    guide.start_battle()
    sea = stage.wait_for(lambda picture: recognise_sea(picture, lookout, artwork, seeds),
                         f"a sea of one of the seeds {list(seeds)}", 5)
    duel = Duel(stage, lookout, sea, firing_places)
    duel.run(*[captain.rest() for captain in duel.captains])
    return duel


def recognise_sea(picture, lookout, artwork, seeds):
    """The sea that the first picture of a battle shows, out of those of some seeds, or None."""
    for seed in seeds:
        sea = Sea(seed, artwork)
        if shows_start(picture, lookout, sea):
            return sea
    return None


def shows_start(picture, lookout, sea):
    """True when both viewports show the water and barriers around the ships' start places."""
    chart = sea.chart()
    for player in (0, 1):
        x, y = aim_viewport(*sea.starts[player])
        view = lookout.view(picture, player)
        meant = chart[y:y + view.shape[0], x:x + view.shape[1]]
        # Each ship hides about 3 % of a view, and both may be seen.
        if likeness(view, meant) < 0.9:
            return False
    return True
