# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Pictures of real battles, each on another sea, taken from the game on a virtual display."""

from robots.match import Match
from robots.screens import Guide
from robots.stage import Stage, StageError, to_image

# How many hits, of both players together, the battle of each picture is old.
HITS = (0, 1, 2, 3, 4, 6, 8, 9, 10, 11, 12, 14)
SHORTEST, LONGEST = 3, 120  # seconds


def battle(binary, root, tools, hits):
    """The seed, as far as the clock tells it, and a picture of one battle in a new run."""
    artwork, writer, lookout = tools
    with Stage(binary, root) as stage:
        guide = Guide(stage, artwork, writer, lookout)
        guide.skip_intro()
        guide.start_battle()
        match = Match(stage, lookout)
        match.run(SHORTEST)
        match.run(LONGEST, lambda: sum(match.statistics.hits) >= hits)
        return int(stage.started), to_image(match.last)


def battles(binary, root, tools):
    """Battles on as many different seas as HITS tells, some just begun, some nearly over."""
    found = {}
    for number, hits in enumerate(HITS):
        try:
            seed, picture = battle(binary, root, tools, hits)
        except StageError as problem:
            raise StageError(f"battle {number + 1} failed: {problem}") from problem
        found[seed] = picture
        print(f"battle {number + 1}, seed {seed}, {hits} hits", flush=True)
    return found
