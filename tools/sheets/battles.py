# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Pictures of real battles, each of another seed, taken from the game on a virtual display."""

import random
import time

from robots.captain import KEYS, Stuck
from robots.duel import BattleOver, begin_duel
from robots.gunnery import FiringPlaces
from robots.screens import Guide
from robots.stage import Stage, StageError, to_image

SAILING = (1.0, 3.5)  # seconds
AFTER_THE_SHOT = 0.35  # both balls are still in sight
FATAL = 10  # hits
# Of each battle, the hits that both players have made before they part.
HITS = ((0, 0), (1, 3), (5, 2), (3, 3), (7, 4), (0, 0), (2, 8), (4, 1), (6, 6), (8, 5), (3, 7),
        (9, 9))
RELOADING = 0.9  # seconds after the last hit, in which the dials fill by half
ATTEMPTS = 4


def sail_and_fire(stage, choice):
    """Both ships sail on a random course and fire; the same choices for the same generator."""
    helms = [choice.choice(("left", "right", None)) for _ in KEYS]
    for keys, helm in zip(KEYS, helms):
        stage.press(keys["forward"])
        if helm:
            stage.press(keys[helm])
    time.sleep(choice.uniform(*SAILING) / 2)
    for keys, helm in zip(KEYS, helms):
        if helm:
            stage.release(keys[helm])
    time.sleep(choice.uniform(*SAILING) / 2)
    for keys in KEYS:
        stage.press(keys["fire"])
    time.sleep(AFTER_THE_SHOT)


def fight(duel, hits, choice):
    """A duel up to these hits, from which both ships then turn away, firing or not."""
    duel.run(duel.close_in(0))
    duel.run(duel.aim(0), duel.aim(1))
    duel.run(duel.hit(0, hits[0]), duel.hit(1, hits[1]))
    for captain, made in zip(duel.captains, hits):
        # The last hit of all would end the battle before its picture is taken.
        fire = ("fire",) if made < FATAL - 1 and choice.random() < 0.5 else ()
        captain.hold("forward", choice.choice(("left", "right")), *fire)
    time.sleep(choice.uniform(0.3, 1) * RELOADING)


def battle(binary, root, tools, number):
    """(seed, picture) of one battle in a new run of the game."""
    artwork, writer, lookout, firing_places = tools
    choice = random.Random(number)
    with Stage(binary, root) as stage:
        guide = Guide(stage, artwork, writer, lookout)
        guide.skip_intro()
        # The game takes its seed from the clock, a second or so after it was started.
        started = int(stage.started)
        duel = begin_duel(guide, firing_places, range(started, started + 4))
        if any(HITS[number]):
            fight(duel, HITS[number], choice)
        else:
            sail_and_fire(stage, choice)
        return duel.sea.seed, to_image(stage.picture())


def battles(binary, root, tools):
    """Battles of as many different seeds as HITS tells, some just begun, some nearly over."""
    found, tools = {}, (*tools, FiringPlaces())
    for number, hits in enumerate(HITS):
        for _ in range(ATTEMPTS):
            try:
                seed, picture = battle(binary, root, tools, number)
                break
            except (StageError, BattleOver, Stuck) as problem:
                # A sea may leave no way to the enemy, and a ship may be sunk by a hit too many.
                print(f"battle {number + 1} again: {problem}", flush=True)
        else:
            raise StageError(f"battle {number + 1} failed {ATTEMPTS} times")
        found[seed] = picture
        print(f"battle {number + 1}, seed {seed}, hits {hits}", flush=True)
    return found
