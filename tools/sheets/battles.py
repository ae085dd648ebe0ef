# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Pictures of real battles, each on a different sea, from the game on a virtual display."""

from robots.match import Match
from robots.screens import Guide
from robots.stage import Stage, StageError, to_image

# The hits of both players together after which each battle's picture is taken.
HITS = (0, 1, 2, 3, 4, 6, 8, 9, 10, 11, 12, 14)
SHORTEST, LONGEST = 3, 120  # seconds


def battle(binary, root, tools, hits):
    """The seed (the time at which the game started) and a picture of one battle in a new run."""
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
    """Pictures of battles by seed: one for each number in HITS, each on a different sea."""
    found = {}
    for number, hits in enumerate(HITS):
        try:
            seed, picture = battle(binary, root, tools, hits)
        except StageError as problem:
            raise StageError(f"battle {number + 1} failed: {problem}") from problem
        found[seed] = picture
        print(f"battle {number + 1}, seed {seed}, {hits} hits", flush=True)
    return found
