# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Sailing, firing, teleports and whole duels with real keys, and what the display showed of them.

The manoeuvres hold keys on a sea that was chosen for them. The duels are fought by the pilots.
"""

import itertools
import math
import time
from collections import namedtuple

import pytest

from robots.chart import RELOAD, TELEPORT_RELOAD, TOP_SPEEDS, overlap, phase_of
from robots.match import Match
from robots.screens import NEW_GAME, PARKED
from robots.sea import Sea
from robots.see import BAR_WIDTH, CENTRE, FULL_DIAL, SHIP, aim_viewport
from robots.think import BRISK, Wish

# What is left of a bar of 396 pixels after each of ten hits.
BAR_WIDTHS = [396, 356, 316, 277, 237, 198, 158, 118, 79, 39]
FRAME = 0.016
DIAL_JUST_FIRED = 8  # the dial needs some frames until it is seen
SAILED = 80  # pixels in open water
SLID = 50  # pixels along a barrier
LONGEST_DUEL = 1200  # seconds, on a machine that is very busy
# Seconds between two looks; what happened within a longer time may have been missed.
LONGEST_BLINK = 0.5

Sight = namedtuple("Sight", "time place look in_view phase bar dial balls")


class LookedAway(Exception):
    """The machine was too busy to watch a manoeuvre. pytest runs the test again."""


class Watch:
    """A battle in which the test holds the keys, or pilots do, and everything seen is noted."""

    def __init__(self, guide, styles=(None, None)):
        guide.start_battle()
        self.match = Match(guide.stage, guide.lookout, styles)
        self.log = ([], [])
        self.longest_blink = math.inf if any(styles) else LONGEST_BLINK
        self.match.watchers.append(self._note)
        self.wait(20, lambda: all(self.log))

    def _note(self, _):
        chart = self.match.chart
        if chart.time - self.looked > self.longest_blink:
            raise LookedAway(f"for {chart.time - self.looked:.1f} s")
        self.looked = chart.time
        for ship, log in zip(chart.ships, self.log):
            log.append(Sight(chart.time, ship.place, ship.look, ship.in_view, ship.phase,
                             ship.bar, ship.dial, chart.balls))

    def hold(self, player, *actions, turn=0.0):
        self.match.hands[player].wish(Wish(frozenset(actions), turn))

    def run(self, until, timeout=60):
        self.wait(timeout, until)
        assert until(), f"not seen in time; last {[log[-1:] for log in self.log]}"

    def wait(self, seconds, until=lambda: False):
        self.looked = time.monotonic()
        self.match.run(seconds, until)

    def bars(self, player):
        """The widths of a player's bar in the order in which they were seen."""
        widths = [sight.bar for sight in self.log[player] if sight.bar]
        return [width for width, _ in itertools.groupby(widths)]


# Choosing a sea


def choose_seed(artwork, suits):
    return next(seed for seed in itertools.count(1) if suits(Sea(seed, artwork)))


def sail_ahead(sea, player, frames=150):
    """The places of a ship whose player only holds the forward key, by the rules."""
    (x, y), heading, speed = sea.starts[player], sea.headings[player], 0.0
    places = [(x, y)]
    for _ in range(frames):
        speed = min(speed + 0.5, TOP_SPEEDS[player])
        to = (x + int(math.sin(heading) * speed), y + int(math.cos(heading) * speed))
        x, y = next((place for place in (to, (x, to[1]), (to[0], y)) if sea.is_free(*place)),
                    (x, y))
        places.append((x, y))
        if not is_centred((x, y)):
            break
    return places


def is_centred(place):
    """True when the viewport of a ship at this place is not stopped by the world's border."""
    look = aim_viewport(*place)
    return look[0] == place[0] - 145 and look[1] == place[1] - 195 and min(look) > 8


def blocked_axis(places):
    """(number of the first place, axis) from which a ship slid along a barrier, or None."""
    for axis in (0, 1):
        for first in range(20, len(places) - 1):
            part = places[first:]
            if (len({place[axis] for place in part}) == 1
                    and abs(part[-1][1 - axis] - part[0][1 - axis]) >= SLID):
                return first, axis
    return None


def slides_after_open_water(sea, player):
    """True when the forward key alone leads through open water and then along a barrier."""
    places = sail_ahead(sea, player)
    slide = blocked_axis(places)
    (x1, y1), (x2, y2) = sea.starts
    return (slide is not None and math.dist(places[0], places[slide[0]]) > 2 * SAILED
            and places[slide[0]][slide[1]] != places[0][slide[1]]
            and max(abs(x1 - x2), abs(y1 - y2)) > 300)


