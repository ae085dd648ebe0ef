# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Whole duels between robot players, and what the display showed of every manoeuvre."""

import itertools
import math
import time

import pytest

from robots.duel import BattleOver, begin_duel, is_centred
from robots.screens import NEW_GAME, PARKED
from robots.sea import LAST, Sea
from robots.sight import CENTRE, FULL_DIAL, heading_of, phase_of

# What is left of a bar of 396 pixels after each of ten hits.
BAR_WIDTHS = [396, 356, 316, 277, 237, 198, 158, 118, 79, 39]
FRAME = 0.016
DIAL_JUST_FIRED = 4  # the dial needs some frames until it is seen
SAILED = 80  # pixels


# Choosing a sea that leaves room for the first manoeuvres


def has_room_ahead(sea, player):
    place = sea.starts[player]
    heading = heading_of(phase_of(sea.headings[player]))
    ahead = (place[0] + 2 * SAILED * math.sin(heading), place[1] + 2 * SAILED * math.cos(heading))
    inside = all(0 <= part <= LAST for part in ahead)
    return (inside and is_centred(place) and is_centred((round(ahead[0]), round(ahead[1])))
            and sea.is_straight(place, ahead, 10))


def choose_seed(artwork, suits):
    return next(seed for seed in itertools.count(1) if suits(Sea(seed, artwork)))


def open_duel(guide, firing_places, seed):
    """From the menu to a battle that begins as its seed says."""
    seeds = [seed]
    if guide.stage.fixed_time is None:
        seeds = range(int(guide.stage.started), int(time.time()) + 1)
    duel = begin_duel(guide, firing_places, seeds)
    for player in (0, 1):
        assert duel.log[player][-1].place == duel.sea.starts[player]
        assert duel.log[player][-1].phase == phase_of(duel.sea.headings[player])
        assert duel.log[player][-1].bar == BAR_WIDTHS[0]
        assert duel.log[player][-1].dial == FULL_DIAL
    return duel


# What the manoeuvres must have shown


def sail_ahead(duel):
    begin = len(duel.log[0])
    duel.run(*[captain.sail_ahead(SAILED) for captain in duel.captains])
    for player, log in enumerate(duel.log):
        assert_sailed_ahead(duel.captains[player], log[begin - 1:])


def assert_sailed_ahead(captain, log):
    (x1, y1), (x2, y2) = log[0].place, log[-1].place
    turned = math.atan2(x2 - x1, y2 - y1) - heading_of(captain.phase)
    # A sprite stands for 10 degrees, and dropped fractions bend the course by up to 10 more.
    assert abs(math.degrees(math.remainder(turned, 2 * math.pi))) < 20
    # The ship stays in the middle: it is the world that scrolls. A picture may be caught while
    # the display is being redrawn.
    assert sum(sight.in_view == CENTRE for sight in log) >= 0.9 * len(log)
    scrolled = (log[-1].look[0] - log[0].look[0], log[-1].look[1] - log[0].look[1])
    assert scrolled == (x2 - x1, y2 - y1)
    assert len({sight.look for sight in log}) >= 4


def slide_along_barriers(duel):
    """Both players at once, each along a barrier of its own."""
    # On a busy machine the robots may look too seldom to see a slide.
    for _ in range(3):
        first = min(duel.slides(0))[1]
        second = min(plan for plan in duel.slides(1) if plan[1].barrier != first.barrier)[1]
        plans = (first, second)
        begin = len(duel.log[0])
        duel.run(*[duel.slide(captain, plan) for captain, plan in zip(duel.captains, plans)])
        pressing = [pressed_sights(log[begin:], plan) for log, plan in zip(duel.log, plans)]
        if min(map(len, pressing)) >= 5:
            break
    for sights, plan in zip(pressing, plans):
        assert_slid(sights, plan)


def pressed_sights(log, plan):
    """When the ship strained towards the barrier, off the middle of its view."""
    axis, along = plan.axis, 1 - plan.axis
    return [sight for sight in log if sight.in_view and sight.phase == plan.phase
            and (CENTRE[axis] - sight.in_view[axis]) * plan.into >= 2
            and sight.in_view[along] == CENTRE[along]]


def assert_slid(pressing, plan):
    """The world scrolled along the barrier, and along it only."""
    axis, along = plan.axis, 1 - plan.axis
    assert len(pressing) >= 5
    # A slower ship, before its full speed and after, may come a little closer to the barrier.
    for across in ([sight.place[axis] for sight in pressing],
                   [sight.look[axis] for sight in pressing]):
        assert max(across) - min(across) <= 4
    ways = [sight.look[along] * plan.along for sight in pressing]
    assert ways == sorted(ways)
    assert ways[-1] - ways[0] >= 40


def teleport(duel, player):
    captain, log = duel.captains[player], duel.log[player]
    landing = duel.sea.place_ship()
    before, begin = captain.phase, len(log)
    pressed = time.monotonic()
    duel.run(captain.jump())
    assert captain.place == landing
    assert captain.phase == before
    duel.run(captain.pause(0.15))
    assert min(sight.dial for sight in log[begin:]) <= DIAL_JUST_FIRED
    return pressed


def assert_no_second_teleport(duel, player):
    """The next teleport takes 900 frames; the key does nothing before."""
    captain, log = duel.captains[player], duel.log[player]
    place, begin = captain.place, len(log)
    captain.tap("teleport")
    duel.run(captain.pause(0.3))
    assert {sight.place for sight in log[begin:]} == {place}
    dials = [sight.dial for sight in log[begin:]]
    assert dials == sorted(dials)


