# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Pictures of real battles, each of another seed, taken from the game on a virtual display."""

import random
import time

from robots.captain import KEYS
from robots.duel import recognise_sea
from robots.screens import Guide
from robots.stage import Stage, StageError, to_image

SAILING = (1.0, 3.5)  # seconds
AFTER_THE_SHOT = 0.35  # both balls are still in sight


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


def battle(binary, root, tools, number):
    """(seed, picture) of one battle in a new run of the game."""
    artwork, writer, lookout = tools
    with Stage(binary, root) as stage:
        guide = Guide(stage, artwork, writer, lookout)
        guide.skip_intro()
        guide.start_battle()
        first = stage.picture()
        sail_and_fire(stage, random.Random(number))
        picture = to_image(stage.picture())
        # The game takes its seed from the clock, a second or so after it was started.
        started = int(stage.started)
    sea = recognise_sea(first, lookout, artwork, range(started, started + 4))
    if sea is None:
        raise StageError("a sea that none of the last seconds leads to")
    return sea.seed, picture


def battles(binary, root, tools, count):
    """Battles of as many different seeds."""
    found = {}
    while len(found) < count:
        seed, picture = battle(binary, root, tools, len(found))
        found[seed] = picture
        print(f"battle of seed {seed}", flush=True)
    return found