# The tests


@pytest.fixture
def seeded(request):
    """Skips a test that needs a sea of its own choice where the clock cannot be stopped."""
    if request.config.option.fixed_time is None:
        pytest.skip("needs a sea of its own choice, --fixed-time")


def leave(guide):
    guide.stage.tap("Escape")
    guide.await_menu()
    guide.stage.tap("q")


@pytest.mark.usefixtures("seeded")
@pytest.mark.parametrize("player", (0, 1))
def test_ship_sails_ahead_and_slides_along_a_barrier(play, artwork, player):
    seed = choose_seed(artwork, lambda sea: slides_after_open_water(sea, player))
    sea = Sea(seed, artwork)
    places = sail_ahead(sea, player)
    start, axis = blocked_axis(places)
    with play(seed) as guide:
        guide.skip_intro()
        watch = Watch(guide)
        log = watch.log[player]
        for seen, place, heading in zip(watch.log, sea.starts, sea.headings):
            assert seen[-1].place == place
            assert seen[-1].phase == phase_of(heading)
            assert (seen[-1].bar, seen[-1].dial) == (BAR_WIDTH, FULL_DIAL)
        watch.hold(player, "forward")
        end = places[-1]
        watch.run(lambda: math.dist(log[-1].place, end) < math.dist(places[start], end) - SLID + 12)
        shore = places[start][axis]
        open_water = [sight for sight in log if abs(sight.place[axis] - shore) > 8]
        assert_sailed_ahead(open_water, sea.headings[player])
        assert_slid(log, places, start, axis)
        watch.hold(player)
        leave(guide)


def assert_sailed_ahead(log, heading):
    (x1, y1), (x2, y2) = log[0].place, log[-1].place
    assert math.dist((x1, y1), (x2, y2)) >= SAILED
    turned = math.atan2(x2 - x1, y2 - y1) - heading
    # Dropped fractions bend the course by up to 10 degrees.
    assert abs(math.degrees(math.remainder(turned, 2 * math.pi))) < 12
    # The ship stays in the middle: it is the world that scrolls.
    assert all(sight.in_view == CENTRE for sight in log)
    scrolled = (log[-1].look[0] - log[0].look[0], log[-1].look[1] - log[0].look[1])
    assert scrolled == (x2 - x1, y2 - y1)


def assert_slid(log, places, start, axis):
    """The world scrolled along the barrier, and along it only."""
    shore = places[start][axis]
    into = 1 if shore > places[0][axis] else -1
    sliding = [sight for sight in log if sight.place[axis] == shore and sight.in_view
               and (CENTRE[axis] - sight.in_view[axis]) * into >= 1]
    assert len(sliding) >= 2
    along = [sight.look[1 - axis] for sight in sliding]
    assert along in (sorted(along), sorted(along, reverse=True))
    # The ship strains towards the barrier, off the middle of its view.
    assert all(sight.in_view[1 - axis] == CENTRE[1 - axis] for sight in sliding)


@pytest.mark.usefixtures("seeded")
@pytest.mark.parametrize("player", (0, 1))
def test_teleport_lands_on_the_grid_and_takes_long_to_come_back(play, artwork, player):
    sea = Sea(5, artwork)
    landing = sea.place_ship()
    with play(5) as guide:
        guide.skip_intro()
        watch = Watch(guide)
        log = watch.log[player]
        phase, begin = log[-1].phase, len(log)
        watch.hold(player, "teleport")
        watch.run(lambda: log[-1].place == landing)
        watch.hold(player)
        assert log[-1].phase == phase
        await_loaded(watch, player, begin, TELEPORT_RELOAD)
        # The next teleport takes 900 frames; the key does nothing before.
        begin = len(log)
        watch.hold(player, "teleport")
        watch.wait(0.3)
        assert {(sight.place, sight.dial) for sight in log[begin:]} <= {(landing, FULL_DIAL)}
        leave(guide)


def await_loaded(watch, player, begin, frames):
    """The dial empties and is full some frames later, and not sooner."""
    log = watch.log[player]
    watch.run(lambda: any(sight.dial <= DIAL_JUST_FIRED for sight in log[begin:]))
    emptied = next(sight for sight in log[begin:] if sight.dial <= DIAL_JUST_FIRED)
    watch.run(lambda: log[-1].dial == FULL_DIAL)
    # What had passed when the dial was first seen empty, and its last part, which is never seen.
    missed = (emptied.dial + 2) / FULL_DIAL
    assert log[-1].time - emptied.time >= frames * FRAME * (1 - missed)