def await_loaded(duel, player, since, frames):
    """The dial is full some frames after the key was pressed, and not sooner."""
    duel.run(duel.wait_loaded(player))
    log = [sight for sight in duel.log[player] if sight.time > since]
    emptied = next(i for i, sight in enumerate(log) if sight.dial <= DIAL_JUST_FIRED)
    full = next(sight.time for sight in log[emptied:] if sight.dial == FULL_DIAL)
    # The last part of the dial is never seen: 7 of 300 frames and 2 of 120.
    assert full - since >= frames * FRAME * 0.975


def first_shot(duel, player, key):
    """Holds the given key until the first hit, which takes its part of the enemy's bar."""
    width = duel.bars(1 - player)[-1]
    pressed = time.monotonic()
    duel.run(duel.hit(player, 1, key))
    assert duel.bars(1 - player)[-1] == BAR_WIDTHS[BAR_WIDTHS.index(width) + 1]
    return pressed


def sink(duel, player, other_hits=0):
    """Both fire, the other one only for some hits; until the display shows no battle any more."""
    duel.run(duel.hit(player, other_hits), duel.hit(1 - player, other_hits))
    flight = set()
    duel.watchers.append(lambda picture: flight.update(balls_in_world(duel, player, picture)))
    with pytest.raises(BattleOver):
        duel.run(duel.hit(player, len(BAR_WIDTHS) + 1))
    assert [width for width in duel.bars(1 - player) if width] == BAR_WIDTHS
    assert_straight_flight(flight, duel.captains[player].place, duel.captains[1 - player].place)
    return duel.bars(player)


def balls_in_world(duel, player, picture):
    look = duel.captains[player].look
    return [(x + look[0], y + look[1])
            for x, y in duel.lookout.find_balls(duel.lookout.view(picture, player))]


def assert_straight_flight(flight, shooter, target):
    """All shots of a ship at rest fly along one line from its middle to the enemy."""
    assert len(flight) >= 3
    centre = (shooter[0] + 40, shooter[1] + 40)  # the ball is 20 pixels wide, the ship 100
    goal = (target[0] + 40, target[1] + 40)
    near, far = (choose(flight, key=lambda place: math.dist(place, centre))
                 for choose in (min, max))
    assert math.dist(far, goal) < math.dist(near, goal)
    way = (far[0] - centre[0], far[1] - centre[1])
    for x, y in flight:
        assert way[0] * (x - centre[0]) + way[1] * (y - centre[1]) > 0
        across = way[0] * (y - centre[1]) - way[1] * (x - centre[0])
        assert abs(across) <= math.hypot(*way)  # one pixel


# The tests


def test_duel_with_every_manoeuvre_won_by_player_1(play, artwork, firing_places):
    def suits(sea):
        return has_room_ahead(sea, 0) and has_room_ahead(sea, 1)

    seed = choose_seed(artwork, suits)
    with play(seed) as guide:
        guide.skip_intro()
        duel = open_duel(guide, firing_places, seed)
        if suits(duel.sea):
            sail_ahead(duel)
        slide_along_barriers(duel)
        jumps = [teleport(duel, player) for player in (0, 1)]
        assert_no_second_teleport(duel, 0)
        duel.run(duel.close_in(0))
        duel.run(duel.aim(0), duel.aim(1))
        for player in (0, 1):
            await_loaded(duel, player, jumps[player], 300)
        fired = first_shot(duel, 0, "fire2")
        await_loaded(duel, 0, fired, 120)
        first_shot(duel, 1, "fire")
        assert sink(duel, 0, 1) == BAR_WIDTHS[:3]

        guide.await_game_over(1)
        for key in ("Return", "space"):
            guide.stage.tap(key)
        guide.stage.click()
        time.sleep(0.2)
        guide.await_game_over(1)
        guide.stage.tap("Escape")
        guide.await_menu()
        # If any of those had led to the menu, Escape would have ended the program there.
        guide.point_at(NEW_GAME)
        guide.stage.click()
        guide.await_battle()
        guide.stage.point(*PARKED)
        guide.stage.tap("Escape")
        guide.await_menu()
        guide.stage.tap("Up")
        guide.await_menu(3)
        guide.stage.tap("Return")


def test_duel_won_by_player_2(play, artwork, firing_places):
    def suits(sea):
        return math.dist(*sea.starts) < 300

    seed = choose_seed(artwork, suits)
    with play(seed) as guide:
        guide.skip_intro()
        duel = open_duel(guide, firing_places, seed)
        duel.run(duel.close_in(1))
        duel.run(duel.aim(0), duel.aim(1))
        assert sink(duel, 1) == BAR_WIDTHS[:1]
        guide.await_game_over(2)
        guide.stage.tap("Escape")
        guide.await_menu()
        guide.stage.tap("q")


def test_ships_that_begin_on_the_same_place(request, play, artwork, firing_places):
    """Player 2's ship hides the other one; neither blocks the other, and they fight as ever."""
    if request.config.option.fixed_time is None:
        pytest.skip("needs a sea of its own choice")

    def suits(sea):
        phases = [phase_of(heading) for heading in sea.headings]
        return sea.starts[0] == sea.starts[1] and phases[0] != phases[1]

    seed = choose_seed(artwork, suits)
    with play(seed) as guide:
        guide.skip_intro()
        duel = begin_duel(guide, firing_places, [seed])
        for log in duel.log:
            assert log[-1].place == duel.sea.starts[0]
            assert log[-1].phase == phase_of(duel.sea.headings[1])
        duel.run(duel.close_in(0))
        duel.run(duel.aim(0), duel.aim(1))
        duel.run(duel.hit(0, 1), duel.hit(1, 1))
        assert [duel.bars(player) for player in (0, 1)] == [BAR_WIDTHS[:2]] * 2
        guide.stage.tap("Escape")
        guide.await_menu()
        guide.stage.tap("q")