@pytest.mark.usefixtures("seeded")
@pytest.mark.parametrize("player, key", ((0, "fire"), (0, "fire2"), (1, "fire")))
def test_shot_flies_straight_ahead_and_empties_the_dial(play, artwork, player, key):
    seed = choose_seed(artwork, lambda sea: has_room_for_a_shot(sea, player))
    sea = Sea(seed, artwork)
    with play(seed) as guide:
        guide.skip_intro()
        watch = Watch(guide)
        begin = len(watch.log[player])
        watch.hold(player, key)
        watch.run(lambda: watch.log[player][-1].dial < FULL_DIAL)
        watch.hold(player)
        await_loaded(watch, player, begin, RELOAD)
        flight = {ball for sight in watch.log[player] for ball in sight.balls}
        assert_straight_flight(flight, sea.starts[player], sea.headings[player], 6 + player)
        leave(guide)


def has_room_for_a_shot(sea, player):
    """True when the enemy is out of the way and the shot stays long in sight."""
    (x, y), heading = sea.starts[player], sea.headings[player]
    end = (x + 150 * math.sin(heading), y + 150 * math.cos(heading))
    way = (min(x, end[0]) - 200, min(y, end[1]) - 200, abs(x - end[0]) + 500, abs(y - end[1]) + 500)
    return is_centred((x, y)) and not overlap(way, (*sea.starts[1 - player], SHIP, SHIP))


def assert_straight_flight(flight, ship, heading, speed):
    """The shot of a ship at rest flies from its middle, in whole steps along its heading."""
    assert len(flight) >= 2
    step = (int(speed * math.sin(heading)), int(speed * math.cos(heading)))
    for x, y in flight:
        away = (x - ship[0] - 40, y - ship[1] - 40)  # the ball is 20 pixels wide, the ship 100
        steps = round(math.hypot(*away) / math.hypot(*step))
        assert away == (steps * step[0], steps * step[1])


@pytest.mark.parametrize("winner", (1, 2))
def test_a_pilot_fights_until_the_other_ship_is_sunk(play, winner):
    """Each hit takes a tenth of a bar; then the winner is named, and the menu comes back."""
    with play() as guide:
        guide.skip_intro()
        watch = Watch(guide, (BRISK, None) if winner == 1 else (None, BRISK))
        watch.run(lambda: watch.match.is_over, LONGEST_DUEL)
        guide.await_game_over([winner])
        assert watch.bars(2 - winner) == BAR_WIDTHS
        assert watch.bars(winner - 1) == BAR_WIDTHS[:1]
        for key in ("Return", "space"):
            guide.stage.tap(key)
        guide.stage.click()
        watch.wait(0.2)
        guide.await_game_over([winner])
        guide.stage.tap("Escape")
        guide.await_menu()
        # If any of those had led to the menu, Escape would have ended the program there.
        guide.point_at(NEW_GAME)
        guide.stage.click()
        guide.await_battle()
        guide.stage.point(*PARKED)
        leave(guide)


def assert_only_hits_shorten_the_bar(watch, player):
    """The bar loses one part after the other, and none is missed."""
    widths = watch.bars(player)
    assert widths == BAR_WIDTHS[:len(widths)]


@pytest.mark.usefixtures("seeded")
def test_ships_that_begin_on_the_same_place(play, artwork):
    """Player 2's ship hides the other one; neither blocks the other, and they fight as ever."""

    def suits(sea):
        phases = [phase_of(heading) for heading in sea.headings]
        return sea.starts[0] == sea.starts[1] and phases[0] != phases[1]

    seed = choose_seed(artwork, suits)
    with play(seed) as guide:
        guide.skip_intro()
        watch = Watch(guide, (BRISK, BRISK))
        start = Sea(seed, artwork).starts[0]
        for log in watch.log:
            assert log[0].place == start
        watch.run(lambda: watch.match.chart.distance > SHIP)
        hits = watch.match.statistics.hits
        watch.run(lambda: watch.match.is_over or min(hits) > 0, LONGEST_DUEL)
        for player in (0, 1):
            assert_only_hits_shorten_the_bar(watch, player)
        if watch.match.is_over:
            guide.stage.tap("Escape")
            guide.await_menu()
            guide.stage.tap("q")
        else:
            leave(guide)
